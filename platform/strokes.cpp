#include "platform/strokes.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>

namespace zw {

namespace {

// Discs whose half extent passes this many device pixels are drawn directly; the bound keeps
// every image small.
constexpr int kMaxSpriteHalf = 24;
// Beyond this many images the cache starts again. A redraw with every view on needs some three
// hundred: the points' eight colours at sixteen quarter-pixel positions, each drawn at two
// counts, the knot points' colour and the Bezier notation's.
constexpr std::size_t kMaxSprites = 1024;
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
    banded_ = false;
}

// A point within the band replaces the last one; the others, dropped so, lie within a quarter
// of the tolerance of the line through the band's start and within half of it of the segment
// from there to the point that stays, which the thinning at half the tolerance keeps within the
// rest of it.
std::size_t ThinPolyline::add(QPointF p) {
    if (banded_) {
        const double vx = p.x() - fromX_, vy = p.y() - fromY_;
        const double across = dirX_ * vy - dirY_ * vx, along = dirX_ * vx + dirY_ * vy;
        if (across * across <= band2_ && along >= lastAlong_) {
            run_.back() = p;
            lastAlong_ = along;
            return 0;
        }
    }
    const QPointF& last = run_.back();
    fromX_ = last.x();
    fromY_ = last.y();
    dirX_ = p.x() - fromX_;
    dirY_ = p.y() - fromY_;
    lastAlong_ = dirX_ * dirX_ + dirY_ * dirY_;
    band2_ = tolerance_ * tolerance_ / 16 * lastAlong_;
    banded_ = lastAlong_ > 0.0;
    run_.push_back(p);
    return run_.size() > chunk_ ? thinRun() : 0;
}

// The run is thinned and kept, its last point with it; that point starts the next run.
std::size_t ThinPolyline::thinRun() {
    const std::size_t before = kept_.size();
    thin(run_.data(), 0, run_.size() - 1, tolerance_ * tolerance_ / 4, kept_);
    kept_.push_back(run_.back());
    run_.assign(1, run_.back());
    banded_ = false;
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
        thin(run_.data(), 0, run_.size() - 1, tolerance_ * tolerance_ / 4, out);
        out.push_back(run_.back());
    }
}

namespace {

// Each byte of x times a / 255, rounded as the painter rounds it ((t + t / 256 + 128) / 256).
inline uint byteMul(uint x, uint a) {
    uint t = (x & 0xff00ff) * a;
    t = (t + ((t >> 8) & 0xff00ff) + 0x800080) >> 8;
    t &= 0xff00ff;
    x = ((x >> 8) & 0xff00ff) * a;
    x = x + ((x >> 8) & 0xff00ff) + 0x800080;
    x &= 0xff00ff00;
    return x | t;
}

// An opaque colour over the pixel with coverage alpha (0 .. 255): source-over on premultiplied
// pixels, colour times alpha plus pixel times 255 - alpha over 255, two channels to a word.
inline void cover(QRgb* pixel, QRgb colour, uint alpha) {
    if (alpha >= 255) {
        *pixel = colour;
        return;
    }
    if (alpha == 0) {
        return;
    }
    const uint d = *pixel, rest = 255 - alpha;
    uint rb = (colour & 0xff00ff) * alpha + (d & 0xff00ff) * rest;
    uint ag = ((colour >> 8) & 0xff00ff) * alpha + ((d >> 8) & 0xff00ff) * rest;
    rb = ((rb + ((rb >> 8) & 0xff00ff) + 0x800080) >> 8) & 0xff00ff;
    ag = (ag + ((ag >> 8) & 0xff00ff) + 0x800080) & 0xff00ff00;
    *pixel = ag | rb;
}

}  // namespace

