// Lines that continue each other, collected in pixels before they are painted, and small discs
// painted from images made once.
//
// A curve is drawn as thousands of lines a fraction of a pixel long, and the blending pane as one
// such run per control point, all advancing together. Stroked one by one, each short line costs
// the rasteriser as much as a long one. Collected, a run of lines in one colour and width is one
// polyline, and of its points only those are kept that the picture needs: where the polyline
// would otherwise pass farther than a fraction of a pixel from a point it was given.
#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

class QPainter;

namespace zw {

// A polyline in pixels that keeps only the vertices it needs. The points come in runs of up to
// `chunk`, each thinned as a whole by Ramer, Douglas and Peucker: between the last kept vertex and
// the run's last point, the point farthest from the segment joining them is kept when it lies
// farther than the tolerance, and both halves are thinned the same way. Every point given lies
// within the tolerance of the polyline that is painted. A run costs a few passes over its
// points, with multiplications only; the chunk bounds the worst case of a zigzag.
class ThinPolyline {
  public:
    void start(QPointF p, double tolerance, std::size_t chunk);
    // Returns how many vertices were kept.
    std::size_t add(QPointF p);
    // The kept vertices and the thinned run after them: what is to be painted.
    void appendTo(std::vector<QPointF>& out) const;
    QPointF newest() const { return run_.back(); }
    // Gives back buffers that grew large, so that an idle polyline holds little.
    void release();

  private:
    std::size_t thinRun();

    std::vector<QPointF> kept_;
    std::vector<QPointF> run_;  // from the last kept vertex on
    double tolerance_ = 0.0;
    std::size_t chunk_ = 1;
};

// Paints a polyline as the surface's lines always looked: segment by segment with square caps in
// the pen's width. The rasteriser joins the segments of a polyline slowly wherever it does not
// take its one-pixel road (a wide pen, a screen of two device pixels to the pixel).
void paintPolyline(QPainter& painter, const std::vector<QPointF>& points, const QColor& colour,
                   int width, std::vector<QLineF>& scratch);

// Discs up to a modest size, antialiased once into an image per style, size and quarter pixel of
// position, then copied: the same pixels as drawing the circle again (source-over is
// associative), at a fraction of the cost. The cache is bounded; when it is full it starts
// afresh. Other discs are drawn directly.
class DiscSprites {
  public:
    struct Style {
        QRgb pen;
        int width;
        bool filled;
        QRgb fill;
    };
    // Draws the circle at `centre` (logical pixels), as QPainter::drawEllipse draws it with a
    // pen of the style's colour and width and a solid brush of its fill, if filled.
    void paint(QPainter& painter, QPointF centre, double radius, qreal devicePixelRatio,
               const Style& style);

  private:
    struct Key {
        std::uint64_t radiusBits;
        std::uint64_t ratioBits;
        QRgb pen;
        QRgb fill;
        int width;
        bool filled;
        int quarterX;
        int quarterY;
        bool operator==(const Key& o) const;
    };
    struct KeyHash {
        std::size_t operator()(const Key& k) const;
    };
    static void setStyle(QPainter& painter, const Style& style);
    static QImage render(const Style& style, double radius, qreal ratio, int half, double fx,
                         double fy);

    std::unordered_map<Key, QImage, KeyHash> sprites_;
};

}  // namespace zw
