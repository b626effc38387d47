// A figure painted by QPainter, for the vector files (SVG, PDF): lines, circles and text that a
// viewer draws itself.
#pragma once

#include <QRectF>

#include "platform/figure_sink.h"

class QPainter;

namespace zw {

// Everything with the surface's top left at the area's, a background over the area. A run of
// lines is one path with round joins, which looks as the screen's square-capped segments do at
// its ends and smoother at its bends; a disc is drawn once, its edge being exact. The points are
// moved rather than the painter, so that a vector file holds them where they are seen.
void paintFigure(QPainter& painter, const FigureSink& figure, const QRectF& area);

}  // namespace zw
