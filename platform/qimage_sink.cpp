#include "platform/qimage_sink.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QStaticText>
#include <QString>
#include <algorithm>
#include <cmath>
#include <unordered_map>

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
    // The font and its metrics of the last size asked for: labels come in one size or two.
    struct Lettertype {
        double grootte = -1.0;
        double dpi = -1.0;
        QFont font;
        double midden = 0.0;  // from the baseline up to the middle of the text
        double ascent = 0.0;
    };
    thread_local Lettertype laatste;
    const QPaintDevice* device = painter.device();
    const double dpi = device != nullptr && device->logicalDpiY() > 0 ? device->logicalDpiY()
                                                                       : kLogicalDpi;
    const double points = std::isfinite(style.points) ? std::clamp(style.points, 1.0, 400.0) : 9.0;
    if (laatste.grootte != points || laatste.dpi != dpi) {
        laatste.font = QFont(QStringLiteral("sans-serif"));
        // Sizes in points of the screen's 96 logical pixels to the inch, on any device.
        laatste.font.setPointSizeF(points * kLogicalDpi / dpi);
        const QFontMetricsF metrics(laatste.font, device);
        laatste.midden = (metrics.ascent() - metrics.descent()) / 2;
        laatste.ascent = metrics.ascent();
        laatste.grootte = points;
        laatste.dpi = dpi;
    }
    painter.setFont(laatste.font);
    // Every primitive sets the pen it draws with: nothing to save.
    painter.setPen(toQColor(style.colour));
    const QString text = QString::fromStdString(utf8);
    if (painter.paintEngine() == nullptr || painter.paintEngine()->type() != QPaintEngine::Raster) {
        // A vector file gets the text as text.
        double x = at.x();
        if (style.anchor != TextAnchor::kLeft) {
            const double width = QFontMetricsF(laatste.font, device).horizontalAdvance(text);
            x -= style.anchor == TextAnchor::kCentre ? width / 2 : width;
        }
        painter.drawText(QPointF(x, at.y() + laatste.midden), text);
        return;
    }
    // On a raster the layout of a label is kept: the same labels come back at every step of t.
    thread_local std::unordered_map<std::string, QStaticText> opmaak;
    constexpr std::size_t kMaxOpmaak = 1024;
    if (opmaak.size() >= kMaxOpmaak) {
        opmaak.clear();
    }
    const std::string sleutel = utf8 + '\0' + std::to_string(points) + '\0' + std::to_string(dpi);
    auto gevonden = opmaak.find(sleutel);
    if (gevonden == opmaak.end()) {
        QStaticText statisch(text);
        statisch.setTextFormat(Qt::PlainText);
        statisch.setPerformanceHint(QStaticText::AggressiveCaching);
        statisch.prepare(QTransform(), laatste.font);
        gevonden = opmaak.emplace(sleutel, std::move(statisch)).first;
    }
    const double width = gevonden->second.size().width();
    double x = at.x();
    if (style.anchor != TextAnchor::kLeft) {
        x -= style.anchor == TextAnchor::kCentre ? width / 2 : width;
    }
    painter.drawStaticText(QPointF(x, at.y() + laatste.midden - laatste.ascent), gevonden->second);
}

}  // namespace zw
