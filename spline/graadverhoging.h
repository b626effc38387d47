// Degree elevation: order k to k + 1, the same curve over the same real range. Every knot of the
// real range gets a second knot of its value (knots within 1e-5 of each other count as one), and
// each new control point is the mean of old blossom values: the raised piece's blossom is
// g(v_1, ..., v_k) = (1/k) sum_j f(v_1, ..., v_k without v_j), and a control point is the
// blossom of any piece in its support at its knots.
#pragma once

#include <optional>
#include <vector>

#include "geometry/punt.h"

namespace zw {

struct Verhoogd {
    std::vector<double> knopen;
    std::vector<Punt> punten;  // as the polygon keeps them: Singles
    std::vector<double> x, y;  // the same in full precision
    std::vector<double> gewichten;  // one per point
    int orde = 0;
};

// Plain values: L knots, L - k points and as many weights (none: all 1). Empty when the curve has
// no segment or its order is not below 16; sizes that do not fit raise error 9.
std::optional<Verhoogd> verhoog_graad(const std::vector<double>& knopen,
                                      const std::vector<Punt>& punten,
                                      const std::vector<double>& gewichten, int orde);

}  // namespace zw
