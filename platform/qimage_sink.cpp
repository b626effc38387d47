#include "platform/qimage_sink.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <cmath>

#include "platform/raster_lines.h"
#include "platform/runtime_error.h"
#include "platform/surface.h"

namespace zw {

namespace {

// A disc the painter draws itself is drawn over itself at most this often: a rim pixel of
// coverage a quarter is then within a hundredth of full.
constexpr std::uint32_t kMaxOvertekenen = 16;
constexpr double kLogicalDpi = 96.0;

QRgb opaque(Colour c) {
    return qRgb(redOf(c), greenOf(c), blueOf(c));
}

int deviceExtent(int logical, double ratio) {
    return static_cast<int>(std::ceil(logical * ratio));
}

}  // namespace

std::unique_ptr<RasterSink> makeRasterSink() {
    return std::make_unique<QImageSink>();
}

QImageSink::QImageSink() = default;
QImageSink::~QImageSink() = default;

void QImageSink::resize(int width, int height, double ratio) {
    painter_.reset();
    const int deviceWidth = deviceExtent(width, ratio);
    const int deviceHeight = deviceExtent(height, ratio);
    QImage image;
    if (deviceWidth > 0 && deviceHeight > 0) {
        image = QImage(deviceWidth, deviceHeight, QImage::Format_ARGB32_Premultiplied);
        if (image.isNull()) {
            raise(kErrOutOfMemory);
        }
        image.setDevicePixelRatio(ratio);
    }
    image_ = std::move(image);
}

void QImageSink::clear(Colour background) {
    painter_.reset();
    image_.fill(toQColor(background));
}

void QImageSink::clearTransparent() {
    painter_.reset();
    image_.fill(Qt::transparent);
}

void QImageSink::polyline(const PixelPoint* points, std::size_t count, Colour colour, int width) {
    ownPixels();
    paintPolyline(image_, points, count, opaque(colour), width);
}

void QImageSink::circle(PixelPoint centre, double radius, const DiscStyle& style) {
    ownPixels();
    const DiscSprites::Style sprite{opaque(style.pen), style.width, style.filled,
                                    style.filled ? opaque(style.fill) : 0u, style.times};
    if (!discs_.paint(image_, centre, radius, sprite)) {
        // A disc too large for a sprite, or a ratio that is not whole: drawn again and again,
        // up to a bound past which the rim's coverage hardly grows.
        QPainter& p = painter();
        DiscSprites::setStyle(p, sprite);
        for (std::uint32_t n = std::min(style.times, kMaxOvertekenen); n > 0; --n) {
            p.drawEllipse(QPointF(centre.x, centre.y), radius, radius);
        }
    }
}

void QImageSink::text(PixelPoint at, const std::string& utf8, const TextStyle& style) {
    paintText(painter(), QPointF(at.x, at.y), utf8, style);
}

const QImage& QImageSink::image() const {
    painter_.reset();
    return image_;
}

QPainter& QImageSink::painter() {
    if (!painter_) {
        painter_ = std::make_unique<QPainter>(&image_);
        painter_->setRenderHint(QPainter::Antialiasing);
    }
    return *painter_;
}

void QImageSink::ownPixels() {
    if (!image_.isDetached()) {
        painter_.reset();
    }
}

const QImage& imageOf(const Surface& surface) {
    surface.finish();
    const auto* sink = dynamic_cast<const QImageSink*>(&surface.raster());
    if (sink == nullptr) {
        raise(kErrInternal);
    }
    return sink->image();
}

void paintText(QPainter& painter, QPointF at, const std::string& utf8, const TextStyle& style) {
    // Fonts come with a GUI application; a program without one (a fuzz target) draws no text.
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) {
        return;
    }
    const QString text = QString::fromStdString(utf8);
    QFont font(QStringLiteral("sans-serif"));
    // Sizes in points of the screen's 96 logical pixels to the inch, on any device.
    const QPaintDevice* device = painter.device();
    const double dpi = device != nullptr && device->logicalDpiY() > 0 ? device->logicalDpiY()
                                                                       : kLogicalDpi;
    const double points = std::isfinite(style.points) ? std::clamp(style.points, 1.0, 400.0) : 9.0;
    font.setPointSizeF(points * kLogicalDpi / dpi);
    const QFontMetricsF metrics(font, device);
    const double width = metrics.horizontalAdvance(text);
    double x = at.x();
    if (style.anchor == TextAnchor::kCentre) {
        x -= width / 2;
    } else if (style.anchor == TextAnchor::kRight) {
        x -= width;
    }
    painter.save();
    painter.setFont(font);
    painter.setPen(toQColor(style.colour));
    painter.drawText(QPointF(x, at.y() + (metrics.ascent() - metrics.descent()) / 2), text);
    painter.restore();
}

}  // namespace zw