// A line with square caps, antialiased column by column along its major axis: each column of
// pixels it crosses gets the colour by how much of each pixel the line's band covers across it
// (its width, measured across the axis, is the width over the cosine of the slope). One device
// pixel wide this is Xiaolin Wu's line, as the rasteriser draws thin lines, its ends covered by
// how much of the end columns the line reaches; wider it is the band the rasteriser's stroker
// fills, its ends cut square to the line with an edge one pixel soft. The rasteriser blends
// pixel by pixel through function pointers or fills a polygon per line, at several times the
// cost, and these lines are most of what the editor draws.
namespace {

// The line in device pixels along its major axis (x) and minor axis (y), pixel centres on whole
// numbers; where the image's pixels lie in that frame.
struct Band {
    double x0, y0, x1, gradient, half;
    double ux, uy, cap;  // unit direction, and how far the caps reach beyond the ends
    long rows, first, last;
    uchar* bits;
    qsizetype along, across;
};

// Between its end columns a thin line covers two pixels of every column, split by where it
// crosses: y is carried in fixed point with 24 bits of fraction, as Wu's line does, so that a
// column costs a few integer operations. It drifts from the exact line by a thousandth of a
// pixel over ten thousand columns.
constexpr int kFraction = 24;
constexpr double kFixed = 16777216.0;

// Columns first + 1 .. last - 1 of a thin line, all of whose rows r and r + 1 are in the
// image; y is the line's minor coordinate at column `first`.
void thinInterior(const Band& b, QRgb colour, double y) {
    const auto step = static_cast<std::int64_t>(std::llround(b.gradient * kFixed));
    std::int64_t fy = std::llround(y * kFixed) + step;
    uchar* column = b.bits + (b.first + 1) * b.along;
    for (long i = b.first + 1; i < b.last; ++i, fy += step, column += b.along) {
        const long r = static_cast<long>(fy >> kFraction);
        const auto lower = static_cast<uint>(
            ((fy & ((std::int64_t{1} << kFraction) - 1)) * 255 + (1 << (kFraction - 1))) >>
            kFraction);
        cover(reinterpret_cast<QRgb*>(column + r * b.across), colour, 255 - lower);
        cover(reinterpret_cast<QRgb*>(column + (r + 1) * b.across), colour, lower);
    }
}

void thinColumns(const Band& b, QRgb colour) {
    double y = b.y0 + b.gradient * (b.first - b.x0);
    // Where every interior column's two rows lie inside the image, they take the fixed road.
    const double yEnd = y + b.gradient * static_cast<double>(b.last - b.first);
    const bool inside = b.last - b.first > 2 && std::min(y, yEnd) > 0.5 &&
                        std::max(y, yEnd) < static_cast<double>(b.rows) - 2.5 &&
                        static_cast<double>(b.rows) < 1e9;
    uchar* column = b.bits + b.first * b.along;
    const double x0 = b.x0 - b.cap, x1 = b.x1 + b.cap;
    for (long i = b.first; i <= b.last; ++i, y += b.gradient, column += b.along) {
        if (inside && i == b.first + 1) {
            thinInterior(b, colour, y - b.gradient);
            const long skipped = b.last - 1 - i;
            i += skipped;
            y += b.gradient * static_cast<double>(skipped);
            column += skipped * b.along;
            continue;
        }
        const double part =
            i == b.first || i == b.last ? std::min(i + 0.5, x1) - std::max(i - 0.5, x0) : 1.0;
        if (!(y > -2.0 && y < b.rows + 1.0)) {
            continue;
        }
        const long r = static_cast<long>(y + 2.0) - 2;  // the row at or above y
        const auto lower = static_cast<uint>(part * (y - static_cast<double>(r)) * 255.0 + 0.5);
        const uint upper = static_cast<uint>(part * 255.0 + 0.5) - lower;
        if (r >= 0 && r < b.rows) {
            cover(reinterpret_cast<QRgb*>(column + r * b.across), colour, upper);
        }
        if (r + 1 >= 0 && r + 1 < b.rows) {
            cover(reinterpret_cast<QRgb*>(column + (r + 1) * b.across), colour, lower);
        }
    }
}

// Columns from .. to of a wide line away from its caps, each a run of rows between its two
// partly covered edges, all inside the image; y is the line's minor coordinate at `from`. The
// band's top + 1/2 is carried in fixed point as in thinInterior: its whole part is the first
// row, its fraction what that row lacks; the bottom is a whole width further.
void wideInterior(const Band& b, QRgb colour, long from, long to, double y) {
    const auto step = static_cast<std::int64_t>(std::llround(b.gradient * kFixed));
    const auto across = static_cast<std::int64_t>(std::llround(2.0 * b.half * kFixed));
    constexpr std::int64_t kUnit = std::int64_t{1} << kFraction, kMask = kUnit - 1;
    std::int64_t top = std::llround((y - b.half + 0.5) * kFixed);
    uchar* column = b.bits + from * b.along;
    for (long i = from; i <= to; ++i, top += step, column += b.along) {
        const std::int64_t bottom = top + across;
        const long firstRow = static_cast<long>(top >> kFraction);
        const long lastRow = static_cast<long>(bottom >> kFraction);
        cover(reinterpret_cast<QRgb*>(column + firstRow * b.across), colour,
              static_cast<uint>(((kUnit - (top & kMask)) * 255 + kUnit / 2) >> kFraction));
        for (long r = firstRow + 1; r < lastRow; ++r) {
            *reinterpret_cast<QRgb*>(column + r * b.across) = colour;
        }
        cover(reinterpret_cast<QRgb*>(column + lastRow * b.across), colour,
              static_cast<uint>(((bottom & kMask) * 255 + kUnit / 2) >> kFraction));
    }
}

// One column of a wide line, with the caps' softening where it is near an end.
void wideColumn(const Band& b, QRgb colour, long i, double y, uchar* column, bool nearEnd) {
    // The caps' lines, square to the direction: a pixel's centre is inside by its distance past
    // the first and short of the second, half a pixel of it softened.
    const double sx = b.x0 - b.ux * b.cap, sy = b.y0 - b.uy * b.cap;
    const double ex = b.x1 + b.ux * b.cap, ey = b.y0 + b.gradient * (b.x1 - b.x0) + b.uy * b.cap;
    const double top = std::max(y - b.half, -1.0), bottom = std::min(y + b.half, b.rows + 0.0);
    if (!(top < bottom)) {
        return;
    }
    // Rows r cover r - 0.5 .. r + 0.5: the first and last partly, those between wholly.
    const long firstRow = std::max(0L, static_cast<long>(top + 1.5) - 1);
    const long lastRow = std::min(b.rows - 1L, static_cast<long>(bottom + 1.5) - 1);
    // Along an axis (the weights window's scales and ticks, the knot pane's line) the caps cut
    // every row of a column alike: their share is worked out once, with the arithmetic below,
    // whose row term is then a zero. A column they leave out is left alone.
    const bool level = nearEnd && b.uy == 0.0;
    double caps = 1.0;
    if (level) {
        caps = std::clamp((i - sx) * b.ux + 0.5, 0.0, 1.0) *
               std::clamp((ex - i) * b.ux + 0.5, 0.0, 1.0);
        if (caps == 0.0) {
            return;
        }
    }
    for (long r = firstRow; r <= lastRow; ++r) {
        double inside = r == firstRow || r == lastRow
                            ? std::min(r + 0.5, bottom) - std::max(r - 0.5, top)
                            : 1.0;
        if (level) {
            inside *= caps;
        } else if (nearEnd) {
            const double past = (i - sx) * b.ux + (r - sy) * b.uy + 0.5;
            const double before = (ex - i) * b.ux + (ey - r) * b.uy + 0.5;
            inside *= std::clamp(past, 0.0, 1.0) * std::clamp(before, 0.0, 1.0);
        }
        cover(reinterpret_cast<QRgb*>(column + r * b.across), colour,
              static_cast<uint>(inside * 255.0 + 0.5));
    }
}

void wideColumns(const Band& b, QRgb colour) {
    const double soft = b.cap + 2.0;  // columns this near an end may meet a cap
    const double y0 = b.y0 + b.gradient * (b.first - b.x0);
    const auto yAt = [&](long i) { return y0 + b.gradient * static_cast<double>(i - b.first); };
    // The columns away from both caps, when the whole band stays inside the image there.
    long from = std::max(b.first, static_cast<long>(std::ceil(std::max(b.x0 + soft, -1e9))));
    long to = std::min(b.last, static_cast<long>(std::floor(std::min(b.x1 - soft, 1e9))));
    const bool inside = from <= to && b.half >= 0.5 &&
                        std::min(yAt(from), yAt(to)) - b.half >= 0.0 &&
                        std::max(yAt(from), yAt(to)) + b.half < b.rows - 1.0;
    if (!inside) {
        from = b.last + 1;  // none
        to = b.last;
    }
    uchar* column = b.bits + b.first * b.along;
    for (long i = b.first; i <= b.last; ++i, column += b.along) {
        if (i == from) {
            wideInterior(b, colour, from, to, yAt(from));
            column += (to - i) * b.along;
            i = to;
            continue;
        }
        wideColumn(b, colour, i, yAt(i), column, i < b.x0 + soft || i > b.x1 - soft);
    }
}

}  // namespace

