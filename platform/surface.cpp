#include "platform/surface.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstring>

#include <QPainter>
#include <QPen>

#include "platform/numeric.h"
#include "platform/runtime_error.h"
#include "platform/strokes.h"
#include "platform/vector_target.h"
#include "platform/werk.h"

namespace zw {

namespace {

constexpr int kMaxPixelExtent = 32767;
constexpr int kMaxDrawWidth = 32767;
constexpr int kMaxFillStyle = 7;
// Images beyond this many device pixels (256 MB) are refused as out of memory rather than
// attempted.
constexpr double kMaxImagePixels = 64.0 * 1024.0 * 1024.0;

bool isFinite(const QPointF& p) {
    return std::isfinite(p.x()) && std::isfinite(p.y());
}

// Scale coordinates reach the handlers as Singles; a far-off point saturates rather than
// overflowing the conversion.
float toHandlerSingle(double value) {
    if (std::isnan(value)) {
        return 0.0f;
    }
    return static_cast<float>(std::clamp(value, -double{FLT_MAX}, double{FLT_MAX}));
}

void requireFinite(double value) {
    if (!std::isfinite(value)) {
        raise(kErrInvalidProperty);
    }
}

void requireExtent(double value) {
    if (!std::isfinite(value) || value == 0.0) {
        raise(kErrInvalidProperty);
    }
}

int deviceExtent(int logical, qreal ratio) {
    return toLong(std::ceil(logical * ratio));
}

// Collected lines keep their points to within this fraction of a device pixel: antialiasing
// shows a shift of an eighth of a pixel as a change of an eighth in the coverage of an edge
// pixel, which the eye does not see.
constexpr double kTolerance = 0.125;
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
// The work of a line that continues the one before, and of each line of a fan whose value stays
// the same: the rasteriser meets them only as part of a longer stroke.
constexpr std::uint64_t kWerkVervolg = 100;
constexpr std::uint64_t kWerkWaaier = 2;
// A disc the painter draws itself is drawn over itself at most this often: a rim pixel of
// coverage a quarter is then within a hundredth of full.
constexpr std::uint32_t kMaxOvertekenen = 16;

QRgb opaque(Colour c) {
    return qRgb(redOf(c), greenOf(c), blueOf(c));
}

std::uint32_t bitsOf(float x) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
}

}  // namespace

// The lines collected and not yet painted: one run of line() calls, or one fan.
struct Surface::Batch {
    enum class Kind { kNone, kStroke, kFan };
    struct FanLine {
        ThinPolyline line;
        double fedX = 0.0;  // pixel x of the last point given to the polyline
    };
    // A line of the fan whose value moved, with its ends in pixels.
    struct Change {
        std::size_t i;
        double py1;
        double py2;
        std::uint32_t bits2;
    };

    Kind kind = Kind::kNone;
    int width = 1;
    // The scale of the open run or fan: a new scale paints what is open first.
    ScaleMapper map;
    // The run of lines: its colour, where its last line ended (scale units), its points.
    Colour colour = 0;
    double endX = 0.0;
    double endY = 0.0;
    ThinPolyline stroke;
    // The fan: its colours, its x (scale units and pixels), each line's value as bits and its
    // polyline. A line whose value stays the same is given no points: it runs level from its
    // last point to the fan's x.
    std::vector<Colour> palette;
    double fanX = 0.0;
    double fanPx = 0.0;
    std::vector<std::uint32_t> ends;
    std::vector<FanLine> lines;
    std::size_t kept = 0;

    // The changes of the last fan: the first changeCount entries. The storage only grows.
    std::vector<Change> changes;
    std::size_t changeCount = 0;
    std::uint64_t movedCost = 0;  // the work of the changes' strokes
    std::vector<QPointF> points;
    DiscSprites discs;
};

Surface::Surface() : batch_(std::make_unique<Batch>()) {
    followSize();
}

Surface::~Surface() = default;

// --- Size ------------------------------------------------------------------------------------

void Surface::setPixelSize(int width, int height) {
    if (resizeImage(width, height, devicePixelRatio_)) {
        width_ = containerWidthOf(width);
        height_ = containerHeightOf(height);
    }
}

