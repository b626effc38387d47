// What drawing charges to the running action (platform/werk.h), all in one place. Rasterising
// costs by the pixels a primitive covers, a line's by its length times its width, and nothing
// beyond the image's diagonal is drawn.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "platform/werk.h"

namespace zw {

// The work of a line that continues the one before, and of each line of a fan whose value stays
// the same: the rasteriser meets them only as part of a longer stroke.
constexpr std::uint64_t kWerkVervolg = 100;
constexpr std::uint64_t kWerkWaaier = 2;
// A text: its layout, and each character's glyph.
constexpr std::uint64_t kWerkTekst = 5000;
constexpr std::uint64_t kWerkPerTeken = 2000;

class WorkMeter {
  public:
    // The image's diagonal in logical pixels: no primitive covers more.
    void setDiagonal(double pixels) { diagonal_ = pixels; }

    void clear(int pixelWidth, int pixelHeight) const {
        werk(static_cast<std::uint64_t>(pixelWidth) * static_cast<std::uint64_t>(pixelHeight));
    }
    // A line of its own, `length` pixels long.
    void line(double length, int width) const {
        werk(kWerkLijn + perPixel(width) * covers(length));
    }
    // A line that goes on from the one before: most such steps are far below a pixel, which
    // covers none. The length comes squared.
    void continued(double length2, int width) const {
        werk(kWerkVervolg + (length2 < 1.0 ? 0 : perPixel(width) * covers(std::sqrt(length2))));
    }
    // A fan's `count` lines, each `across` pixels wide, and the cost of those that move.
    void fan(std::size_t count, double across, int width, std::uint64_t moved) const {
        werk(count * (kWerkWaaier + perPixel(width) * covers(across)) + moved);
    }
    // What a fan's line that moves `dy` pixels up or down adds.
    std::uint64_t moving(double dy, int width) const {
        return kWerkVervolg + (dy > -1.0 && dy < 1.0 ? 0 : perPixel(width) * covers(dy));
    }
    void circle(double radius) const { werk(kWerkCirkel + kWerkPerPixelStraal * covers(radius)); }
    void text(std::size_t characters) const { werk(kWerkTekst + kWerkPerTeken * characters); }

  private:
    std::uint64_t covers(double pixels) const {
        const double covered = pixels < 0.0 ? -pixels : pixels;
        if (covered < diagonal_) {
            return static_cast<std::uint64_t>(covered);
        }
        return covered == covered ? static_cast<std::uint64_t>(diagonal_) : 0;  // NaN covers none
    }
    // A wide line covers its width in pixels at each pixel of its length.
    static std::uint64_t perPixel(int width) {
        return kWerkPerPixel * static_cast<std::uint64_t>(width);
    }

    double diagonal_ = 0.0;
};

}  // namespace zw
