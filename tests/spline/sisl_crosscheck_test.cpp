// The evaluator against SISL, an independent B-spline library: curve points by blossoming, Boehm
// knot insertion and the halving of every segment, for random curves of every order the editor
// offers, on uniform and open-uniform knot vectors. Curve points are compared in double, before
// the model rounds them to Single.
#include <gtest/gtest.h>
#include <sisl.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "headless_window.h"

namespace zw {
namespace {

// Coordinates are whole numbers up to this, exact in a Single.
constexpr double kScale = 10000.0;
// Both sides form convex combinations in double: their rounding stays far below this, while a
// weight that is wrong in any digit that matters is far above it.
constexpr double kPointTolerance = 1e-9 * kScale;

using Points = std::vector<std::pair<float, float>>;

struct Shape {
    int k;
    int points;
    bool openUniform;
};

struct CurveDeleter {
    void operator()(SISLCurve* c) const { freeCurve(c); }
};
using SislCurve = std::unique_ptr<SISLCurve, CurveDeleter>;

struct Xy {
    double x;
    double y;
};

int order(HeadlessWindow& w) {
    return static_cast<int>(w.polygoon().orde);
}
int pointCount(HeadlessWindow& w) {
    return static_cast<int>(w.polygoon().graad) + 1;
}
int knotCount(HeadlessWindow& w) {
    return static_cast<int>(w.vec().knopenlengte);
}
double knot(HeadlessWindow& w, int i) {
    return w.vec().knoop(static_cast<float>(i));
}
int segmentCount(HeadlessWindow& w) {
    return knotCount(w) - 2 * order(w) + 1;
}
std::vector<double> knots(HeadlessWindow& w) {
    std::vector<double> v;
    for (int i = 0; i < knotCount(w); ++i) {
        v.push_back(knot(w, i));
    }
    return v;
}

// The model's curve as a SISL curve: same knots, same coefficients.
SislCurve toSisl(HeadlessWindow& w) {
    std::vector<double> t = knots(w);
    std::vector<double> coefs;
    for (int i = 0; i < pointCount(w); ++i) {
        const Punt& p = w.polygoon().punten(static_cast<float>(i));
        coefs.push_back(p.X);
        coefs.push_back(p.Y);
    }
    return SislCurve(newCurve(pointCount(w), order(w), t.data(), coefs.data(), 1, 2, 1));
}

// An order-1 curve is piecewise constant, and the model gives segment sigma its control point
// sigma - 1 at the right end: SISL's left-hand evaluation is the matching one there.
Xy sislPoint(SISLCurve* c, double t) {
    double d[2] = {0.0, 0.0};
    int left = 0;
    int stat = 0;
    if (c->ik == 1) {
        s1227(c, 0, t, &left, d, &stat);
    } else {
        s1221(c, 0, t, &left, d, &stat);
    }
    EXPECT_GE(stat, 0) << "SISL evaluation at " << t;
    return {d[0], d[1]};
}

// The point of segment sigma at t from the model's blossom, with the control points combined in
// double rather than by bereken_punt, which rounds to Single.
Xy blossomPoint(HeadlessWindow& w, double t, int sigma) {
    const int k = order(w);
    Array<double> args(k - 1);
    for (int i = 0; i < k; ++i) {
        args(i) = t;
    }
    const Array<double> c = w.evaluator().blossom(args, static_cast<float>(sigma));
    Xy p{0.0, 0.0};
    for (int i = 0; i < k && sigma - 1 + i < pointCount(w); ++i) {
        const Punt& q = w.polygoon().punten(static_cast<float>(sigma - 1 + i));
        p.x += c(i) * q.X;
        p.y += c(i) * q.Y;
    }
    return p;
}

// Parameters of segment sigma: both ends and points between. Order 1 has its value at the right
// end only.
std::vector<double> parametersOf(HeadlessWindow& w, int sigma, std::mt19937& rng) {
    const int k = order(w);
    const double a = knot(w, k + sigma - 2);
    const double b = knot(w, k + sigma - 1);
    if (k == 1) {
        // The last segment ends at the last knot, where every list gives the zero vector.
        return sigma < segmentCount(w) ? std::vector<double>{b} : std::vector<double>{};
    }
    std::vector<double> ts = {a, b, a + (b - a) / 2};
    std::uniform_real_distribution<double> between(a, b);
    for (int i = 0; i < 6; ++i) {
        ts.push_back(between(rng));
    }
    return ts;
}

// The whole model curve, segment by segment, against a SISL curve of the same shape.
void expectCurveMatches(HeadlessWindow& w, SISLCurve* reference, double tolerance,
                        std::mt19937& rng) {
    for (int sigma = 1; sigma <= segmentCount(w); ++sigma) {
        for (const double t : parametersOf(w, sigma, rng)) {
            const Xy m = blossomPoint(w, t, sigma);
            const Xy s = sislPoint(reference, t);
            EXPECT_NEAR(m.x, s.x, tolerance) << "segment " << sigma << ", t = " << t;
            EXPECT_NEAR(m.y, s.y, tolerance) << "segment " << sigma << ", t = " << t;
        }
    }
}

// One unit in the last place of the Single nearest to x: the model stores every new point as a
// Single, so a correct point lies within this of the exact value.
double singleUlp(double x) {
    const float f = std::abs(static_cast<float>(x));
    return static_cast<double>(std::nextafter(f, std::numeric_limits<float>::infinity()) - f);
}

class CrossCheck : public ::testing::TestWithParam<Shape> {
  protected:
    void SetUp() override {
        const Shape s = GetParam();
        rng.seed(static_cast<unsigned>(1000 * s.k + 10 * s.points + (s.openUniform ? 1 : 0)));
        std::uniform_int_distribution<int> coordinate(0, static_cast<int>(kScale));
        Points p;
        for (int i = 0; i < s.points; ++i) {
            p.emplace_back(static_cast<float>(coordinate(rng)),
                           static_cast<float>(coordinate(rng)));
        }
        w.setCurve(s.k, p, s.openUniform);
        ASSERT_EQ(pointCount(w), s.points);
        original = toSisl(w);
        ASSERT_NE(original, nullptr);
    }

