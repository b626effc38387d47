// The construction of one curve point: de Boor's algorithm level by level, every point with its
// blossom (polar form) as a label, and the tangent through the two points of the last level but
// one. The model of the construction view; drawing it is the view's business.
//
// The curve is taken as plain values (ConstructieKromme), so the construction needs no window;
// kromme_van copies them out of the editor's model.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "geometry/punt.h"
#include "platform/main_window.h"

namespace zw {

// A curve of order k: L knots, L - k control points (indexes 0 .. graad) and one weight per
// point. No weights at all is the polynomial curve, every weight 1.
struct ConstructieKromme {
    std::vector<double> knopen;
    std::vector<Punt> punten;
    std::vector<double> gewichten;
    int orde = 0;
};

// The editor's curve: knots 0 .. L - 1, points 0 .. graad and their weights. A polygon slot
// without a point raises error 91, an order that is no whole number error 5.
ConstructieKromme kromme_van(MainWindow& window);

// The real range of the curve, knot k - 1 to knot L - k.
struct Bereik {
    double begin = 0.0;
    double eind = 0.0;
    // t moved into the range; NaN goes to its start.
    double klem(double t) const;
};

// Empty when the curve has no segment (fewer points than its order).
std::optional<Bereik> echt_bereik(const ConstructieKromme& kromme);

// One level of the triangle: level r holds k - r points, point j being the point of index
// Constructie::eersteIndex + r + j, with the same number of labels.
struct ConstructieNiveau {
    std::vector<Punt> punten;
    std::vector<std::string> labels;
};

struct Constructie {
    // The editor's number of the segment that holds t, counted from 1; its control points are
    // eersteIndex .. eersteIndex + k - 1.
    int segment = 0;
    int eersteIndex = 0;
    // Levels 0 .. k - 1: the segment's control points down to the curve point.
    std::vector<ConstructieNiveau> niveaus;
    Punt krommepunt;
    // The two points of level k - 2, on the tangent at the curve point and in the direction of
    // increasing t; order 1 has none.
    bool heeftRaaklijn = false;
    Punt raakA;
    Punt raakB;
};

// The construction at t, clamped into the real range; empty when the curve has no segment.
// Rational curves are constructed on their weighted points (x w, y w, w); the points given are
// the projected ones (x, y). Inconsistent sizes (L knots, L - k points, as many weights or none)
// raise error 9; a weighted point of weight 0 the classic division faults.
std::optional<Constructie> bouw_constructie(const ConstructieKromme& kromme, double t);

// "de Casteljau" for a curve of one segment whose k knots at each end lie within 1e-5 of each
// other (the Bezier curve, where de Boor's algorithm is de Casteljau's), "de Boor" otherwise.
std::string algoritme_naam(const ConstructieKromme& kromme);

// The k basis functions of control points eersteIndex .. eersteIndex + k - 1 at t, which lies in
// their span (knot eersteIndex + k - 1 up to the next); with the curve's weights the rational
// ones, which add up to 1. An interval of no length adds nothing.
std::vector<double> basiswaarden(const ConstructieKromme& kromme, int eersteIndex, double t);

// A number of a label: at most three decimals, no trailing zeros ("1", "2.5", "-0.125").
std::string kort_getal(double x);

}  // namespace zw
