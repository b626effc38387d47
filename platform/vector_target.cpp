#include "platform/vector_target.h"

#include <QPainter>
#include <QPen>

namespace zw {

void VectorTarget::clear(const QColor& background) {
    items_.clear();
    items_.push_back({Kind::kBackground, background, 1, {}, 0.0, {}});
}

void VectorTarget::polyline(const std::vector<QPointF>& points, const QColor& colour, int width) {
    if (!points.empty()) {
        items_.push_back({Kind::kPolyline, colour, width, points, 0.0, {}});
    }
}

void VectorTarget::circle(QPointF centre, double radius, const DiscSprites::Style& style) {
    items_.push_back({Kind::kCircle, QColor(), style.width, {centre}, radius, style});
}

// The screen paints a run of lines segment by segment with square caps; one path with round
// joins looks the same at its ends and smoother at its bends, and a viewer draws it in one go.
// The points are moved rather than the painter, so that a vector file holds them where they are
// seen.
void VectorTarget::paint(QPainter& painter, const QRectF& area) const {
    const QPointF offset = area.topLeft();
    std::vector<QPointF> points;
    for (const Item& item : items_) {
        points.clear();
        for (const QPointF& p : item.points) {
            points.push_back(p + offset);
        }
        switch (item.kind) {
            case Kind::kBackground:
                painter.fillRect(area, item.colour);
                break;
            case Kind::kPolyline:
                painter.setPen(
                    QPen(item.colour, item.width, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
                painter.setBrush(Qt::NoBrush);
                if (points.size() == 1) {
                    // A line of no length still shows its square cap.
                    painter.drawLine(points[0], points[0]);
                } else {
                    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
                }
                break;
            case Kind::kCircle:
                DiscSprites::setStyle(painter, item.style);
                painter.drawEllipse(points[0], item.radius, item.radius);
                break;
        }
    }
}

}  // namespace zw
