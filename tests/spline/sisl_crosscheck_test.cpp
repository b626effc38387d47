// The evaluator against SISL, an independent B-spline library: curve points by blossoming, Boehm
// knot insertion, the halving of every segment and the Bezier form of every segment, for random
// curves of every order the editor offers, on uniform and open-uniform knot vectors. Curve points
// are compared in double, before the model rounds them to Single.
#include <gtest/gtest.h>
#include <sisl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "headless_window.h"
#include "platform/scripted_dialogs.h"
#include "storage/opslag.h"
#include "views/beeld.h"

namespace zw {
namespace {

// Coordinates are whole numbers up to this, exact in a Single.
constexpr double kScale = 10000.0;
// Both sides form convex combinations in double: their rounding stays far below this, while a
// weight that is wrong in any digit that matters is far above it.
constexpr double kPointTolerance = 1e-9 * kScale;

using SislCurve = std::unique_ptr<SISLCurve, void (*)(SISLCurve*)>;
using Xy = std::array<double, 2>;

int pointCount(HeadlessWindow& w) {
    return static_cast<int>(w.polygoon().graad) + 1;
}

// The model's curve as a SISL curve: same knots, same coefficients. Padded, it has k knots more
// at each end, below and above all others, with zero coefficients: the same curve on the real
// range, but with k-fold ends.
SislCurve toSisl(HeadlessWindow& w, bool padded = false) {
    const int k = static_cast<int>(w.polygoon().orde), pad = padded ? k : 0;
    std::vector<double> t = w.knots();
    t.insert(t.begin(), pad, t.front() - 1);
    t.insert(t.end(), pad, t.back() + 1);
    std::vector<double> coefs(2 * pad, 0.0);
    for (int i = 0; i < pointCount(w); ++i) {
        const Punt& p = w.polygoon().punten(static_cast<float>(i));
        coefs.insert(coefs.end(), {p.X, p.Y});
    }
    coefs.insert(coefs.end(), 2 * pad, 0.0);
    return {newCurve(pointCount(w) + 2 * pad, k, t.data(), coefs.data(), 1, 2, 1), freeCurve};
}

SislCurve inserted(SISLCurve* curve, double t) {
    SISLCurve* refined = nullptr;
    int stat = 0;
    s1017(curve, &refined, t, &stat);
    EXPECT_GE(stat, 0);
    return {refined, freeCurve};
}

// An order-1 curve is piecewise constant, and the model gives segment sigma its control point
// sigma - 1 at the right end: SISL's left-hand evaluation is the matching one there.
Xy sislPoint(SISLCurve* c, double t) {
    double d[2] = {0.0, 0.0};
    int left = 0;
    int stat = 0;
    (c->ik == 1 ? s1227 : s1221)(c, 0, t, &left, d, &stat);
    EXPECT_GE(stat, 0) << "SISL evaluation at " << t;
    return {d[0], d[1]};
}

// The point of segment sigma at t from the model's blossom, with the control points combined in
// double rather than by bereken_punt, which rounds to Single.
Xy blossomPoint(HeadlessWindow& w, double t, int sigma) {
    const Array<double> c = w.evaluator().blossom(equalArgs(w.polygoon().orde, t), sigma);
    Xy p{0.0, 0.0};
    for (int i = 0; i < w.polygoon().orde && sigma - 1 + i < pointCount(w); ++i) {
        const Punt& q = w.polygoon().punten(static_cast<float>(sigma - 1 + i));
        p[0] += c(i) * q.X;
        p[1] += c(i) * q.Y;
    }
    return p;
}

// The whole model curve, segment by segment, against a SISL curve of the same shape: at both ends
// of each segment and between. Order 1 has its value at the right end only, and none at the last
// knot, where every list gives the zero vector.
void expectCurveMatches(HeadlessWindow& w, SISLCurve* reference, double tolerance,
                        std::mt19937& rng) {
    const float k = w.polygoon().orde;
    for (int sigma = 1; sigma <= w.segments(); ++sigma) {
        const double a = w.vec().knoop(k + sigma - 2);
        const double b = w.vec().knoop(k + sigma - 1);
        std::vector<double> ts;
        if (k > 1) {
            std::uniform_real_distribution<double> between(a, b);
            ts = {a, b, a + (b - a) / 2, between(rng), between(rng), between(rng)};
        } else if (sigma < w.segments()) {
            ts = {b};
        }
        for (const double t : ts) {
            const Xy m = blossomPoint(w, t, sigma);
            const Xy s = sislPoint(reference, t);
            for (int d = 0; d < 2; ++d) {
                EXPECT_NEAR(m[d], s[d], tolerance) << "segment " << sigma << ", t = " << t;
            }
        }
    }
}

// One unit in the last place of the Single nearest to x: the model stores every new point as a
// Single, so a correct point lies within this of the exact value.
double singleUlp(double x) {
    const float f = std::abs(static_cast<float>(x));
    return static_cast<double>(std::nextafter(f, std::numeric_limits<float>::infinity()) - f);
}

// Order k, k + extra points, open-uniform or uniform knots.
class CrossCheck : public ::testing::TestWithParam<std::tuple<int, int, bool>> {
  protected:
    void SetUp() override {
        const auto [k, extra, open] = GetParam();
        rng.seed(static_cast<unsigned>(1000 * k + 10 * extra + (open ? 1 : 0)));
        w.setRandomCurve(rng, k, k + extra, open);
        original = toSisl(w);
        ASSERT_NE(original, nullptr);
    }

