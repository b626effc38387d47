#include "platform/strokes.h"

#include <QPainter>
#include <cmath>
#include <cstring>
#include <functional>

namespace zw {

namespace {

// Discs whose half extent passes this many device pixels are drawn directly; the bound keeps
// every image small.
constexpr int kMaxSpriteHalf = 24;
// Beyond this many images the cache starts again: a few colours at sixteen quarter-pixel
// positions is all a redraw needs.
constexpr std::size_t kMaxSprites = 256;
// Positions this far out are never on the image; they are left to the painter's clipping.
constexpr double kMaxSpritePosition = 1e6;

std::uint64_t bitsOf(double x) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
}

// The whole device pixel and the nearest quarter of a pixel beyond it.
void quarters(double device, long& whole, int& quarter) {
    double floor = std::floor(device);
    quarter = static_cast<int>(std::lround((device - floor) * 4.0));
    if (quarter == 4) {
        floor += 1.0;
        quarter = 0;
    }
    whole = static_cast<long>(floor);
}

}  // namespace

// --- ThinPolyline ------------------------------------------------------------------------------

namespace {

// Appends to `out` the points of pts[first + 1 .. last - 1] that the segment pts[first] ..
// pts[last] does not pass within the tolerance of, thinned the same way, in order. Distances are
// compared squared and multiplied by the segment's squared length, so no division or root is
// needed; a point beyond either end is measured to that end.
void thin(const QPointF* pts, std::size_t first, std::size_t last, double tolerance2,
          std::vector<QPointF>& out) {
    if (last <= first + 1) {
        return;
    }
    const QPointF a = pts[first];
    const double vx = pts[last].x() - a.x(), vy = pts[last].y() - a.y();
    const double length2 = vx * vx + vy * vy;
    const double scale = length2 > 0.0 ? length2 : 1.0;
    double farthest = tolerance2 * scale;
    std::size_t at = 0;
    for (std::size_t i = first + 1; i < last; ++i) {
        const double wx = pts[i].x() - a.x(), wy = pts[i].y() - a.y();
        const double along = wx * vx + wy * vy;
        double distance = 0.0;
        if (along <= 0.0) {
            distance = (wx * wx + wy * wy) * scale;
        } else if (along >= length2) {
            const double ex = pts[i].x() - pts[last].x(), ey = pts[i].y() - pts[last].y();
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
void ThinPolyline::start(QPointF p, double tolerance, std::size_t chunk) {
    kept_.assign(1, p);
    run_.assign(1, p);
    tolerance_ = tolerance;
    chunk_ = chunk;
}

std::size_t ThinPolyline::add(QPointF p) {
    run_.push_back(p);
    return run_.size() > chunk_ ? thinRun() : 0;
}

// The run is thinned and kept, its last point with it; that point starts the next run.
std::size_t ThinPolyline::thinRun() {
    const std::size_t before = kept_.size();
    thin(run_.data(), 0, run_.size() - 1, tolerance_ * tolerance_, kept_);
    kept_.push_back(run_.back());
    run_.assign(1, run_.back());
    return kept_.size() - before;
}

void ThinPolyline::release() {
    constexpr std::size_t kSmall = 64;
    if (kept_.capacity() > kSmall) {
        std::vector<QPointF>(1, kept_.back()).swap(kept_);
    }
}

void ThinPolyline::appendTo(std::vector<QPointF>& out) const {
    out.insert(out.end(), kept_.begin(), kept_.end());
    if (run_.size() > 1) {
        thin(run_.data(), 0, run_.size() - 1, tolerance_ * tolerance_, out);
        out.push_back(run_.back());
    }
}

void paintPolyline(QPainter& painter, const std::vector<QPointF>& points, const QColor& colour,
                   int width, std::vector<QLineF>& scratch) {
    if (points.empty()) {
        return;
    }
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    if (points.size() == 1) {
        painter.drawLine(points[0], points[0]);
        return;
    }
    scratch.clear();
    for (std::size_t i = 1; i < points.size(); ++i) {
        scratch.emplace_back(points[i - 1], points[i]);
    }
    painter.drawLines(scratch.data(), static_cast<int>(scratch.size()));
}

// --- DiscSprites -------------------------------------------------------------------------------

bool DiscSprites::Key::operator==(const Key& o) const {
    return radiusBits == o.radiusBits && ratioBits == o.ratioBits && pen == o.pen &&
           fill == o.fill && width == o.width && filled == o.filled && quarterX == o.quarterX &&
           quarterY == o.quarterY;
}

std::size_t DiscSprites::KeyHash::operator()(const Key& k) const {
    std::size_t h = std::hash<std::uint64_t>()(k.radiusBits);
    for (const std::uint64_t part : {k.ratioBits, std::uint64_t{k.pen}, std::uint64_t{k.fill},
                                     static_cast<std::uint64_t>(k.width) * 2 + (k.filled ? 1 : 0),
                                     static_cast<std::uint64_t>(k.quarterX * 4 + k.quarterY)}) {
        h = h * 1000003u ^ std::hash<std::uint64_t>()(part);
    }
    return h;
}

void DiscSprites::setStyle(QPainter& painter, const Style& style) {
    painter.setPen(QPen(QColor::fromRgba(style.pen), style.width));
    painter.setBrush(style.filled ? QBrush(QColor::fromRgba(style.fill)) : QBrush(Qt::NoBrush));
}

QImage DiscSprites::render(const Style& style, double radius, qreal ratio, int half, double fx,
                           double fy) {
    const int side = 2 * half + 1;
    QImage sprite(side, side, QImage::Format_ARGB32_Premultiplied);
    sprite.fill(Qt::transparent);
    sprite.setDevicePixelRatio(ratio);
    QPainter painter(&sprite);
    painter.setRenderHint(QPainter::Antialiasing);
    setStyle(painter, style);
    painter.drawEllipse(QPointF((half + fx) / ratio, (half + fy) / ratio), radius, radius);
    return sprite;
}

void DiscSprites::paint(QPainter& painter, QPointF centre, double radius, qreal ratio,
                        const Style& style) {
    const double extent = (radius + style.width / 2.0) * ratio;
    const double cx = centre.x() * ratio, cy = centre.y() * ratio;
    // Only whole pixel ratios copy pixel for pixel.
    if (!(extent <= kMaxSpriteHalf - 2) || ratio != std::floor(ratio) ||
        !(std::fabs(cx) < kMaxSpritePosition && std::fabs(cy) < kMaxSpritePosition)) {
        setStyle(painter, style);
        painter.drawEllipse(centre, radius, radius);
        return;
    }
    long ix = 0, iy = 0;
    int qx = 0, qy = 0;
    quarters(cx, ix, qx);
    quarters(cy, iy, qy);
    const int half = static_cast<int>(std::ceil(extent)) + 2;
    const Key key{bitsOf(radius), bitsOf(ratio), style.pen, style.fill,
                  style.width,    style.filled,  qx,        qy};
    auto found = sprites_.find(key);
    if (found == sprites_.end()) {
        if (sprites_.size() >= kMaxSprites) {
            sprites_.clear();
        }
        found = sprites_.emplace(key, render(style, radius, ratio, half, qx / 4.0, qy / 4.0)).first;
    }
    painter.drawImage(QPointF((ix - half) / ratio, (iy - half) / ratio), found->second);
}

}  // namespace zw
