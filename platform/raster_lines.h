// The hand-written antialiased rasteriser of lines: straight into the pixels of an image, at
// several times the speed of the general rasteriser (bench/renderer_bench.cpp measures both).
#pragma once

#include <QImage>
#include <cstddef>

#include "platform/sink.h"

namespace zw {

// A line from a to b (logical pixels) of the given width with square caps, antialiased, straight
// into the pixels of `image` (premultiplied ARGB, any whole or fractional pixel ratio), clipped to
// it.
void paintLine(QImage& image, PixelPoint a, PixelPoint b, QRgb colour, double width);

// A polyline as the surface's lines always looked: segment by segment with square caps in the
// pen's width. One point is a line of no length: the width's square.
void paintPolyline(QImage& image, const PixelPoint* points, std::size_t count, QRgb colour,
                   int width);

}  // namespace zw