    void expectInsertionMatchesSisl(double t) {
        const SislCurve before = toSisl(w);
        const double asked = t;
        w.evaluator().maak_spline(t);
        SCOPED_TRACE("inserted " + std::to_string(asked) + " as " + std::to_string(t));

        // A value equal to a knot raises its multiplicity in the polygon, while the vector keeps
        // its knots apart and stores it 1e-6 higher: the polygon is SISL's for the value asked,
        // the knots SISL's for the value stored.
        const SislCurve polygon = inserted(before.get(), asked);
        const SislCurve vector = inserted(before.get(), t);
        ASSERT_TRUE(polygon && vector);
        ASSERT_EQ(pointCount(w), polygon->in);
        // A wrong vector would fail every later insertion as well.
        ASSERT_EQ(w.knots(), std::vector<double>(vector->et, vector->et + vector->in + vector->ik));
        for (int i = 0; i < polygon->in; ++i) {
            const Punt& p = w.polygoon().punten(static_cast<float>(i));
            const double model[] = {p.X, p.Y};
            for (int d = 0; d < 2; ++d) {
                const double sisl = polygon->ecoef[2 * i + d];
                EXPECT_LE(std::abs(model[d] - sisl), singleUlp(sisl))
                    << "point " << i << ": " << model[d] << " vs " << sisl;
            }
        }
    }

