#include "platform/surface.h"

#include <algorithm>
#include <cmath>

#include "platform/numeric.h"
#include "platform/runtime_error.h"

namespace zw {

namespace {

constexpr int kMaxPixelExtent = 32767;
constexpr int kMaxDrawWidth = 32767;
constexpr int kMaxFillStyle = 7;
// Images beyond this many device pixels (256 MB) are refused as out of memory rather than
// attempted.
constexpr double kMaxImagePixels = 64.0 * 1024.0 * 1024.0;
constexpr double kMinPoints = 1.0;
constexpr double kMaxPoints = 400.0;

// Collected lines keep their points to within this fraction of a device pixel: antialiasing
// shows a shift of an eighth of a pixel as a change of an eighth in the coverage of an edge
// pixel, which the eye does not see.
constexpr double kTolerance = 0.125;

bool isFinite(const PixelPoint& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

int deviceExtent(int logical, double ratio) {
    return toLong(std::ceil(logical * ratio));
}

}  // namespace

Surface::Surface() : raster_(makeRasterSink()) {}

Surface::~Surface() = default;

// --- Size ------------------------------------------------------------------------------------

void Surface::setPixelSize(int width, int height) {
    if (resizeImage(width, height, devicePixelRatio())) {
        width_ = containerWidthOf(width);
        height_ = containerHeightOf(height);
    }
}

void Surface::setDevicePixelRatio(double ratio) {
    // Screens report ratios between about 1 and 4; anything absurd falls back to plain pixels.
    const double sane = std::isfinite(ratio) && ratio >= 0.1 && ratio <= 16.0 ? ratio : 1.0;
    resizeImage(pixelWidth(), pixelHeight(), sane);
}

bool Surface::resizeImage(int width, int height, double ratio) {
    if (width < 0 || height < 0 || width > kMaxPixelExtent || height > kMaxPixelExtent) {
        raise(kErrInvalidProperty);
    }
    if (width == pixelWidth() && height == pixelHeight() && ratio == devicePixelRatio()) {
        return false;
    }
    const int deviceWidth = deviceExtent(width, ratio);
    const int deviceHeight = deviceExtent(height, ratio);
    if (static_cast<double>(deviceWidth) * deviceHeight > kMaxImagePixels) {
        raise(kErrOutOfMemory);
    }
    batch_.discard();
    raster_->resize(width, height, ratio);
    drawable_ = deviceWidth > 0 && deviceHeight > 0;
    meter_.setDiagonal(std::hypot(width, height));
    setPixels(width, height, ratio);
    aimBatch();
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

// --- Where it goes -----------------------------------------------------------------------------

Sink* Surface::sink() const {
    if (!drawable_) {
        return nullptr;
    }
    return figure_ != nullptr ? figure_ : raster_.get();
}

// Lines still open belong to what was drawn before: they are painted where that went.
void Surface::aimBatch() {
    batch_.setSink(sink(), kTolerance / devicePixelRatio());
}

void Surface::setFigure(Sink* figure) {
    figure_ = figure;
    aimBatch();
    if (overlay_) {
        overlay_->setFigure(figure);
    }
}

Surface& Surface::overlay() {
    if (!overlay_) {
        overlay_ = std::make_unique<Surface>();
        overlay_->transparent_ = true;
        overlay_->setFigure(figure_);
    }
    Surface& o = *overlay_;
    o.setObserver(observer());
    o.setDevicePixelRatio(devicePixelRatio());
    o.setPixelSize(pixelWidth(), pixelHeight());
    o.copyScale(*this);
    return o;
}

// --- Drawing ---------------------------------------------------------------------------------

void Surface::cls() {
    batch_.discard();
    meter_.clear(pixelWidth(), pixelHeight());
    if (Sink* s = sink()) {
        if (transparent_) {
            s->clearTransparent();
        } else {
            s->clear(backColour_);
        }
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
    pen_.width = pixels;
}

void Surface::setFillStyle(int style) {
    if (style < 0 || style > kMaxFillStyle) {
        raise(kErrInvalidProperty);
    }
    pen_.fillStyle = style;
}

void Surface::line(double x1, double y1, double x2, double y2, Colour colour) {
    if (batch_.line(mapper(), pen_, x1, y1, x2, y2, colour)) {
        notifyImageChanged();
    }
}

void Surface::lineFan(double x1, const float* y1, double x2, const float* y2, std::size_t count,
                      const Colour* colours, std::size_t colourCount, std::size_t movedFrom,
                      std::size_t movedTo) {
    if (batch_.lineFan(mapper(), pen_, x1, y1, x2, y2, count, colours, colourCount,
                       movedFrom, movedTo)) {
        notifyImageChanged();
    }
}

// Each record carries the pen and fill in force at the time, so later changes of state cannot
// rewrite what the log says was drawn.
void Surface::circle(double x, double y, double radius, Colour colour, std::uint32_t times) {
    if (times == 0) {
        return;
    }
    const ScaleMapper& map = mapper();
    const PixelPoint centre{map.toPixelX(x), map.toPixelY(y)};
    const double pixelRadius = map.widthToPixels(radius);
    meter_.circle(pixelRadius);
    log_.add(DrawKind::kCircle, x, y, 0.0, 0.0, radius, colour, pen_, times);
    batch_.flush();
    Sink* s = sink();
    if (!isFinite(centre) || !std::isfinite(pixelRadius) || s == nullptr) {
        return;
    }
    s->circle(centre, pixelRadius, discStyle(colour, times));
    notifyImageChanged();
}

DiscStyle Surface::discStyle(Colour colour, std::uint32_t times) const {
    const bool filled = pen_.fillStyle == kFillSolid;
    return DiscStyle{colour, pen_.width, filled, filled ? pen_.fillColour : kBlack, times};
}

void Surface::text(double x, double y, const std::string& utf8, Colour colour, double points,
                   TextAnchor anchor) {
    if (!(points >= kMinPoints && points <= kMaxPoints)) {
        raise(kErrInvalidProperty);
    }
    const ScaleMapper& map = mapper();
    const PixelPoint at{map.toPixelX(x), map.toPixelY(y)};
    meter_.text(utf8.size());
    if (log_.on()) {
        log_.add({DrawKind::kText, x, y, 0.0, 0.0, 0.0, colour, pen_.width, pen_.fillStyle,
                  pen_.fillColour, 1, utf8, points, anchor});
    }
    batch_.flush();
    Sink* s = sink();
    if (!isFinite(at) || s == nullptr || utf8.empty()) {
        return;
    }
    s->text(at, utf8, TextStyle{colour, points, anchor});
    notifyImageChanged();
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
    resizeImage(toLong(pixelWidth), toLong(pixelHeight), devicePixelRatio());
    pixelLeft_ = newLeft;
    pixelTop_ = newTop;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    notifyGeometryChanged();
}

}  // namespace zw
