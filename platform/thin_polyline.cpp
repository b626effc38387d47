#include "platform/thin_polyline.h"

namespace zw {

namespace {

// Appends to `out` the points of pts[first + 1 .. last - 1] that the segment pts[first] ..
// pts[last] does not pass within the tolerance of, thinned the same way, in order. Distances are
// compared squared and multiplied by the segment's squared length, so no division or root is
// needed; a point beyond either end is measured to that end.
void thin(const PixelPoint* pts, std::size_t first, std::size_t last, double tolerance2,
          std::vector<PixelPoint>& out) {
    if (last <= first + 1) {
        return;
    }
    const PixelPoint a = pts[first];
    const double vx = pts[last].x - a.x, vy = pts[last].y - a.y;
    const double length2 = vx * vx + vy * vy;
    const double scale = length2 > 0.0 ? length2 : 1.0;
    double farthest = tolerance2 * scale;
    std::size_t at = 0;
    for (std::size_t i = first + 1; i < last; ++i) {
        const double wx = pts[i].x - a.x, wy = pts[i].y - a.y;
        const double along = wx * vx + wy * vy;
        double distance = 0.0;
        if (along <= 0.0) {
            distance = (wx * wx + wy * wy) * scale;
        } else if (along >= length2) {
            const double ex = pts[i].x - pts[last].x, ey = pts[i].y - pts[last].y;
            distance = (ex * ex + ey * ey) * scale;
        } else {
            const double across = vx * wy - vy * wx;
            distance = across * across;
        }
        if (distance > farthest) {
            farthest = distance;
            at = i;
        }
    }
    if (at != 0) {
        thin(pts, first, at, tolerance2, out);
        out.push_back(pts[at]);
        thin(pts, at, last, tolerance2, out);
    }
}

}  // namespace

// The run always starts at the last kept vertex.
void ThinPolyline::start(PixelPoint p, double tolerance, std::size_t chunk) {
    kept_.assign(1, p);
    run_.assign(1, p);
    tolerance_ = tolerance;
    chunk_ = chunk;
    banded_ = false;
}

// A point within the band replaces the last one; the others, dropped so, lie within a quarter
// of the tolerance of the line through the band's start and within half of it of the segment
// from there to the point that stays, which the thinning at half the tolerance keeps within the
// rest of it.
std::size_t ThinPolyline::add(PixelPoint p) {
    if (banded_) {
        const double vx = p.x - fromX_, vy = p.y - fromY_;
        const double across = dirX_ * vy - dirY_ * vx, along = dirX_ * vx + dirY_ * vy;
        if (across * across <= band2_ && along >= lastAlong_) {
            run_.back() = p;
            lastAlong_ = along;
            return 0;
        }
    }
    const PixelPoint& last = run_.back();
    fromX_ = last.x;
    fromY_ = last.y;
    dirX_ = p.x - fromX_;
    dirY_ = p.y - fromY_;
    lastAlong_ = dirX_ * dirX_ + dirY_ * dirY_;
    band2_ = tolerance_ * tolerance_ / 16 * lastAlong_;
    banded_ = lastAlong_ > 0.0;
    run_.push_back(p);
    return run_.size() > chunk_ ? thinRun() : 0;
}

// The run is thinned and kept, its last point with it; that point starts the next run.
std::size_t ThinPolyline::thinRun() {
    const std::size_t before = kept_.size();
    thin(run_.data(), 0, run_.size() - 1, tolerance_ * tolerance_ / 4, kept_);
    kept_.push_back(run_.back());
    run_.assign(1, run_.back());
    banded_ = false;
    return kept_.size() - before;
}

void ThinPolyline::release() {
    constexpr std::size_t kSmall = 64;
    if (kept_.capacity() > kSmall) {
        std::vector<PixelPoint>(1, kept_.back()).swap(kept_);
    }
}

void ThinPolyline::appendTo(std::vector<PixelPoint>& out) const {
    out.insert(out.end(), kept_.begin(), kept_.end());
    if (run_.size() > 1) {
        thin(run_.data(), 0, run_.size() - 1, tolerance_ * tolerance_ / 4, out);
        out.push_back(run_.back());
    }
}

}  // namespace zw