void Surface::setDevicePixelRatio(qreal ratio) {
    // Screens report ratios between about 1 and 4; anything absurd falls back to plain pixels.
    const qreal sane = std::isfinite(ratio) && ratio >= 0.1 && ratio <= 16.0 ? ratio : 1.0;
    resizeImage(pixelWidth_, pixelHeight_, sane);
}

bool Surface::resizeImage(int width, int height, qreal ratio) {
    if (width < 0 || height < 0 || width > kMaxPixelExtent || height > kMaxPixelExtent) {
        raise(kErrInvalidProperty);
    }
    if (width == pixelWidth_ && height == pixelHeight_ && ratio == devicePixelRatio_) {
        return false;
    }
    const int deviceWidth = deviceExtent(width, ratio);
    const int deviceHeight = deviceExtent(height, ratio);
    if (static_cast<double>(deviceWidth) * deviceHeight > kMaxImagePixels) {
        raise(kErrOutOfMemory);
    }
    discard();
    finishPainting();
    QImage image;
    if (deviceWidth > 0 && deviceHeight > 0) {
        image = QImage(deviceWidth, deviceHeight, QImage::Format_ARGB32_Premultiplied);
        if (image.isNull()) {
            raise(kErrOutOfMemory);
        }
        image.setDevicePixelRatio(ratio);
    }
    image_ = std::move(image);
    pixelWidth_ = width;
    pixelHeight_ = height;
    diagonal_ = std::hypot(width, height);
    devicePixelRatio_ = ratio;
    if (!userScale_) {
        followSize();
    }
    map_ = makeMapper();
    cls();
    return true;
}

double Surface::containerWidthOf(int pixels) const {
    if (container_ == nullptr) {
        return pixels * kTwipsPerPixel;
    }
    const ScaleMapper outer = container_->mapper();
    return std::fabs(outer.toScaleX(pixels) - outer.toScaleX(0));
}

double Surface::containerHeightOf(int pixels) const {
    if (container_ == nullptr) {
        return pixels * kTwipsPerPixel;
    }
    const ScaleMapper outer = container_->mapper();
    return std::fabs(outer.toScaleY(pixels) - outer.toScaleY(0));
}

// --- Coordinate system -----------------------------------------------------------------------

void Surface::scale(double x1, double y1, double x2, double y2) {
    requireFinite(x1);
    requireFinite(y1);
    requireExtent(x2 - x1);
    requireExtent(y2 - y1);
    setUserScale(x1, y1, x2 - x1, y2 - y1);
}

void Surface::scaleDefault() {
    userScale_ = false;
    followSize();
}

void Surface::setScaleLeft(double value) {
    requireFinite(value);
    setUserScale(value, scaleTop_, scaleWidth_, scaleHeight_);
}

void Surface::setScaleTop(double value) {
    requireFinite(value);
    setUserScale(scaleLeft_, value, scaleWidth_, scaleHeight_);
}

void Surface::setScaleWidth(double value) {
    requireExtent(value);
    setUserScale(scaleLeft_, scaleTop_, value, scaleHeight_);
}

void Surface::setScaleHeight(double value) {
    requireExtent(value);
    setUserScale(scaleLeft_, scaleTop_, scaleWidth_, value);
}

// Lines collected so far were placed by the old scale.
void Surface::setUserScale(double left, double top, double width, double height) {
    flush();
    userScale_ = true;
    scaleLeft_ = left;
    scaleTop_ = top;
    scaleWidth_ = width;
    scaleHeight_ = height;
    map_ = makeMapper();
}

void Surface::followSize() {
    flush();
    scaleLeft_ = 0.0;
    scaleTop_ = 0.0;
    scaleWidth_ = pixelWidth_ * kTwipsPerPixel;
    scaleHeight_ = pixelHeight_ * kTwipsPerPixel;
    map_ = makeMapper();
}

ScaleMapper Surface::makeMapper() const {
    return ScaleMapper(scaleLeft_, scaleTop_, scaleWidth_, scaleHeight_, pixelWidth_, pixelHeight_);
}

// --- Drawing ---------------------------------------------------------------------------------