    static SislCurve inserted(SISLCurve* curve, double t) {
        SISLCurve* refined = nullptr;
        int stat = 0;
        s1017(curve, &refined, t, &stat);
        EXPECT_GE(stat, 0);
        return SislCurve(refined);
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
        ASSERT_NE(polygon, nullptr);
        ASSERT_NE(vector, nullptr);
        ASSERT_EQ(pointCount(w), polygon->in);
        // A wrong vector would fail every later insertion as well.
        ASSERT_EQ(knots(w), std::vector<double>(vector->et, vector->et + vector->in + vector->ik));
        for (int i = 0; i < polygon->in; ++i) {
            const Punt& p = w.polygoon().punten(static_cast<float>(i));
            const double sx = polygon->ecoef[2 * i];
            const double sy = polygon->ecoef[2 * i + 1];
            EXPECT_LE(std::abs(p.X - sx), singleUlp(sx))
                << "point " << i << ": " << p.X << " vs " << sx;
            EXPECT_LE(std::abs(p.Y - sy), singleUlp(sy))
                << "point " << i << ": " << p.Y << " vs " << sy;
        }
    }

    HeadlessWindow w;
    SislCurve original;
    std::mt19937 rng;
};

TEST_P(CrossCheck, BlossomGivesTheCurvePoints) {
    expectCurveMatches(w, original.get(), kPointTolerance, rng);
}

// Boehm's insertion is unique for the refined knot vector, so the model's polygon must be SISL's
// one, rounded to Single.
TEST_P(CrossCheck, InsertionInsideASegmentGivesSislsPolygon) {
    const int k = order(w);
    std::uniform_real_distribution<double> inRange(knot(w, k - 1), knot(w, knotCount(w) - k));
    for (int i = 0; i < 3 && !HasFatalFailure(); ++i) {
        expectInsertionMatchesSisl(inRange(rng));
    }
}

TEST_P(CrossCheck, InsertionAtAKnotGivesSislsPolygon) {
    const int k = order(w);
    if (k == 1) {
        GTEST_SKIP() << "order 1: the doubled knot adds an empty interval, whose point is free";
    }
    const std::vector<double> old = knots(w);
    for (int i = k; i < static_cast<int>(old.size()) - k && !HasFatalFailure(); ++i) {
        expectInsertionMatchesSisl(old[static_cast<std::size_t>(i)]);
    }
}

TEST_P(CrossCheck, HalvingKeepsTheCurve) {
    const int k = order(w);
    const std::vector<double> old = knots(w);
    const int m = segmentCount(w);
    w.evaluator().splits_in_helft();

    // Every segment of the real range is cut at its midpoint; the knots outside it stay.
    std::vector<double> expected(old.begin(), old.begin() + k);
    for (int i = 0; i < m; ++i) {
        const double a = old[static_cast<std::size_t>(k - 1 + i)];
        const double b = old[static_cast<std::size_t>(k + i)];
        expected.push_back((b - a) / 2 + a);
        expected.push_back(b);
    }
    expected.insert(expected.end(), old.begin() + k + m, old.end());
    ASSERT_EQ(knots(w), expected);
    EXPECT_EQ(segmentCount(w), 2 * m);
    EXPECT_EQ(pointCount(w), GetParam().points + m);

    // Each insertion rounds its new points to Single; the rounding errors of successive
    // insertions add up at most once per insertion.
    expectCurveMatches(w, original.get(), m * singleUlp(kScale), rng);
}

std::vector<Shape> shapes() {
    std::vector<Shape> v;
    for (int k = 1; k <= 8; ++k) {
        // A single segment (the Bezier curve), two, and several.
        for (const int extra : {0, 1, 6}) {
            for (const bool open : {false, true}) {
                v.push_back({k, k + extra, open});
            }
        }
    }
    return v;
}

INSTANTIATE_TEST_SUITE_P(Sisl, CrossCheck, ::testing::ValuesIn(shapes()),
                         [](const ::testing::TestParamInfo<Shape>& info) {
                             return "k" + std::to_string(info.param.k) + "_" +
                                    std::to_string(info.param.points) + "points_" +
                                    (info.param.openUniform ? "open" : "uniform");
                         });

}  // namespace
}  // namespace zw
