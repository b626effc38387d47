#include "platform/colour.h"

#include "platform/runtime_error.h"

namespace zw {

Colour qbColour(int number) {
    static constexpr Colour kPalette[16] = {
        rgb(0, 0, 0),       rgb(0, 0, 128),   rgb(0, 128, 0),   rgb(0, 128, 128),
        rgb(128, 0, 0),     rgb(128, 0, 128), rgb(128, 128, 0), rgb(192, 192, 192),
        rgb(128, 128, 128), rgb(0, 0, 255),   rgb(0, 255, 0),   rgb(0, 255, 255),
        rgb(255, 0, 0),     rgb(255, 0, 255), rgb(255, 255, 0), rgb(255, 255, 255),
    };
    if (number < 0 || number > 15) {
        raise(kErrInvalidCall);
    }
    return kPalette[number];
}

}  // namespace zw