void paintLine(QImage& image, QPointF a, QPointF b, QRgb colour, double width) {
    // Device pixels, with pixel centres on whole numbers.
    const double ratio = image.devicePixelRatio();
    double x0 = a.x() * ratio - 0.5, y0 = a.y() * ratio - 0.5;
    double x1 = b.x() * ratio - 0.5, y1 = b.y() * ratio - 0.5;
    width *= ratio;
    const bool steep = std::fabs(y1 - y0) > std::fabs(x1 - x0);
    if (steep) {
        std::swap(x0, y0);
        std::swap(x1, y1);
    }
    if (x0 > x1) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    const double dx = x1 - x0, dy = y1 - y0;
    const double length = std::sqrt(dx * dx + dy * dy);
    Band band{};
    band.x0 = x0;
    band.y0 = y0;
    band.x1 = x1;
    band.gradient = dx > 0.0 ? dy / dx : 0.0;
    band.half = width <= 1.0 ? 0.5 : width / 2 * std::sqrt(1.0 + band.gradient * band.gradient);
    // A line of no length is the width's square.
    band.ux = length > 0.0 ? dx / length : 1.0;
    band.uy = length > 0.0 ? dy / length : 0.0;
    band.cap = width / 2;
    const int columns = steep ? image.height() : image.width();
    band.rows = steep ? image.width() : image.height();
    // Wide lines reach across the caps' corners by up to half their width more.
    const double reach = width <= 1.0 ? band.cap * band.ux : band.cap + band.half;
    const double first = std::max(0.0, std::ceil(x0 - reach - 0.5));
    const double last = std::min(columns - 1.0, std::floor(x1 + reach + 0.5));
    if (first > last || !(band.half < band.rows)) {
        return;
    }
    band.first = static_cast<long>(first);
    band.last = static_cast<long>(last);
    band.bits = image.bits();
    const qsizetype stride = image.bytesPerLine();
    // Along the major axis a step is a pixel; across it, a row of pixels (steep) or one pixel.
    band.along = steep ? stride : static_cast<qsizetype>(sizeof(QRgb));
    band.across = steep ? static_cast<qsizetype>(sizeof(QRgb)) : stride;
    if (width <= 1.0) {
        band.cap = band.cap * band.ux;  // along the major axis
        thinColumns(band, colour);
    } else {
        wideColumns(band, colour);
    }
}

