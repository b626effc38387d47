#include "platform/surface.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include <QPainter>
#include <QPen>

#include "platform/numeric.h"
#include "platform/runtime_error.h"
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

}  // namespace

Surface::Surface() {
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
    devicePixelRatio_ = ratio;
    if (!userScale_) {
        followSize();
    }
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

void Surface::setUserScale(double left, double top, double width, double height) {
    userScale_ = true;
    scaleLeft_ = left;
    scaleTop_ = top;
    scaleWidth_ = width;
    scaleHeight_ = height;
}

void Surface::followSize() {
    scaleLeft_ = 0.0;
    scaleTop_ = 0.0;
    scaleWidth_ = pixelWidth_ * kTwipsPerPixel;
    scaleHeight_ = pixelHeight_ * kTwipsPerPixel;
}

ScaleMapper Surface::mapper() const {
    return ScaleMapper(scaleLeft_, scaleTop_, scaleWidth_, scaleHeight_, pixelWidth_, pixelHeight_);
}

// --- Drawing ---------------------------------------------------------------------------------

void Surface::cls() {
    finishPainting();
    werk(static_cast<std::uint64_t>(pixelWidth_) * static_cast<std::uint64_t>(pixelHeight_));
    if (!image_.isNull()) {
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

// Rasterising costs by the pixels a primitive covers, and nothing beyond the image's diagonal
// is drawn.
std::uint64_t Surface::bedekt(double pixels) const {
    const double diagonal = std::hypot(pixelWidth_, pixelHeight_);
    const double covered = std::isfinite(pixels) ? std::min(std::fabs(pixels), diagonal) : 0.0;
    return static_cast<std::uint64_t>(covered);
}

// Each record carries the pen and fill in force at the time, so later changes of state cannot
// rewrite what the log says was drawn.
void Surface::logPrimitive(DrawKind kind, double x1, double y1, double x2, double y2, double radius,
                           Colour colour) {
    log_.push_back({kind, x1, y1, x2, y2, radius, colour, drawWidth_, fillStyle_, fillColour_});
}

void Surface::line(double x1, double y1, double x2, double y2, Colour colour) {
    const ScaleMapper map = mapper();
    const QPointF from(map.toPixelX(x1), map.toPixelY(y1));
    const QPointF to(map.toPixelX(x2), map.toPixelY(y2));
    werk(kWerkLijn + kWerkPerPixel * bedekt(std::hypot(to.x() - from.x(), to.y() - from.y())));
    logPrimitive(DrawKind::kLine, x1, y1, x2, y2, 0.0, colour);
    if (!isFinite(from) || !isFinite(to)) {
        return;
    }
    // Square caps: curves are drawn as runs of short wide lines, and at the curve's three pixels
    // square caps look the same as round ones while stroking about three times faster.
    paint([&](QPainter& painter) {
        painter.setPen(
            QPen(toQColor(colour), drawWidth_, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
        painter.drawLine(from, to);
    });
}

void Surface::circle(double x, double y, double radius, Colour colour) {
    const ScaleMapper map = mapper();
    const QPointF centre(map.toPixelX(x), map.toPixelY(y));
    const double pixelRadius = map.widthToPixels(radius);
    werk(kWerkCirkel + kWerkPerPixelStraal * bedekt(pixelRadius));
    logPrimitive(DrawKind::kCircle, x, y, 0.0, 0.0, radius, colour);
    if (!isFinite(centre) || !std::isfinite(pixelRadius)) {
        return;
    }
    paint([&](QPainter& painter) {
        painter.setPen(QPen(toQColor(colour), drawWidth_));
        // The painter lives across primitives: set the brush every time.
        painter.setBrush(fillStyle_ == kFillSolid ? QBrush(toQColor(fillColour_))
                                                  : QBrush(Qt::NoBrush));
        painter.drawEllipse(centre, pixelRadius, pixelRadius);
    });
}

void Surface::paint(const std::function<void(QPainter&)>& draw) {
    if (image_.isNull()) {
        return;
    }
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::Antialiasing);
    }
    draw(*painter_);
    notifyImageChanged();
}

void Surface::finishPainting() const {
    painter_.reset();
}

const QImage& Surface::image() const {
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
    const ScaleMapper map = mapper();
    call(button, shift, toHandlerSingle(map.toScaleX(px)), toHandlerSingle(map.toScaleY(py)));
}

void Surface::notifyImageChanged() {
    if (observer_ != nullptr) {
        observer_->imageChanged();
    }
}

}  // namespace zw
