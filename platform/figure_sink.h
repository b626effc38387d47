// What a surface painted while a figure was attached (Surface::setFigure), kept as primitives in
// its logical pixels, in order: backgrounds, polylines (after the surface's thinning), circles
// and texts. The list is painted again on any sink: the raster sink for a PNG figure, so that it
// looks as the screen does, or QPainter for SVG and PDF files of real lines, circles and text
// (platform/figure_painter.h).
#pragma once

#include <string>
#include <vector>

#include "platform/sink.h"

namespace zw {

class FigureSink final : public Sink {
  public:
    enum class Kind { kBackground, kPolyline, kCircle, kText };
    struct Item {
        Kind kind = Kind::kBackground;
        Colour colour = kBlack;  // backgrounds and polylines
        int width = 1;           // polylines
        std::vector<PixelPoint> points;  // a circle's centre and a text's point are its one
        double radius = 0.0;
        DiscStyle disc;
        std::string text;
        TextStyle textStyle;
    };

    void clear(Colour background) override;
    // A layer drawn over another adds to the figure: nothing of it is cleared.
    void clearTransparent() override {}
    void polyline(const PixelPoint* points, std::size_t count, Colour colour, int width) override;
    void circle(PixelPoint centre, double radius, const DiscStyle& style) override;
    void text(PixelPoint at, const std::string& utf8, const TextStyle& style) override;

    bool empty() const { return items_.empty(); }
    const std::vector<Item>& items() const { return items_; }
    // Everything, in order, into another sink.
    void replay(Sink& sink) const;

  private:
    std::vector<Item> items_;
};

}  // namespace zw
