// The whole editor on any file: the input is opened as a ".zwl" file in the headless editor, and
// then everything a user can do with an opened curve is done to it (tests/editor_script.h).
// Every step must end in success or a classic run-time error, without a sanitizer report, a
// leak, or more time than libFuzzer's -timeout allows.
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "editor_script.h"
#include "platform/werk.h"

namespace {

// The program directory: tmpfs where there is one, with the wavelet tables the build made.
const std::string& programDirectory() {
    static const std::string path = [] {
        char name[] = "/dev/shm/zwierlijn_fuzz_XXXXXX";
        if (access("/dev/shm", W_OK) != 0) {
            std::strcpy(name, "/tmp/zwierlijn_fuzz_XXXXXX");
        }
        if (mkdtemp(name) == nullptr) {
            std::abort();
        }
        const std::string dir(name);
        if (symlink(ZW_WAVELET_DIR, (dir + "/Wavelet").c_str()) != 0) {
            std::abort();
        }
        return dir;
    }();
    return path;
}

}  // namespace

// A fiftieth of the editor's budget per action: the sanitizers slow the work some twenty
// times, and an input takes some ten actions.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    zw::zetWerkGrens(zw::kWerkGrens / 50);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string file = programDirectory() + "/invoer.zwl";
    std::FILE* f = std::fopen(file.c_str(), "wb");
    if (f == nullptr || std::fwrite(data, 1, size, f) != size || std::fclose(f) != 0) {
        std::abort();
    }
    zw::ScriptedDialogs dialogs;
    zw::HeadlessEditor editor(programDirectory(), dialogs, zw::kScriptBreedte, zw::kScriptHoogte);
    zw::EventGuard guard(dialogs);
    if (!guard.run([&] { editor.start(); })) {
        std::abort();  // the start itself must work on a fresh program directory
    }
    zw::speelAf(editor, dialogs, file);
    return 0;
}