void paintPolyline(QImage& image, const std::vector<QPointF>& points, const QColor& colour,
                   int width) {
    if (points.empty()) {
        return;
    }
    const QRgb rgb = colour.rgba();
    paintLine(image, points[0], points[points.size() > 1 ? 1 : 0], rgb, width);
    for (std::size_t i = 2; i < points.size(); ++i) {
        paintLine(image, points[i - 1], points[i], rgb, width);
    }
}

// --- DiscSprites -------------------------------------------------------------------------------

bool DiscSprites::Key::operator==(const Key& o) const {
    return radiusBits == o.radiusBits && ratioBits == o.ratioBits && pen == o.pen &&
           fill == o.fill && width == o.width && filled == o.filled && quarterX == o.quarterX &&
           quarterY == o.quarterY && times == o.times;
}

std::size_t DiscSprites::KeyHash::operator()(const Key& k) const {
    std::size_t h = std::hash<std::uint64_t>()(k.radiusBits);
    for (const std::uint64_t part : {k.ratioBits, std::uint64_t{k.pen}, std::uint64_t{k.fill},
                                     static_cast<std::uint64_t>(k.width) * 2 + (k.filled ? 1 : 0),
                                     static_cast<std::uint64_t>(k.quarterX * 4 + k.quarterY),
                                     std::uint64_t{k.times}}) {
        h = h * 1000003u ^ std::hash<std::uint64_t>()(part);
    }
    return h;
}

void DiscSprites::setStyle(QPainter& painter, const Style& style) {
    painter.setPen(QPen(QColor::fromRgba(style.pen), style.width));
    painter.setBrush(style.filled ? QBrush(QColor::fromRgba(style.fill)) : QBrush(Qt::NoBrush));
}

