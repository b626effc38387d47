// What a surface painted, kept as vector primitives in its logical pixels: filled backgrounds,
// polylines and circles, in the order they were painted. A surface hands them on while a target
// is attached (Surface::setVectorTarget), after its own thinning of the lines, so that the
// drawing can be painted again on any QPainter: an SVG or PDF file as real lines and circles, or
// an image of another pixel ratio.
#pragma once

#include <vector>

#include <QColor>
#include <QPointF>

#include "platform/strokes.h"

class QPainter;

namespace zw {

class VectorTarget {
  public:
    // The surface was cleared: what came before is gone under its background.
    void clear(const QColor& background);
    void polyline(const std::vector<QPointF>& points, const QColor& colour, int width);
    void circle(QPointF centre, double radius, const DiscSprites::Style& style);

    bool empty() const { return items_.empty(); }
    // Paints everything with the surface's top left at the area's, a background over the area.
    void paint(QPainter& painter, const QRectF& area) const;

  private:
    enum class Kind { kBackground, kPolyline, kCircle };
    struct Item {
        Kind kind;
        QColor colour;
        int width = 1;
        std::vector<QPointF> points;  // a circle's centre is its one point
        double radius = 0.0;
        DiscSprites::Style style{};
    };
    std::vector<Item> items_;
};

}  // namespace zw
