// Any file opens without crashing: `openen` on arbitrary bytes either loads them or ends with a
// classic run-time error, and never allocates beyond the array limit.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "headless_window.h"
#include "platform/runtime_error.h"
#include "platform/scripted_dialogs.h"
#include "storage/opslag.h"

namespace {

const std::string& scratchFile() {
    static const std::string path = [] {
        // tmpfs where there is one: the file is written and read once per input.
        char name[] = "/dev/shm/openen_fuzz_XXXXXX";
        if (access("/dev/shm", W_OK) != 0) {
            std::strcpy(name, "/tmp/openen_fuzz_XXXXXX");
        }
        const int fd = mkstemp(name);
        if (fd < 0) {
            std::abort();
        }
        close(fd);
        return std::string(name);
    }();
    return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string& path = scratchFile();
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (f == nullptr || std::fwrite(data, 1, size, f) != size || std::fclose(f) != 0) {
        std::abort();
    }
    zw::HeadlessWindow window;
    zw::ScriptedDialogs dialogs;
    zw::Opslag store(window, dialogs, "/tmp");
    try {
        store.openen(path);
    } catch (const zw::RuntimeError&) {
        // The classic answer to a damaged file: the action ends with its message.
    }
    return 0;
}
