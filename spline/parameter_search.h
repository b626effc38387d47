// The parameter of the drawn curve point nearest to a canvas point.
//
// A global branch-and-bound over all segments, so no local minimum can catch it. Every segment is
// cut into pieces of zoekfractie of its interval; a piece of a rational curve with positive
// weights lies in the convex hull of its Bezier points (blossoms of the piece's end parameters,
// Ramshaw), so the distance to the hull's bounding box bounds the distance from below. Curve
// points are drawn rounded to whole units, and rounding is monotone, so the box rounded outward
// bounds the drawn points too. The piece with the lowest bound is split in two by de Casteljau's
// algorithm on the homogeneous Bezier points and its midpoint evaluated as the curve is drawn,
// until no piece can hold a point more than a quarter unit nearer than the best one found, or
// zoekgrens pieces have been split.
#pragma once

#include <cstdint>
#include <vector>

#include "geometry/punt.h"
#include "platform/main_window.h"

namespace zw {

class ParameterSearch {
  public:
    ParameterSearch(MainWindow& window, float zoekfractie, float zoekgrens);

    // Sets t to the parameter found; with no segment to search t stays as it is.
    void run(const Punt& punt, double& t);

  private:
    // A parameter interval of one segment with the homogeneous Bezier points (wx, wy, w) of the
    // curve over it.
    struct Piece {
        double lo = 0.0;
        double hi = 0.0;
        float segment = 0.0f;
        double bound = 0.0;
        std::vector<double> hull;  // 3 k values
    };

    // Heap order: the piece with the lowest bound comes first.
    static bool laterPiece(const Piece& a, const Piece& b);
    void seedSegment(float segment, double a, double b);
    Piece makePiece(float segment, double lo, double hi);
    void split(const Piece& piece);
    void consider(double t, float segment);
    double lowerBound(const std::vector<double>& hull) const;
    void push(Piece piece);

    MainWindow& window_;
    float zoekfractie_;
    float zoekgrens_;
    std::int32_t k_ = 0;
    Punt target_;
    bool found_ = false;
    double bestT_ = 0.0;
    double bestDistance_ = 0.0;
    std::vector<Piece> heap_;
};

}  // namespace zw
