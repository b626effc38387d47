// What a surface's primitives become once they are in logical pixels: a background, polylines,
// circles and short texts, handed to a sink that paints or keeps them. The raster a widget shows
// is one sink; a figure for a document is another (platform/figure_sink.h). Plain C++, so that a
// sink for another platform can be added without touching the model.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/colour.h"

namespace zw {

struct PixelPoint {
    double x = 0.0;
    double y = 0.0;
};

// A circle's pen and fill. A disc drawn `times` times over itself keeps what is opaque, while
// its antialiased rim builds up: a pixel's coverage a becomes 1 - (1 - a)^times.
struct DiscStyle {
    Colour pen = kBlack;
    int width = 1;
    bool filled = false;
    Colour fill = kBlack;
    std::uint32_t times = 1;
};

// Where a text's point lies along it; across, the point is at the text's middle.
enum class TextAnchor { kLeft, kCentre, kRight };

// A text's colour, anchor and size in points: the size stays when the scale zooms, so that
// labels stay readable.
struct TextStyle {
    Colour colour = kBlack;
    double points = 9.0;
    TextAnchor anchor = TextAnchor::kLeft;
};

class Sink {
  public:
    virtual ~Sink() = default;
    // Everything before is gone under the background.
    virtual void clear(Colour background) = 0;
    // Everything before is gone, leaving nothing: what lies under the picture shows through.
    virtual void clearTransparent() = 0;
    // Lines joining `count` points (at least one; one point is a line of no length), with square
    // caps, in a width of whole pixels.
    virtual void polyline(const PixelPoint* points, std::size_t count, Colour colour,
                          int width) = 0;
    virtual void circle(PixelPoint centre, double radius, const DiscStyle& style) = 0;
    virtual void text(PixelPoint at, const std::string& utf8, const TextStyle& style) = 0;
};

// The raster a surface shows, of the surface's size in logical pixels at a device pixel ratio.
class RasterSink : public Sink {
  public:
    // An image too large to make raises error 7; a width or height of 0 makes none.
    virtual void resize(int width, int height, double ratio) = 0;
};

// The platform's raster.
std::unique_ptr<RasterSink> makeRasterSink();

}  // namespace zw
