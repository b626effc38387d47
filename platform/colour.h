// Colours as the classic run time keeps them: a Long with red in the low byte (&H00BBGGRR).
#pragma once

#include <cstdint>

namespace zw {

using Colour = std::int32_t;

constexpr Colour rgb(int red, int green, int blue) {
    return static_cast<Colour>((red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16));
}

constexpr int redOf(Colour c) {
    return c & 0xFF;
}
constexpr int greenOf(Colour c) {
    return (c >> 8) & 0xFF;
}
constexpr int blueOf(Colour c) {
    return (c >> 16) & 0xFF;
}

constexpr Colour kBlack = rgb(0, 0, 0);
constexpr Colour kWhite = rgb(255, 255, 255);

// The classic 16-colour palette (QBColor): 0 black ... 15 bright white. Numbers outside 0..15
// raise error 5.
Colour qbColour(int number);

}  // namespace zw
