// Lines that continue each other, collected in pixels before they are painted.
//
// A curve is drawn as thousands of lines a fraction of a pixel long, and the blending pane as one
// such run per control point, all advancing together. Stroked one by one, each short line costs
// the rasteriser as much as a long one. Collected, a run of lines in one colour and width is one
// polyline, and of its points only those are kept that the picture needs: where the polyline
// would otherwise pass farther than a fraction of a pixel from a point it was given.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/sink.h"

namespace zw {

// A polyline in pixels that keeps only the vertices it needs. Points that go on along a straight
// line (within a quarter of the tolerance of the line from a point of the run through the next
// one, and no nearer to it than the point before) replace each other as they come. What is left
// comes in runs of up to `chunk`, each thinned as a whole by Ramer, Douglas and Peucker to half
// the tolerance: between the last kept vertex and the run's last point, the point farthest from
// the segment joining them is kept when it lies farther than that, and both halves are thinned
// the same way. Every point given lies within the tolerance of the polyline that is painted. A
// run costs a few passes over its points, with multiplications only; the chunk bounds the worst
// case of a zigzag.
class ThinPolyline {
  public:
    void start(PixelPoint p, double tolerance, std::size_t chunk);
    // Returns how many vertices were kept.
    std::size_t add(PixelPoint p);
    // The kept vertices and the thinned run after them: what is to be painted.
    void appendTo(std::vector<PixelPoint>& out) const;
    PixelPoint newest() const { return run_.back(); }
    // Gives back buffers that grew large, so that an idle polyline holds little.
    void release();

  private:
    std::size_t thinRun();

    std::vector<PixelPoint> kept_;
    std::vector<PixelPoint> run_;  // from the last kept vertex on
    double tolerance_ = 0.0;
    std::size_t chunk_ = 1;
    // The straight line the run's last point may be replaced along: from (fromX_, fromY_) in the
    // direction (dirX_, dirY_), within band2_ of cross products; lastAlong_ the last point's dot
    // product with that direction.
    bool banded_ = false;
    double fromX_ = 0.0, fromY_ = 0.0;  // run_[size - 2], kept at hand
    double dirX_ = 0.0, dirY_ = 0.0, band2_ = 0.0, lastAlong_ = 0.0;
};

}  // namespace zw
