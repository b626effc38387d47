#include "spline/point_blossom.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "platform/array.h"
#include "platform/numeric.h"
#include "platform/runtime_error.h"
#include "platform/werk.h"
#include "spline/blossom_engine.h"

namespace zw {

std::int32_t increasingKnots(const double* knots, std::size_t knotCount, float L) {
    if (!(L >= 1.0f)) {
        return 0;
    }
    const auto count =
        static_cast<std::int32_t>(std::min(static_cast<double>(L), static_cast<double>(knotCount)));
    std::int32_t n = 1;
    while (n < count && knots[n - 1] < knots[n]) {
        ++n;
    }
    werk(static_cast<std::uint64_t>(n));
    return n;
}

PointBlossom::PointBlossom(const double* knots, std::size_t knotCount, float L, std::int32_t k,
                           float sigma, KnotOrder* order)
    : knots_(knots), knotCount_(knotCount), L_(L), k_(k), sigma_(sigma), order_(order) {}

bool PointBlossom::applies(const double* args) {
    if (k_ < 2 || !isWhole(sigma_) || std::fabs(sigma_) > 1e9f) {
        return false;
    }
    if (!isWhole(L_) || L_ < 2.0f || static_cast<double>(L_) >= knotCount_) {
        return false;
    }
    t_ = args[0];
    for (std::int32_t i = 1; i < k_ - 1; ++i) {
        if (std::memcmp(&args[i], &t_, sizeof t_) != 0) {
            return false;
        }
    }
    const auto count = static_cast<std::int32_t>(L_);
    lastKnot_ = knots_[count - 1];
    // t strictly between two knots, inside the vector.
    if (!(t_ > knots_[0] && t_ < lastKnot_)) {
        return false;
    }
    // The run search of every list the walk meets starts at a knot s <= top and must find the
    // first knot not below it at s itself: the knots up to top must increase strictly.
    top_ = 1;
    const std::int32_t rising = order_ != nullptr && order_->increasing > 0
                                    ? static_cast<std::int32_t>(std::min(
                                          static_cast<std::size_t>(order_->increasing), knotCount_))
                                    : 0;
    if (rising > 1 && t_ < knots_[rising - 1]) {
        // Within rising knots the scan below stops at the first knot not below t: where the
        // last sample stood, or else where bisection finds it.
        std::int32_t g = order_->top;
        if (!(g >= 1 && g < rising && knots_[g - 1] < t_ && t_ <= knots_[g])) {
            g = static_cast<std::int32_t>(std::lower_bound(knots_ + 1, knots_ + rising, t_) -
                                          knots_);
        }
        top_ = g;
        order_->top = g;
    }
    while (knots_[top_] < t_) {
        if (!(knots_[top_ - 1] < knots_[top_])) {
            return false;
        }
        ++top_;
    }
    werk(static_cast<std::uint64_t>(top_));
    return knots_[top_ - 1] < knots_[top_] && knots_[top_] != t_;
}

const double* PointBlossom::evaluate(const double* args) {
    if (!applies(args)) {
        return nullptr;
    }
    const auto k = static_cast<std::size_t>(k_);
    const std::size_t nodes = k * (k + 1) / 2;
    if (static_cast<double>(nodes) * (k + 1) > static_cast<double>(kMaxArrayElements)) {
        return nullptr;  // the general recursion decides whether such an order fits at all
    }
    // Each node of the triangle is a combination of k + 1 values.
    werk(nodes * (k + 1));
    if (nodes > kInlineNodes || nodes * (k + 1) > kInlineValues) {
        heapValues_.assign(nodes * (k + 1), 0.0);
        heapDone_.assign(nodes, 0);
        values_ = heapValues_.data();
        done_ = heapDone_.data();
    }
    if (whole()) {
        return triangle();
    }
    std::fill(done_, done_ + nodes, 0);
    try {
        return node(0, top_);
    } catch (const Deviation&) {
        return nullptr;
    }
}

// Every list of the triangle is reached and none is cut short: the windows all start after knot
// 0, none reaches the last knot, and every knot they read increases strictly past t. The
// terminal lists then name control points top - k + 1 - sigma + m, and the triangle is reduced
// row by row, bottom up, with the recursion's arithmetic: any error it meets, the recursion meets
// as well.
bool PointBlossom::whole() const {
    const std::int32_t k = k_;
    const std::int32_t lowest = top_ - k + 1;
    const std::int32_t highest = top_ + k - 2;  // the last knot a window or an A reads
    if (lowest < 1 || static_cast<std::size_t>(highest) >= knotCount_ || sigma_ < 0.0f ||
        static_cast<std::int64_t>(sigma_) != lowest) {
        return false;
    }
    for (std::int32_t i = top_ + 1; i <= highest; ++i) {
        if (!(knots_[i - 1] < knots_[i])) {
            return false;
        }
    }
    return knots_[highest] < lastKnot_;
}

const double* PointBlossom::triangle() {
    const std::int32_t k = k_;
    const std::size_t stride = static_cast<std::size_t>(k) + 1;
    if (k == 2) {
        // A single node over the unit rows (1, 0) and (0, 1): its combination 0 wb + 1 wa,
        // 1 wb + 0 wa is (wa, wb) exactly, both being positive. The twenty-fold sampling of
        // order 2 makes this the most frequent triangle of all.
        const double A = knots_[top_], B = knots_[top_ - 1], u = t_;
        values_[0] = divide(checkedDouble(A - u), checkedDouble(A - B));
        values_[1] = divide(checkedDouble(u - B), checkedDouble(A - B));
        values_[2] = 0.0;
        return values_;
    }
    // Row m holds the list starting at knot top - d + m of the current depth d.
    std::fill(values_, values_ + static_cast<std::size_t>(k) * stride, 0.0);
    for (std::int32_t m = 0; m < k; ++m) {
        values_[m * stride + m] = 1.0;
    }
    const double u = t_;
    for (std::int32_t d = k - 2; d >= 0; --d) {
        for (std::int32_t m = 0; m <= d; ++m) {
            const std::int32_t s = top_ - d + m;
            const double A = knots_[s + d];
            const double B = knots_[s - 1];
            const double wa = divide(checkedDouble(A - u), checkedDouble(A - B));
            const double wb = divide(checkedDouble(u - B), checkedDouble(A - B));
            double* c1 = values_ + m * stride;
            const double* c2 = c1 + stride;
            for (std::int32_t i = 0; i < k; ++i) {
                c1[i] = checkedDouble(c2[i] * wb + c1[i] * wa);
            }
        }
    }
    return values_;
}

// The list at depth d starting at knot s: knots s .. s + d - 1, then t (the root is all t, with
// s the first knot above t). Its run is those d knots, the knot after it s + d, before it s - 1.
const double* PointBlossom::node(std::int32_t d, std::int32_t s) {
    const auto k = static_cast<std::size_t>(k_);
    const std::size_t slot = static_cast<std::size_t>(d) * (d + 1) / 2 +
                             static_cast<std::size_t>(s - (top_ - d));
    double* c = values_ + slot * (k + 1);
    if (done_[slot]) {
        return c;
    }
    done_[slot] = 1;
    const std::int32_t last = k_ - 1;
    // The run search compares the knot after the run with t; the walk assumes they differ.
    if (d < last && knot(std::int64_t{s} + d) == t_) {
        throw Deviation{};
    }
    const double first = d == 0 ? t_ : knots_[s];
    // Past the end (the run reaches the last knot) or before the start: the zero vector.
    if ((d > 0 && knots_[s + d - 1] >= lastKnot_) || first <= knots_[0]) {
        std::fill(c, c + k + 1, 0.0);
        return c;
    }
    if (d == last) {
        terminal(s, c);
        return c;
    }
    const double A = knots_[s + d];
    const double B = knots_[s - 1];
    const double u = t_;
    const double* c1 = node(d + 1, s - 1);
    const double* c2 = node(d + 1, s);
    const double wa = divide(checkedDouble(A - u), checkedDouble(A - B));
    const double wb = divide(checkedDouble(u - B), checkedDouble(A - B));
    for (std::int32_t i = 0; i < k_; ++i) {
        c[i] = checkedDouble(c2[i] * wb + c1[i] * wa);
    }
    c[k_] = 0.0;
    return c;
}

// With strictly increasing knots the terminal search stops where knot sigma + j is knot s itself,
// and every knot it passes on the way is a real one below knot s.
void PointBlossom::terminal(std::int32_t s, double* c) const {
    const std::int64_t direct = s - static_cast<std::int64_t>(sigma_);
    const std::int32_t j = direct >= 0 && direct < k_
                               ? static_cast<std::int32_t>(direct)
                               : terminalSearch(knots_, knotCount_, knots_[s], sigma_, k_);
    terminalVector(j, sigma_, k_, c);
}

}  // namespace zw