void Surface::cls() {
    discard();
    finishPainting();
    werk(static_cast<std::uint64_t>(pixelWidth_) * static_cast<std::uint64_t>(pixelHeight_));
    if (target_ != nullptr && !image_.isNull()) {
        target_->clear(toQColor(backColour_));
    } else if (!image_.isNull()) {
        image_.fill(toQColor(backColour_));
    }
    log_.clear();
    notifyImageChanged();
}

void Surface::setBackColour(Colour colour) {
    backColour_ = colour;
    cls();
}

void Surface::setDrawWidth(int pixels) {
    if (pixels < 1 || pixels > kMaxDrawWidth) {
        raise(kErrInvalidProperty);
    }
    drawWidth_ = pixels;
}

void Surface::setFillStyle(int style) {
    if (style < 0 || style > kMaxFillStyle) {
        raise(kErrInvalidProperty);
    }
    fillStyle_ = style;
}

// Each record carries the pen and fill in force at the time, so later changes of state cannot
// rewrite what the log says was drawn.
void Surface::logPrimitive(DrawKind kind, double x1, double y1, double x2, double y2, double radius,
                           Colour colour, std::uint32_t times) {
    if (logging_) {
        log_.push_back(
            {kind, x1, y1, x2, y2, radius, colour, drawWidth_, fillStyle_, fillColour_, times});
    }
}

// Lines still open belong to what was drawn before: they are painted where that went.
void Surface::setVectorTarget(VectorTarget* target) {
    flush();
    target_ = target;
}

void Surface::setLogging(bool on) {
    logging_ = on;
    if (!on) {
        std::vector<DrawRecord>().swap(log_);
    }
}

void Surface::line(double x1, double y1, double x2, double y2, Colour colour) {
    Batch& b = *batch_;
    if (b.kind == Batch::Kind::kStroke && colour == b.colour && drawWidth_ == b.width &&
        x1 == b.endX && y1 == b.endY && continueStroke(x1, y1, x2, y2, colour)) {
        return;
    }
    const ScaleMapper& map = mapper();
    const QPointF to(map.toPixelX(x2), map.toPixelY(y2));
    const QPointF from(map.toPixelX(x1), map.toPixelY(y1));
    werk(kWerkLijn + perPixel() * bedekt(std::hypot(to.x() - from.x(), to.y() - from.y())));
    logPrimitive(DrawKind::kLine, x1, y1, x2, y2, 0.0, colour);
    flush();
    if (!isFinite(from) || !isFinite(to) || image_.isNull()) {
        return;
    }
    b.kind = Batch::Kind::kStroke;
    b.map = map;
    b.colour = colour;
    b.width = drawWidth_;
    b.endX = x2;
    b.endY = y2;
    b.kept = 0;
    b.stroke.start(from, kTolerance / devicePixelRatio_, kStrokeRun);
    b.stroke.add(to);
    notifyImageChanged();
}

// A line that goes on from the open run's end in its pen: one more point of the run. False, and
// nothing done, when its end is no finite pixel.
bool Surface::continueStroke(double x1, double y1, double x2, double y2, Colour colour) {
    Batch& b = *batch_;
    const QPointF to(b.map.toPixelX(x2), b.map.toPixelY(y2));
    if (!isFinite(to)) {
        return false;
    }
    const QPointF step = to - b.stroke.newest();
    const double length2 = QPointF::dotProduct(step, step);
    // Most steps are far below a pixel, which covers none.
    werk(kWerkVervolg + (length2 < 1.0 ? 0 : perPixel() * bedekt(std::sqrt(length2))));
    logPrimitive(DrawKind::kLine, x1, y1, x2, y2, 0.0, colour);
    b.endX = x2;
    b.endY = y2;
    b.kept += b.stroke.add(to);
    if (b.kept >= kMaxVertices) {
        // Painted in parts; the run goes on from its newest point.
        const QPointF newest = b.stroke.newest();
        flush();
        b.stroke.start(newest, kTolerance / devicePixelRatio_, kStrokeRun);
        b.kind = Batch::Kind::kStroke;
    }
    return true;
}