    HeadlessWindow w;
    std::mt19937 rng;
    SislCurve original{nullptr, freeCurve};
};

// Boehm's insertion is unique for the refined knot vector, so the model's polygon must be SISL's
// one, rounded to Single: for values inside segments and for values equal to a knot. Order 1
// inserts no knot values: the doubled knot adds an empty interval, whose point is free.
TEST_P(CrossCheck, InsertionGivesSislsPolygon) {
    const int k = static_cast<int>(w.polygoon().orde);
    const std::vector<double> old = w.knots();
    std::uniform_real_distribution<double> inRange(old[k - 1], old[old.size() - k]);
    for (int i = 0; i < 3 && !HasFatalFailure(); ++i) {
        expectInsertionMatchesSisl(inRange(rng));
    }
    for (std::size_t i = k; k > 1 && i < old.size() - k && !HasFatalFailure(); ++i) {
        expectInsertionMatchesSisl(old[i]);
    }
}

// The blossom gives SISL's curve points, and halving every segment keeps them.
TEST_P(CrossCheck, BlossomGivesTheCurvePointsAndHalvingKeepsThem) {
    expectCurveMatches(w, original.get(), kPointTolerance, rng);
    const int k = static_cast<int>(w.polygoon().orde);
    const std::vector<double> old = w.knots();
    const int m = w.segments();
    const int points = pointCount(w);
    w.evaluator().splits_in_helft();

    // Every segment of the real range is cut at its midpoint; the knots outside it stay.
    std::vector<double> expected = old;
    for (int i = k - 1; i < k - 1 + m; ++i) {
        expected.push_back((old[i + 1] - old[i]) / 2 + old[i]);
    }
    std::sort(expected.begin(), expected.end());
    ASSERT_EQ(w.knots(), expected);
    EXPECT_EQ(pointCount(w), points + m);

    // Each insertion rounds its new points to Single; the rounding errors of successive
    // insertions add up at most once per insertion.
    expectCurveMatches(w, original.get(), m * singleUlp(kScale), rng);
}

// The Bezier notation is one polygon of k points per segment (12 for a cubic of ten knots), each
// joined to the one before and dotted, the first dot last; each point is SISL's Bezier point
// (s1730), rounded to Single. s1730 frees memory it does not own on ends that are not k-fold, so
// it converts the padded curve, whose first k segments lie before the real range. Order 1 has no
// Bezier form.
TEST_P(CrossCheck, BezierNotationIsSislsBezierForm) {
    const int k = static_cast<int>(w.polygoon().orde);
    const int n = k * w.segments();
    if (k < 2) {
        return;
    }
    const SislCurve padded = toSisl(w, true);
    SISLCurve* converted = nullptr;
    int stat = 0;
    s1730(padded.get(), &converted, &stat);
    const SislCurve bezier(converted, freeCurve);
    Beeld(w).bereken_bezier_notatie();
    const std::vector<DrawRecord>& log = w.Doek().log();
    ASSERT_TRUE(stat >= 0 && bezier && log.size() == 2u * n - 1);
    const auto dot = [&](int i) { return log[i == 0 ? 2 * n - 2 : 2 * i - 1]; };
    for (int i = 0; i < n; ++i) {
        const double xy[] = {dot(i).x1, dot(i).y1};
        for (int d = 0; d < 2; ++d) {
            const double sisl = bezier->ecoef[2 * (k * k + i) + d];
            EXPECT_LE(std::abs(xy[d] - sisl), singleUlp(sisl) / 2 + kPointTolerance) << i;
        }
        const DrawRecord& leg = log[std::max(0, 2 * i - 2)];
        EXPECT_TRUE(i == 0 || std::make_tuple(leg.x1, leg.y1, leg.x2, leg.y2) ==
                                  std::make_tuple(xy[0], xy[1], dot(i - 1).x1, dot(i - 1).y1));
    }
}

// A single segment (the Bezier curve), two, and several, for every order the editor offers.
INSTANTIATE_TEST_SUITE_P(Sisl, CrossCheck,
                         ::testing::Combine(::testing::Range(1, 9), ::testing::Values(0, 1, 6),
                                            ::testing::Bool()));

// What the cross-check does not reach: a segment of zero length, whose middle is its knot once
// more, and a curve without segments, which fails before changing anything.
TEST(KnotInsertion, HelftOnEmptySegmentsAndWithoutAny) {
    HeadlessWindow w;
    w.setCurve(4,
               {{1000, 1000}, {2000, 6000}, {4000, 500}, {6000, 7000}, {8000, 2000}, {9000, 9000}});
    w.vec().zet_knoop(5, 1.0);  // segment 2 of zero length: knots ... 0, 1, 1, 3 ...
    w.evaluator().splits_in_helft();
    EXPECT_EQ(w.knots(), (std::vector<double>{-3, -2, -1, 0, 0.5, 1, 1, 1 + 1e-6, 2, 3, 4, 5, 6}));
    EXPECT_EQ(w.polygoon().graad, 8.0f);

    w.setCurve(4, {{0, 0}, {1, 1}});  // 2 points, order 4: -1 segments
    EXPECT_EQ(errorOf([&] { w.evaluator().splits_in_helft(); }), kErrSubscript);
    EXPECT_EQ(w.knots().size(), 6u);
    EXPECT_EQ(w.polygoon().graad, 1.0f);
}

// Orders far above the editor's own limit come only from a file; their blossoms recurse deep
// enough to move the engine's storage while a level still writes into it.
TEST(HighOrder, ACurveFromAFileDrawsAndIsSislsCurve) {
    std::mt19937 rng(12);
    for (const auto& [k, n] : {std::pair{30, 40}, std::pair{25, 30}}) {
        TestDir dir;
        ScriptedDialogs dialogs;
        HeadlessWindow s, t;
        s.setRandomCurve(rng, k, n);
        Opslag(s, dialogs, dir.path()).opslaan(dir.file("hoog.zwl"));
        Opslag(t, dialogs, dir.path()).openen(dir.file("hoog.zwl"));
        t.evaluator().teken_spline();
        EXPECT_FALSE(t.Doek().log().empty());
        expectCurveMatches(t, toSisl(t).get(), kPointTolerance, rng);
    }
}

}  // namespace
}  // namespace zw
