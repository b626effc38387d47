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
    // The straight line the run's last point may be replaced along: from (fromX_, fromY_) in the
    // direction (dirX_, dirY_), within band2_ of cross products; lastAlong_ the last point's dot
    // product with that direction.
    bool banded_ = false;
    double fromX_ = 0.0, fromY_ = 0.0;  // run_[size - 2], kept at hand
    double dirX_ = 0.0, dirY_ = 0.0, band2_ = 0.0, lastAlong_ = 0.0;
};

// A line from a to b (logical pixels) of the given width with square caps, antialiased, straight
// into the pixels of `image` (premultiplied ARGB, any whole or fractional pixel ratio), clipped to
// it.
void paintLine(QImage& image, QPointF a, QPointF b, QRgb colour, double width);

// Paints a polyline as the surface's lines always looked: segment by segment with square caps in
// the pen's width.
void paintPolyline(QImage& image, const std::vector<QPointF>& points, const QColor& colour,
                   int width);

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
        // Drawn so many times over itself: its rim's coverage a becomes 1 - (1 - a)^times.
        std::uint32_t times = 1;
    };
    // Draws the circle at `centre` (logical pixels) into `target` (premultiplied ARGB), as
    // QPainter::drawEllipse draws it with a pen of the style's colour and width and a solid brush
    // of its fill, if filled. False for a disc too large for an image, or a ratio that is not
    // whole: the caller draws it.
    bool paint(QImage& target, QPointF centre, double radius, const Style& style);
    static void setStyle(QPainter& painter, const Style& style);

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
        std::uint32_t times;
        bool operator==(const Key& o) const;
    };
    struct KeyHash {
        std::size_t operator()(const Key& k) const;
    };
    // The disc's pixels that are not transparent, as premultiplied colours in runs along its
    // rows: runs of opaque pixels are copied, the others blended.
    struct Run {
        int x;
        int y;
        int count;
        std::size_t first;  // in `pixels`
        bool opaque;
    };
    struct Sprite {
        std::vector<Run> runs;
        std::vector<QRgb> pixels;
        int side = 0;
    };
    static Sprite render(const Style& style, double radius, qreal ratio, int half, double fx,
                         double fy);
    static void overtekend(QImage& image, std::uint32_t times);
    static void copy(QImage& target, const Sprite& sprite, long left, long top);

    std::unordered_map<Key, Sprite, KeyHash> sprites_;
};

}  // namespace zw
