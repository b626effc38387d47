// Small discs painted from images made once.
#pragma once

#include <QColor>
#include <QImage>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "platform/sink.h"

class QPainter;

namespace zw {

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
    bool paint(QImage& target, PixelPoint centre, double radius, const Style& style);
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
