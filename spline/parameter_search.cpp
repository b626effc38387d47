#include "spline/parameter_search.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/coordinaten.h"
#include "geometry/mat.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "spline/blossom_functie.h"
#include "weights/gewichten_form.h"

namespace zw {

namespace {

// A piece is dropped when it cannot hold a point this much nearer than the best one found.
constexpr double kTolerance = 0.25;

// The hull is computed along another road than the drawn point; allow for the difference in the
// last bits before rounding.
double slack(double x) {
    return 1e-9 * (1.0 + std::fabs(x));
}

}  // namespace

bool ParameterSearch::laterPiece(const Piece& a, const Piece& b) {
    return a.bound > b.bound;
}

ParameterSearch::ParameterSearch(MainWindow& window, float zoekfractie, float zoekgrens)
    : window_(window), zoekfractie_(zoekfractie), zoekgrens_(zoekgrens) {}

void ParameterSearch::run(const Punt& punt, double& t) {
    const coordinaten& polygon = window_.polygoon();
    const KnoopVector& vec = window_.vec();
    k_ = wholeOrder(polygon.orde);
    target_ = punt;
    const float segments = addSingle(addSingle(vec.knopenlengte, -multiplySingle(2.0f, k_)), 1.0f);
    forSingle(1.0f, segments, 1.0f, [&](float segment) {
        const float first = addSingle(static_cast<float>(k_ - 2), segment);
        seedSegment(segment, vec.knoop(first), vec.knoop(addSingle(first, 1.0f)));
    });
    float splits = 0.0f;
    while (!heap_.empty() && splits < zoekgrens_) {
        std::pop_heap(heap_.begin(), heap_.end(), laterPiece);
        Piece piece = std::move(heap_.back());
        heap_.pop_back();
        if (piece.bound >= bestDistance_ - kTolerance) {
            break;
        }
        split(piece);
        splits = addSingle(splits, 1.0f);
    }
    if (found_) {
        t = bestT_;
    }
}

void ParameterSearch::seedSegment(float segment, double a, double b) {
    consider(a, segment);
    if (!(b > a)) {
        return;
    }
    const double step = (b - a) * zoekfractie_;
    double lo = a;
    for (int j = 1; lo < b; ++j) {
        const double hi = j * zoekfractie_ >= 1.0f ? b : std::min(b, a + j * step);
        consider(hi, segment);
        push(makePiece(segment, lo, hi));
        lo = hi;
    }
}

// The Bezier points of the piece are the blossoms with lo and hi repeated: lo k-1-i times, then
// hi i times.
ParameterSearch::Piece ParameterSearch::makePiece(float segment, double lo, double hi) {
    const coordinaten& polygon = window_.polygoon();
    const GewichtenForm& gewichten = window_.gewichten();
    const BlossomFunctie& evaluator = window_.evaluator();
    Piece piece;
    piece.lo = lo;
    piece.hi = hi;
    piece.segment = segment;
    piece.hull.assign(3 * static_cast<std::size_t>(k_), 0.0);
    Array<double> argumenten(k_ - 1);
    for (std::int32_t i = 0; i < k_; ++i) {
        for (std::int32_t a = 0; a < k_; ++a) {
            argumenten(a) = a < k_ - 1 - i ? lo : hi;
        }
        const Array<double> c = evaluator.blossom(argumenten, segment);
        double* h = &piece.hull[3 * static_cast<std::size_t>(i)];
        for (std::int32_t j = 0; j < k_; ++j) {
            const float index = addSingle(segment - 1.0f, static_cast<float>(j));
            if (index > polygon.graad) {
                continue;
            }
            const Punt& p = polygon.punten(index);
            const double w = gewichten.gewicht(index) * c(j);
            h[0] += w * p.X;
            h[1] += w * p.Y;
            h[2] += w;
        }
    }
    piece.bound = lowerBound(piece.hull);
    return piece;
}

void ParameterSearch::split(const Piece& piece) {
    const double mid = piece.lo + (piece.hi - piece.lo) / 2.0;
    if (!(mid > piece.lo && mid < piece.hi)) {
        return;
    }
    consider(mid, piece.segment);
    // de Casteljau at the middle: the first points of every level span the left half, the last
    // points the right half.
    const std::size_t n = static_cast<std::size_t>(k_);
    std::vector<double> level = piece.hull;
    Piece left{piece.lo, mid, piece.segment, 0.0, std::vector<double>(3 * n)};
    Piece right{mid, piece.hi, piece.segment, 0.0, std::vector<double>(3 * n)};
    for (std::size_t r = 0; r < n; ++r) {
        for (std::size_t c = 0; c < 3; ++c) {
            left.hull[3 * r + c] = level[c];
            right.hull[3 * (n - 1 - r) + c] = level[3 * (n - 1 - r) + c];
        }
        for (std::size_t i = 0; i + 1 < n - r; ++i) {
            for (std::size_t c = 0; c < 3; ++c) {
                level[3 * i + c] = (level[3 * i + c] + level[3 * (i + 1) + c]) / 2.0;
            }
        }
    }
    left.bound = lowerBound(left.hull);
    right.bound = lowerBound(right.hull);
    push(std::move(left));
    push(std::move(right));
}

void ParameterSearch::consider(double t, float segment) {
    const BlossomFunctie& evaluator = window_.evaluator();
    Array<double> argumenten(k_ - 1);
    for (std::int32_t a = 0; a < k_; ++a) {
        argumenten(a) = t;
    }
    const Punt p = window_.polygoon().zoek_coord(evaluator.blossom(argumenten, segment),
                                                  addSingle(segment, -1.0f));
    const double d = Mat().bereken_afstand(p, target_);
    if (!found_ || d < bestDistance_) {
        found_ = true;
        bestT_ = t;
        bestDistance_ = d;
    }
}

double ParameterSearch::lowerBound(const std::vector<double>& hull) const {
    double xmin = HUGE_VAL, xmax = -HUGE_VAL, ymin = HUGE_VAL, ymax = -HUGE_VAL;
    for (std::size_t i = 0; i + 2 < hull.size(); i += 3) {
        const double w = hull[i + 2];
        if (!(w > 0.0)) {
            return 0.0;  // the hull property needs positive weights
        }
        const double x = hull[i] / w;
        const double y = hull[i + 1] / w;
        if (!std::isfinite(x) || !std::isfinite(y)) {
            return 0.0;
        }
        xmin = std::min(xmin, x);
        xmax = std::max(xmax, x);
        ymin = std::min(ymin, y);
        ymax = std::max(ymax, y);
    }
    const double left = roundHalfEven(xmin - slack(xmin));
    const double right = roundHalfEven(xmax + slack(xmax));
    const double top = roundHalfEven(ymin - slack(ymin));
    const double bottom = roundHalfEven(ymax + slack(ymax));
    const double dx = std::max({left - target_.X, 0.0, target_.X - right});
    const double dy = std::max({top - target_.Y, 0.0, target_.Y - bottom});
    return std::sqrt(dx * dx + dy * dy);
}

void ParameterSearch::push(Piece piece) {
    if (found_ && piece.bound >= bestDistance_ - kTolerance) {
        return;
    }
    heap_.push_back(std::move(piece));
    std::push_heap(heap_.begin(), heap_.end(), laterPiece);
}

}  // namespace zw
