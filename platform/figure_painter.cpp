#include "platform/figure_painter.h"

#include <QPainter>
#include <QPen>
#include <vector>

#include "platform/qimage_sink.h"

namespace zw {

void paintFigure(QPainter& painter, const FigureSink& figure, const QRectF& area) {
    const QPointF offset = area.topLeft();
    std::vector<QPointF> points;
    for (const FigureSink::Item& item : figure.items()) {
        points.clear();
        for (const PixelPoint& p : item.points) {
            points.push_back(QPointF(p.x, p.y) + offset);
        }
        switch (item.kind) {
            case FigureSink::Kind::kBackground:
                painter.fillRect(area, toQColor(item.colour));
                break;
            case FigureSink::Kind::kPolyline:
                painter.setPen(QPen(toQColor(item.colour), item.width, Qt::SolidLine,
                                    Qt::SquareCap, Qt::RoundJoin));
                painter.setBrush(Qt::NoBrush);
                if (points.size() == 1) {
                    // A line of no length still shows its square cap.
                    painter.drawLine(points[0], points[0]);
                } else {
                    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
                }
                break;
            case FigureSink::Kind::kCircle:
                painter.setPen(QPen(toQColor(item.disc.pen), item.disc.width));
                painter.setBrush(item.disc.filled ? QBrush(toQColor(item.disc.fill))
                                                  : QBrush(Qt::NoBrush));
                painter.drawEllipse(points[0], item.radius, item.radius);
                break;
            case FigureSink::Kind::kText:
                paintText(painter, points[0], item.text, item.textStyle);
                break;
        }
    }
}

}  // namespace zw
