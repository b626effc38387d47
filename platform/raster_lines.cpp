#include "platform/raster_lines.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace zw {

namespace {

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

void paintLine(QImage& image, PixelPoint a, PixelPoint b, QRgb colour, double width) {
    // Device pixels, with pixel centres on whole numbers.
    const double ratio = image.devicePixelRatio();
    double x0 = a.x * ratio - 0.5, y0 = a.y * ratio - 0.5;
    double x1 = b.x * ratio - 0.5, y1 = b.y * ratio - 0.5;
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

void paintPolyline(QImage& image, const PixelPoint* points, std::size_t count, QRgb colour,
                   int width) {
    if (count == 0) {
        return;
    }
    paintLine(image, points[0], points[count > 1 ? 1 : 0], colour, width);
    for (std::size_t i = 2; i < count; ++i) {
        paintLine(image, points[i - 1], points[i], colour, width);
    }
}

}  // namespace zw
