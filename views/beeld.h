// The derived views of the curve, drawn over it on the canvas: its Bezier notation and the two
// colouring views that make the locality of a B-spline visible (the segments a control point acts
// on, the control points acting on a segment).
#pragma once

#include "geometry/punt.h"
#include "platform/array.h"
#include "platform/main_window.h"

namespace zw {

class Beeld {
  public:
    explicit Beeld(MainWindow& window) : window_(window) {}

    // The control polygon of every segment written as a Bezier curve, joined into one polygon
    // with a dot at every point. Too few knots for the order leave no segment and draw nothing.
    void bereken_bezier_notatie();
    // The segments control point `index` acts on, redrawn in the segment colour, and the point
    // marked.
    void kleur_segmenten(float index);
    // The segment that holds t, redrawn in the segment colour, and its control points marked.
    void kleur_controlepunten(float t);

  private:
    // The first `aantal` points as a polygon with dots.
    void teken_bezierpunten(const Array<Punt>& punten, float aantal);

    MainWindow& window_;
};

}  // namespace zw
