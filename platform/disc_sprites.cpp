#include "platform/disc_sprites.h"

#include <QPainter>
#include <QPen>
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

}  // namespace

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

bool DiscSprites::paint(QImage& target, PixelPoint centre, double radius, const Style& style) {
    const qreal ratio = target.devicePixelRatio();
    const double extent = (radius + style.width / 2.0) * ratio;
    const double cx = centre.x * ratio, cy = centre.y * ratio;
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
