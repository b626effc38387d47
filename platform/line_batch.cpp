#include "platform/line_batch.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/runtime_error.h"

namespace zw {

namespace {

// At most this many kept points wait to be painted; a longer run is painted in parts. With a
// point 16 bytes, the waiting lines of a surface stay within a few hundred kilobytes.
constexpr std::size_t kMaxVertices = 16384;
// A fan of more lines than this is drawn line by line, so that its bookkeeping stays small.
constexpr std::size_t kMaxFanLines = 1024;
// The points thinned at a time: of a run of lines, and of each line of a fan. The last point of
// each part becomes a vertex, whose square caps show as a slightly darker spot; the parts are as
// long as the worst case of the thinning (a zigzag, quadratic in the part) allows.
constexpr std::size_t kStrokeRun = 1024;
constexpr std::size_t kFanRun = 256;

bool isFinite(const PixelPoint& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

std::uint32_t bitsOf(float x) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
}

}  // namespace

void LineBatch::setSink(Sink* sink, double tolerance) {
    flush();
    sink_ = sink;
    tolerance_ = tolerance;
}

void LineBatch::logLine(const Pen& pen, double x1, double y1, double x2, double y2,
                        Colour colour) {
    log_.add(DrawKind::kLine, x1, y1, x2, y2, 0.0, colour, pen);
}

bool LineBatch::line(const ScaleMapper& map, const Pen& pen, double x1, double y1, double x2,
                     double y2, Colour colour) {
    const int width = pen.width;
    if (kind_ == Kind::kStroke && colour == colour_ && width == width_ && x1 == endX_ &&
        y1 == endY_ && continueStroke(pen, x1, y1, x2, y2, colour)) {
        return false;
    }
    const PixelPoint to{map.toPixelX(x2), map.toPixelY(y2)};
    const PixelPoint from{map.toPixelX(x1), map.toPixelY(y1)};
    meter_.line(std::hypot(to.x - from.x, to.y - from.y), width);
    logLine(pen, x1, y1, x2, y2, colour);
    flush();
    if (!isFinite(from) || !isFinite(to) || sink_ == nullptr) {
        return false;
    }
    kind_ = Kind::kStroke;
    map_ = map;
    colour_ = colour;
    width_ = width;
    endX_ = x2;
    endY_ = y2;
    kept_ = 0;
    stroke_.start(from, tolerance_, kStrokeRun);
    stroke_.add(to);
    return true;
}

// A line that goes on from the open run's end in its pen: one more point of the run. False, and
// nothing done, when its end is no finite pixel.
bool LineBatch::continueStroke(const Pen& pen, double x1, double y1, double x2, double y2,
                               Colour colour) {
    const PixelPoint to{map_.toPixelX(x2), map_.toPixelY(y2)};
    if (!isFinite(to)) {
        return false;
    }
    const PixelPoint newest = stroke_.newest();
    const double dx = to.x - newest.x, dy = to.y - newest.y;
    meter_.continued(dx * dx + dy * dy, pen.width);
    logLine(pen, x1, y1, x2, y2, colour);
    endX_ = x2;
    endY_ = y2;
    kept_ += stroke_.add(to);
    if (kept_ >= kMaxVertices) {
        // Painted in parts; the run goes on from its newest point.
        const PixelPoint last = stroke_.newest();
        flush();
        stroke_.start(last, tolerance_, kStrokeRun);
        kind_ = Kind::kStroke;
    }
    return true;
}

bool LineBatch::lineFan(const ScaleMapper& map, const Pen& pen, double x1, const float* y1,
                        double x2, const float* y2, std::size_t count, const Colour* colours,
                        std::size_t colourCount, std::size_t movedFrom, std::size_t movedTo) {
    const int width = pen.width;
    if (colourCount == 0) {
        raise(kErrInvalidCall);
    }
    movedTo = std::min(movedTo, count);
    movedFrom = std::min(movedFrom, movedTo);
    if (continuesFan(width, x1, count, colours, colourCount)) {
        if (log_.on()) {
            checkFanPromise(y1, y2, count, movedFrom, movedTo);
        }
        const double px2 = map_.toPixelX(x2);
        if (std::isfinite(px2) && mapFan(map_, width, y1, y2, movedFrom, movedTo, true)) {
            chargeFan(pen, x1, y1, x2, y2, count, colours, colourCount, px2 - fanPx_);
            extendFan(x2, fanPx_, px2);
            return false;
        }
    }
    // A new fan, or one whose moving line does not start where the open fan left it.
    const double px1 = map.toPixelX(x1), px2 = map.toPixelX(x2);
    if (count == 0 || count > kMaxFanLines || sink_ == nullptr || !std::isfinite(px1) ||
        !std::isfinite(px2) || !mapFan(map, width, y1, y2, 0, count, false)) {
        bool opened = false;
        for (std::size_t i = 0; i < count; ++i) {
            opened = line(map, pen, x1, y1[i], x2, y2[i], colours[i % colourCount]) || opened;
        }
        return opened;
    }
    chargeFan(pen, x1, y1, x2, y2, count, colours, colourCount, px2 - px1);
    flush();
    map_ = map;
    startFan(width, x2, px1, px2, count, colours, colourCount);
    return true;
}

// Every line pays for its pixels across; a line that moves, for its pixels up or down too.
// Then the lines are logged, if the log is on.
void LineBatch::chargeFan(const Pen& pen, double x1, const float* y1, double x2, const float* y2,
                          std::size_t count, const Colour* colours, std::size_t colourCount,
                          double across) {
    meter_.fan(count, across, pen.width, movedCost_);
    for (std::size_t i = 0; i < count && log_.on(); ++i) {
        logLine(pen, x1, y1[i], x2, y2[i], colours[i % colourCount]);
    }
}

// Whether the fan may go on from where the open one ended: the same pen, colours, number of
// lines and x. Its values are compared as the fan is mapped.
bool LineBatch::continuesFan(int width, double x1, std::size_t count, const Colour* colours,
                             std::size_t colourCount) const {
    return kind_ == Kind::kFan && width == width_ && count == lines_.size() && x1 == fanX_ &&
           colourCount == palette_.size() &&
           std::memcmp(colours, palette_.data(), colourCount * sizeof(Colour)) == 0;
}

// The lines outside the moving ones must start at their value of the open fan and stay level.
void LineBatch::checkFanPromise(const float* y1, const float* y2, std::size_t count,
                                std::size_t movedFrom, std::size_t movedTo) const {
    for (std::size_t i = 0; i < count; ++i) {
        if ((i < movedFrom || i >= movedTo) &&
            (bitsOf(y1[i]) != ends_[i] || bitsOf(y2[i]) != ends_[i])) {
            raise(kErrInternal);
        }
    }
}

// The lines from..to - 1 that move, with their ends in pixels: of a fan that continues, those
// whose value changes, after checking that each starts at its value of the open fan, bit for
// bit; of a new fan, all. False when one does not start there or an end is no finite pixel.
bool LineBatch::mapFan(const ScaleMapper& map, int width, const float* y1, const float* y2,
                       std::size_t from, std::size_t to, bool continues) {
    // Room for every line first, then filled in place: a change built aside and copied in
    // would be read back wider than it was written, which stalls the store.
    if (changes_.size() < to - from) {
        changes_.resize(to - from);
    }
    movedCost_ = 0;
    changeCount_ = 0;
    std::size_t n = 0;
    bool finite = true;
    for (std::size_t i = from; i < to; ++i) {
        const std::uint32_t vorig = bitsOf(y1[i]), nieuw = bitsOf(y2[i]);
        if (continues && vorig != ends_[i]) {
            return false;
        }
        if (!continues || vorig != nieuw) {
            Change& c = changes_[n++];
            c.i = i;
            c.py1 = map.toPixelY(y1[i]);
            c.py2 = map.toPixelY(y2[i]);
            c.bits2 = nieuw;
            finite = finite && std::isfinite(c.py1) && std::isfinite(c.py2);
            movedCost_ += meter_.moving(c.py2 - c.py1, width);
        }
    }
    changeCount_ = n;
    return finite;
}

void LineBatch::startFan(int width, double x2, double px1, double px2, std::size_t count,
                         const Colour* colours, std::size_t colourCount) {
    kind_ = Kind::kFan;
    width_ = width;
    palette_.assign(colours, colours + colourCount);
    fanX_ = x2;
    fanPx_ = px2;
    ends_.resize(count);
    lines_.resize(count);
    kept_ = 0;
    for (std::size_t n = 0; n < changeCount_; ++n) {
        const Change& c = changes_[n];
        FanLine& f = lines_[c.i];
        f.line.start({px1, c.py1}, tolerance_, kFanRun);
        f.line.add({px2, c.py2});
        f.fedX = px2;
        ends_[c.i] = c.bits2;
    }
}

// A line that moves first gets the end of its level run, if it had one, then its new point.
void LineBatch::extendFan(double x2, double px1, double px2) {
    for (std::size_t n = 0; n < changeCount_; ++n) {
        const Change& c = changes_[n];
        FanLine& f = lines_[c.i];
        if (f.fedX != px1) {
            kept_ += f.line.add({px1, c.py1});
        }
        kept_ += f.line.add({px2, c.py2});
        f.fedX = px2;
        ends_[c.i] = c.bits2;
    }
    fanX_ = x2;
    fanPx_ = px2;
    if (kept_ >= kMaxVertices) {
        // Painted in parts; every line goes on from the fan's x.
        flush();
        kind_ = Kind::kFan;
        for (FanLine& f : lines_) {
            f.line.start({px2, f.line.newest().y}, tolerance_, kFanRun);
            f.fedX = px2;
        }
    }
}

void LineBatch::flush() {
    const Kind kind = kind_;
    kind_ = Kind::kNone;
    if (kind == Kind::kNone || sink_ == nullptr) {
        return;
    }
    if (kind == Kind::kStroke) {
        points_.clear();
        stroke_.appendTo(points_);
        paint(colour_);
        stroke_.release();
        kept_ = 0;
        return;
    }
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        FanLine& f = lines_[i];
        points_.clear();
        f.line.appendTo(points_);
        if (f.fedX != fanPx_) {
            points_.push_back({fanPx_, f.line.newest().y});
        }
        paint(palette_[i % palette_.size()]);
        f.line.release();
    }
    kept_ = 0;
}

void LineBatch::paint(Colour colour) {
    if (!points_.empty()) {
        sink_->polyline(points_.data(), points_.size(), colour, width_);
    }
}

}  // namespace zw