DiscSprites::Sprite DiscSprites::render(const Style& style, double radius, qreal ratio, int half,
                                        double fx, double fy) {
    const int side = 2 * half + 1;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(ratio);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        setStyle(painter, style);
        painter.drawEllipse(QPointF((half + fx) / ratio, (half + fy) / ratio), radius, radius);
    }
    overtekend(image, style.times);
    Sprite sprite;
    sprite.side = side;
    for (int y = 0; y < side; ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < side;) {
            if (row[x] == 0) {
                ++x;
                continue;
            }
            const bool opaque = qAlpha(row[x]) == 255;
            int end = x + 1;
            while (end < side && row[end] != 0 && (qAlpha(row[end]) == 255) == opaque) {
                ++end;
            }
            sprite.runs.push_back({x, y, end - x, sprite.pixels.size(), opaque});
            sprite.pixels.insert(sprite.pixels.end(), row + x, row + end);
            x = end;
        }
    }
    return sprite;
}

// A premultiplied pixel p of alpha a drawn n times over any background d gives
// p (1 + (1 - a) + ... + (1 - a)^(n - 1)) + d (1 - a)^n: once the pixel p (1 - (1 - a)^n) / a.
// Opaque pixels stay as they are.
void DiscSprites::overtekend(QImage& image, std::uint32_t times) {
    if (times <= 1) {
        return;
    }
    double factor[256];
    for (int a = 1; a < 256; ++a) {
        const double alpha = a / 255.0;
        factor[a] = (1.0 - std::pow(1.0 - alpha, static_cast<double>(times))) / alpha;
    }
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int a = qAlpha(row[x]);
            if (a == 0 || a == 255) {
                continue;
            }
            const auto scaled = [&](int c) {
                return std::min(255, static_cast<int>(std::lround(c * factor[a])));
            };
            const int na = scaled(a);
            row[x] = qRgba(std::min(na, scaled(qRed(row[x]))), std::min(na, scaled(qGreen(row[x]))),
                           std::min(na, scaled(qBlue(row[x]))), na);
        }
    }
}

// Source-over, clipped to the target, with the rounding of the painter's own copy of an image.
void DiscSprites::copy(QImage& target, const Sprite& sprite, long left, long top) {
    uchar* bits = target.bits();
    const qsizetype stride = target.bytesPerLine();
    const long width = target.width(), height = target.height();
    const bool inside =
        left >= 0 && top >= 0 && left + sprite.side <= width && top + sprite.side <= height;
    for (const Run& run : sprite.runs) {
        long from = left + run.x, to = from + run.count;
        const long y = top + run.y;
        if (!inside) {
            from = std::max(0L, from);
            to = std::min(width, to);
            if (y < 0 || y >= height || from >= to) {
                continue;
            }
        }
        auto* pixel = reinterpret_cast<QRgb*>(bits + y * stride) + from;
        const QRgb* colour = sprite.pixels.data() + run.first + (from - left - run.x);
        if (run.opaque) {
            for (long i = 0; i < to - from; ++i) {
                pixel[i] = colour[i];
            }
            continue;
        }
        for (long i = 0; i < to - from; ++i) {
            pixel[i] = colour[i] + byteMul(pixel[i], 255 - qAlpha(colour[i]));
        }
    }
}

bool DiscSprites::paint(QImage& target, QPointF centre, double radius, const Style& style) {
    const qreal ratio = target.devicePixelRatio();
    const double extent = (radius + style.width / 2.0) * ratio;
    const double cx = centre.x() * ratio, cy = centre.y() * ratio;
    // Only whole pixel ratios copy pixel for pixel.
    if (!(extent <= kMaxSpriteHalf - 2) || ratio != std::floor(ratio) ||
        !(std::fabs(cx) < kMaxSpritePosition && std::fabs(cy) < kMaxSpritePosition)) {
        return false;
    }
    long ix = 0, iy = 0;
    int qx = 0, qy = 0;
    quarters(cx, ix, qx);
    quarters(cy, iy, qy);
    const int half = static_cast<int>(std::ceil(extent)) + 2;
    const Key key{bitsOf(radius), bitsOf(ratio), style.pen, style.fill, style.width,
                  style.filled,   qx,            qy,        style.times};
    auto found = sprites_.find(key);
    if (found == sprites_.end()) {
        if (sprites_.size() >= kMaxSprites) {
            sprites_.clear();
        }
        found = sprites_.emplace(key, render(style, radius, ratio, half, qx / 4.0, qy / 4.0)).first;
    }
    copy(target, found->second, ix - half, iy - half);
    return true;
}

}  // namespace zw
