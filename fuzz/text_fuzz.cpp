// Val and the number-to-text conversions on arbitrary input: never crash, and the text of a
// Single reads back as that Single to its seven significant digits.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/runtime_error.h"
#include "platform/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    try {
        (void)zw::val(text);
    } catch (const zw::RuntimeError&) {
        // Overflow is a legitimate answer to "1E999" or "&H123456789".
    }
    if (size >= sizeof(float)) {
        float f;
        std::memcpy(&f, data, sizeof f);
        if (std::isfinite(f)) {
            const std::string shown = zw::singleToText(f);
            const double back = zw::val(shown);
            if (std::fabs(back - f) > 5.001e-7 * std::fabs(f)) {
                std::abort();
            }
            (void)zw::singleToStr(f);
        }
    }
    if (size >= sizeof(double)) {
        double d;
        std::memcpy(&d, data, sizeof d);
        if (std::isfinite(d)) {
            const std::string shown = zw::doubleToText(d);
            try {
                const double back = zw::val(shown);
                if (std::fabs(back - d) > 5.5e-15 * std::fabs(d)) {
                    std::abort();
                }
            } catch (const zw::RuntimeError&) {
                // 1.79769313486232E+308 rounds past the largest Double: Val overflows.
            }
        }
    }
    return 0;
}