void Surface::lineFan(double x1, const float* y1, double x2, const float* y2, std::size_t count,
                      const Colour* colours, std::size_t colourCount, std::size_t movedFrom,
                      std::size_t movedTo) {
    if (colourCount == 0) {
        raise(kErrInvalidCall);
    }
    movedTo = std::min(movedTo, count);
    movedFrom = std::min(movedFrom, movedTo);
    if (continuesFan(x1, count, colours, colourCount)) {
        if (logging_) {
            checkFanPromise(y1, y2, count, movedFrom, movedTo);
        }
        const double px2 = batch_->map.toPixelX(x2);
        if (std::isfinite(px2) && mapFan(batch_->map, y1, y2, movedFrom, movedTo, true)) {
            chargeFan(x1, y1, x2, y2, count, colours, colourCount, px2 - batch_->fanPx);
            extendFan(x2, batch_->fanPx, px2);
            return;
        }
    }
    // A new fan, or one whose moving line does not start where the open fan left it.
    const ScaleMapper& map = mapper();
    const double px1 = map.toPixelX(x1), px2 = map.toPixelX(x2);
    if (count == 0 || count > kMaxFanLines || image_.isNull() || !std::isfinite(px1) ||
        !std::isfinite(px2) || !mapFan(map, y1, y2, 0, count, false)) {
        for (std::size_t i = 0; i < count; ++i) {
            line(x1, y1[i], x2, y2[i], colours[i % colourCount]);
        }
        return;
    }
    chargeFan(x1, y1, x2, y2, count, colours, colourCount, px2 - px1);
    flush();
    batch_->map = map;
    startFan(x2, px1, px2, count, colours, colourCount);
    notifyImageChanged();
}

// Every line pays for its pixels across; a line that moves, for its pixels up or down too.
// Then the lines are logged, if the log is on.
void Surface::chargeFan(double x1, const float* y1, double x2, const float* y2, std::size_t count,
                        const Colour* colours, std::size_t colourCount, double across) {
    werk(count * (kWerkWaaier + perPixel() * bedekt(across)) + batch_->movedCost);
    for (std::size_t i = 0; i < count && logging_; ++i) {
        logPrimitive(DrawKind::kLine, x1, y1[i], x2, y2[i], 0.0, colours[i % colourCount]);
    }
}

// Whether the fan may go on from where the open one ended: the same pen, colours, number of
// lines and x. Its values are compared as the fan is mapped.
bool Surface::continuesFan(double x1, std::size_t count, const Colour* colours,
                           std::size_t colourCount) const {
    const Batch& b = *batch_;
    return b.kind == Batch::Kind::kFan && drawWidth_ == b.width && count == b.lines.size() &&
           x1 == b.fanX && colourCount == b.palette.size() &&
           std::memcmp(colours, b.palette.data(), colourCount * sizeof(Colour)) == 0;
}

// The lines outside the moving ones must start at their value of the open fan and stay level.
void Surface::checkFanPromise(const float* y1, const float* y2, std::size_t count,
                              std::size_t movedFrom, std::size_t movedTo) const {
    const Batch& b = *batch_;
    for (std::size_t i = 0; i < count; ++i) {
        if ((i < movedFrom || i >= movedTo) &&
            (bitsOf(y1[i]) != b.ends[i] || bitsOf(y2[i]) != b.ends[i])) {
            raise(kErrInternal);
        }
    }
}

// The lines from..to - 1 that move, with their ends in pixels: of a fan that continues, those
// whose value changes, after checking that each starts at its value of the open fan, bit for
// bit; of a new fan, all. False when one does not start there or an end is no finite pixel.
bool Surface::mapFan(const ScaleMapper& map, const float* y1, const float* y2, std::size_t from,
                     std::size_t to, bool continues) const {
    Batch& b = *batch_;
    // Room for every line first, then filled in place: a change built aside and copied in
    // would be read back wider than it was written, which stalls the store.
    if (b.changes.size() < to - from) {
        b.changes.resize(to - from);
    }
    b.movedCost = 0;
    b.changeCount = 0;
    std::size_t n = 0;
    bool finite = true;
    for (std::size_t i = from; i < to; ++i) {
        const std::uint32_t vorig = bitsOf(y1[i]), nieuw = bitsOf(y2[i]);
        if (continues && vorig != b.ends[i]) {
            return false;
        }
        if (!continues || vorig != nieuw) {
            Batch::Change& c = b.changes[n++];
            c.i = i;
            c.py1 = map.toPixelY(y1[i]);
            c.py2 = map.toPixelY(y2[i]);
            c.bits2 = nieuw;
            const double dy = c.py2 - c.py1;
            finite = finite && std::isfinite(c.py1) && std::isfinite(c.py2);
            b.movedCost += kWerkVervolg + (dy > -1.0 && dy < 1.0 ? 0 : perPixel() * bedekt(dy));
        }
    }
    b.changeCount = n;
    return finite;
}

