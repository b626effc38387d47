// The raster a widget shows: an image of the surface's size at its device pixel ratio, painted
// by the hand-written rasteriser (platform/raster_lines.h, platform/disc_sprites.h), which is
// several times as fast as QPainter on the same runs (bench/renderer_bench.cpp). QPainter
// paints what the rasteriser leaves to it: discs too large for a sprite or at a fractional
// ratio, and texts. A figure's PNG is painted by this sink too, so that one raster picture has
// one renderer.
#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <memory>
#include <string>

#include "platform/disc_sprites.h"
#include "platform/sink.h"

class QPainter;

namespace zw {

class Surface;

// A classic colour as Qt's; only the low 24 bits count.
inline QColor toQColor(Colour c) {
    return QColor(redOf(c), greenOf(c), blueOf(c));
}
inline Colour fromQColor(const QColor& c) {
    return rgb(c.red(), c.green(), c.blue());
}

class QImageSink final : public RasterSink {
  public:
    QImageSink();
    ~QImageSink() override;
    QImageSink(const QImageSink&) = delete;
    QImageSink& operator=(const QImageSink&) = delete;

    void resize(int width, int height, double ratio) override;
    void clear(Colour background) override;
    void clearTransparent() override;
    void polyline(const PixelPoint* points, std::size_t count, Colour colour, int width) override;
    void circle(PixelPoint centre, double radius, const DiscStyle& style) override;
    void text(PixelPoint at, const std::string& utf8, const TextStyle& style) override;

    // The pixels so far, with the painter finished.
    const QImage& image() const;

  private:
    QPainter& painter();
    // The pixels are written directly as well as through the painter: they must be this
    // sink's alone, which the painter's start made them unless the image was shared since.
    void ownPixels();

    mutable QImage image_;
    mutable std::unique_ptr<QPainter> painter_;
    DiscSprites discs_;
};

// The image a surface shows, with the lines it has collected painted.
const QImage& imageOf(const Surface& surface);

// A short text at a point in logical pixels, as every painter draws it: a sans-serif font of the
// style's size in points (96 logical pixels to the inch, whatever the device's
// resolution), anchored along the text at the point and centred on it across.
void paintText(QPainter& painter, QPointF at, const std::string& utf8, const TextStyle& style);

}  // namespace zw