void Surface::startFan(double x2, double px1, double px2, std::size_t count, const Colour* colours,
                       std::size_t colourCount) {
    Batch& b = *batch_;
    b.kind = Batch::Kind::kFan;
    b.width = drawWidth_;
    b.palette.assign(colours, colours + colourCount);
    b.fanX = x2;
    b.fanPx = px2;
    b.ends.resize(count);
    b.lines.resize(count);
    b.kept = 0;
    const double tolerance = kTolerance / devicePixelRatio_;
    for (std::size_t n = 0; n < b.changeCount; ++n) {
        const Batch::Change& c = b.changes[n];
        Batch::FanLine& f = b.lines[c.i];
        f.line.start(QPointF(px1, c.py1), tolerance, kFanRun);
        f.line.add(QPointF(px2, c.py2));
        f.fedX = px2;
        b.ends[c.i] = c.bits2;
    }
}

// A line that moves first gets the end of its level run, if it had one, then its new point.
void Surface::extendFan(double x2, double px1, double px2) {
    Batch& b = *batch_;
    for (std::size_t n = 0; n < b.changeCount; ++n) {
        const Batch::Change& c = b.changes[n];
        Batch::FanLine& f = b.lines[c.i];
        if (f.fedX != px1) {
            b.kept += f.line.add(QPointF(px1, c.py1));
        }
        b.kept += f.line.add(QPointF(px2, c.py2));
        f.fedX = px2;
        b.ends[c.i] = c.bits2;
    }
    b.fanX = x2;
    b.fanPx = px2;
    if (b.kept >= kMaxVertices) {
        // Painted in parts; every line goes on from the fan's x.
        flush();
        b.kind = Batch::Kind::kFan;
        const double tolerance = kTolerance / devicePixelRatio_;
        for (Batch::FanLine& f : b.lines) {
            f.line.start(QPointF(px2, f.line.newest().y()), tolerance, kFanRun);
            f.fedX = px2;
        }
    }
}

void Surface::circle(double x, double y, double radius, Colour colour, std::uint32_t times) {
    if (times == 0) {
        return;
    }
    const ScaleMapper& map = mapper();
    const QPointF centre(map.toPixelX(x), map.toPixelY(y));
    const double pixelRadius = map.widthToPixels(radius);
    werk(kWerkCirkel + kWerkPerPixelStraal * bedekt(pixelRadius));
    logPrimitive(DrawKind::kCircle, x, y, 0.0, 0.0, radius, colour, times);
    flush();
    if (!isFinite(centre) || !std::isfinite(pixelRadius)) {
        return;
    }
    if (image_.isNull()) {
        return;
    }
    const bool filled = fillStyle_ == kFillSolid;
    const DiscSprites::Style style{opaque(colour), drawWidth_, filled,
                                   filled ? opaque(fillColour_) : 0u, times};
    if (target_ != nullptr) {
        // A figure's disc has an exact edge, which the viewer smooths: drawn once.
        target_->circle(centre, pixelRadius, style);
        return;
    }
    // Copied straight into the pixels, which must be this surface's alone (see flush).
    if (!image_.isDetached()) {
        finishPainting();
    }
    if (!batch_->discs.paint(image_, centre, pixelRadius, style)) {
        // A disc too large for a sprite, or a ratio that is not whole: drawn again and again,
        // up to a bound past which the rim's coverage hardly grows.
        QPainter& p = painter();
        DiscSprites::setStyle(p, style);
        for (std::uint32_t n = std::min(times, kMaxOvertekenen); n > 0; --n) {
            p.drawEllipse(centre, pixelRadius, pixelRadius);
        }
    }
    notifyImageChanged();
}

void Surface::paint(const std::function<void(QPainter&)>& draw) {
    if (image_.isNull()) {
        return;
    }
    draw(painter());
    notifyImageChanged();
}

QPainter& Surface::painter() const {
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::Antialiasing);
    }
    return *painter_;
}

void Surface::flush() const {
    Batch& b = *batch_;
    const Batch::Kind kind = b.kind;
    b.kind = Batch::Kind::kNone;
    if (kind == Batch::Kind::kNone || image_.isNull()) {
        return;
    }
    // The pixels are written directly as well as through the painter: they must be this
    // surface's alone, which the painter's start made them unless the image was shared since.
    if (!image_.isDetached()) {
        finishPainting();
    }
    if (kind == Batch::Kind::kStroke) {
        b.points.clear();
        b.stroke.appendTo(b.points);
        paintRun(b.points, toQColor(b.colour), b.width);
        b.stroke.release();
        b.kept = 0;
        return;
    }
    for (std::size_t i = 0; i < b.lines.size(); ++i) {
        Batch::FanLine& f = b.lines[i];
        b.points.clear();
        f.line.appendTo(b.points);
        if (f.fedX != b.fanPx) {
            b.points.emplace_back(b.fanPx, f.line.newest().y());
        }
        paintRun(b.points, toQColor(b.palette[i % b.palette.size()]), b.width);
        f.line.release();
    }
    b.kept = 0;
}

// Into the attached target, if there is one, else into the pixels.
void Surface::paintRun(const std::vector<QPointF>& points, const QColor& colour, int width) const {
    if (target_ != nullptr) {
        target_->polyline(points, colour, width);
    } else {
        paintPolyline(image_, points, colour, width);
    }
}

void Surface::discard() const {
    batch_->kind = Batch::Kind::kNone;
}

void Surface::finishPainting() const {
    painter_.reset();
}

const QImage& Surface::image() const {
    flush();
    finishPainting();
    return image_;
}

// --- Placement -------------------------------------------------------------------------------

void Surface::move(double left, double top, double width, double height) {
    if (width < 0.0 || height < 0.0) {
        raise(kErrInvalidProperty);
    }
    double pixelLeft = left / kTwipsPerPixel;
    double pixelTop = top / kTwipsPerPixel;
    double pixelWidth = width / kTwipsPerPixel;
    double pixelHeight = height / kTwipsPerPixel;
    if (container_ != nullptr) {
        const ScaleMapper outer = container_->mapper();
        pixelLeft = outer.toPixelX(left);
        pixelTop = outer.toPixelY(top);
        pixelWidth = outer.widthToPixels(width);
        pixelHeight = outer.heightToPixels(height);
    }
    // Convert everything before changing anything, so a failing move leaves the surface as it
    // was.
    const int newLeft = toLong(pixelLeft);
    const int newTop = toLong(pixelTop);
    resizeImage(toLong(pixelWidth), toLong(pixelHeight), devicePixelRatio_);
    pixelLeft_ = newLeft;
    pixelTop_ = newTop;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    if (observer_ != nullptr) {
        observer_->geometryChanged();
    }
}

// --- Events ----------------------------------------------------------------------------------

void Surface::refresh() {
    // A copy, so that a handler that replaces itself does not pull the rug from under its own
    // call.
    const std::function<void()> handler = paintHandler_;
    if (handler) {
        handler();
    }
    notifyImageChanged();
}

void Surface::deliverMouseDown(int button, int shift, double pixelX, double pixelY) {
    deliverMouse(mouseDown_, button, shift, pixelX, pixelY);
}

void Surface::deliverMouseMove(int buttons, int shift, double pixelX, double pixelY) {
    deliverMouse(mouseMove_, buttons, shift, pixelX, pixelY);
}

void Surface::deliverMouseUp(int button, int shift, double pixelX, double pixelY) {
    deliverMouse(mouseUp_, button, shift, pixelX, pixelY);
}

void Surface::deliverMouse(const MouseHandler& handler, int button, int shift, double px,
                           double py) {
    const MouseHandler call = handler;  // the handler may replace itself
    if (!call) {
        return;
    }
    const ScaleMapper& map = mapper();
    call(button, shift, toHandlerSingle(map.toScaleX(px)), toHandlerSingle(map.toScaleY(py)));
}

void Surface::notifyImageChanged() {
    if (observer_ != nullptr) {
        observer_->imageChanged();
    }
}

}  // namespace zw
