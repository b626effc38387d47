#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "headless_window.h"

namespace zw {
namespace {

// The given knots under a polygon of order k with n + 1 points. The pane's line starts at
// x = 1000, at height 500, and is `lengte` long; discs have radius 60.
struct Knots : HeadlessWindow {
    Knots(float k, float n, const std::vector<double>& values, float lengte = 0) {
        polygoon().orde = k;
        polygoon().graad = n;
        vec().dimensioneer_knopenvector(static_cast<double>(values.size()));
        for (std::size_t i = 0; i < values.size(); ++i) {
            vec().zet_knoop(static_cast<float>(i), values[i]);
        }
        vectorlengte = lengte;
    }
};

TEST(KnoopVector, UniformAndOpenUniformKnots) {
    const double a = -2 + 2e-6;
    const double b = 5 - 4e-6;
    const double step = (b - a) / 3;
    const std::tuple<float, float, bool, std::vector<double>> cases[] = {
        {4, 3, false, {-3, -2, -1, 0, 1, 2, 3, 4}},
        // The clamps are no mirror images: the start steps up by 1e-6, the end down from 3e-6.
        {3, 4, true, {-2, -2 + 1e-6, a, a + step, a + 2 * step, b, 5 - 3e-6, 5}},
        // A Bezier curve: no interior knots.
        {4, 3, true, {-3, -3 + 1e-6, -3 + 2e-6, -3 + 3e-6, 4 - 5e-6, 4 - 4e-6, 4 - 3e-6, 4}},
    };
    for (const auto& [k, n, open, expected] : cases) {
        Knots w(k, n, std::vector<double>(8, 9.0));
        open ? w.vec().zet_open_uniform() : w.vec().zet_uniform();
        EXPECT_EQ(w.knots(), expected) << k << " " << open;
    }
    // Too short to hold knot h + k - 1: the size check raises the subscript error.
    Knots tooShort(4, 0, std::vector<double>(4, 0.0));
    EXPECT_EQ(errorOf([&] { tooShort.vec().zet_open_uniform(); }), kErrSubscript);
    // L = 2k - 1 leaves -1 interior knots: both clamps end on knot k - 1 and the step is 0 / 0.
    Knots noRange(4, 2, std::vector<double>(7, 0.0));
    EXPECT_EQ(errorOf([&] { noRange.vec().zet_open_uniform(); }), kErrOverflow);
}

// The SISL cross-check compares insertions within the range; these lie beyond it or on a knot.
TEST(KnoopVector, InsertionKeepsTheVectorStrictlyIncreasing) {
    const std::tuple<double, std::vector<double>, double> cases[] = {
        {1.0, {0, 1, 1.000001, 2, 3}, 1.000001},
        {3.5, {0, 1, 2, 3, 3.5}, 3.5},
        {-1.0, {-1, 0, 1, 2, 3}, -1.0},
        {3.0, {0, 1, 2, 3, 3.000001}, 3.000001},
    };
    for (const auto& [value, expected, stored] : cases) {
        Knots w(2, 1, {0, 1, 2, 3});
        double t = value;
        w.vec().voeg_knooppunt_toe(t);
        EXPECT_EQ(w.knots(), expected) << value;
        EXPECT_EQ(t, stored) << value;
    }
}

TEST(KnoopVector, VergelijkVectorFindsTheRunOfKnots) {
    const std::tuple<std::vector<double>, float, float, float> cases[] = {
        {{1, 2, 5}, 3, 3, 2},    // run of two, then a gap
        {{1, 2, 3}, 3, 4, 3},    // the whole list
        {{1, 2, 3}, 1, 2, 1},    // the count bounds the run
        {{1.5, 2, 3}, 3, 2, 0},  // not a knot: the first knot above it
        {{0, 2, 3}, 3, 1, 1},    // a run of one
        {{-1, 0, 1}, 3, 0, 0},   // before every knot
        {{2, 3, 4}, 3, 4, 2},    // the run stops at the spare slot
    };
    for (const auto& [vector, countBefore, result, countAfter] : cases) {
        Knots w(3, 0, {0, 1, 2, 3});
        float count = countBefore;
        EXPECT_EQ(w.vec().vergelijk_vector(count, arrayOf(vector)), result) << vector[0];
        EXPECT_EQ(count, countAfter) << vector[0];
    }
}

TEST(KnoopPane, RealAndVirtualDiscsAndGrevilleTicks) {
    // Order 4, 4 points: L = 8 and knots 3 .. 4 are real. x = 1000 + 1000 u.
    const std::vector<double> knots = {0, 1, 3, 4, 8, 9, 11, 12};
    Knots p(4, 3, knots, 12000);
    p.Reeel = rgb(0, 200, 0);
    p.virtueel = rgb(200, 0, 0);
    p.Knopen().line(0, 0, 1, 1, kWhite);  // cleared by the redraw
    p.vec().teken_vector();
    const std::vector<DrawRecord>& log = p.Knopen().log();
    ASSERT_EQ(log.size(), 1u + 8u + 4u);
    EXPECT_EQ(fieldsOf(log[0]), std::make_tuple(DrawKind::kLine, 1000.0, 500.0, 13000.0, 500.0, 0.0,
                                                kBlack, 4, kFillTransparent, kBlack));
    // Virtual discs first, so that the real ones show where they coincide.
    const int order[] = {0, 1, 2, 5, 6, 7, 3, 4};
    for (int n = 0; n < 8; ++n) {
        const DrawRecord& d = log[1 + n];
        EXPECT_EQ(std::make_tuple(d.kind, d.x1, d.y1, d.radius, d.colour),
                  std::make_tuple(DrawKind::kCircle, 1000 + 1000 * knots[order[n]], 500.0, 60.0,
                                  n < 6 ? p.virtueel : p.Reeel));
    }
    // Averages of knots i .. i + 2, i = 1 .. 4.
    const double greville[] = {8.0 / 3, 5, 7, 28.0 / 3};
    for (int n = 0; n < 4; ++n) {
        const DrawRecord& tick = log[9 + n];
        EXPECT_FLOAT_EQ(static_cast<float>(tick.x1), static_cast<float>(1000 + 1000 * greville[n]));
        EXPECT_EQ(std::make_tuple(tick.x2, tick.y1, tick.y2, tick.colour),
                  std::make_tuple(tick.x1, 50.0, 0.0, kBlack));
    }
}

TEST(KnoopPane, ZoekKnooppuntWeighsMagnitudesAndTiesGoRight) {
    Knots p(2, 0, {-3, -2, 1, 2, 5}, 8000);  // x = 1000 + 1000 (u + 3)
    const std::pair<float, float> cases[] = {
        {2800, 2},             // u = -1.2: | |1| - 1.2 | beats | |-2| - 1.2 |, though -2 is nearer
        {5400, 2}, {5500, 3},  // u = 1.4 and the tie at 1.5
        {1500, 1},             // u = -2.5, a tie of magnitudes
        {6000, 3}, {0, 0},    {12000, 4},  // on a knot, left and right of the line
    };
    for (const auto& [x, index] : cases) {
        EXPECT_EQ(p.vec().zoek_knooppunt(x), index) << x;
    }
}

// The window's drag test holds a knot below its right neighbour; these are the other bounds.
TEST(KnoopPane, DraggedKnotStaysBetweenItsNeighbours) {
    const std::tuple<float, float, std::vector<double>> cases[] = {
        // x = 1000 + 1000 u
        {2, 3500, {0, 1, 2.5, 3, 4, 5}}, {2, 1500, {0, 1, 1 + 1e-6, 3, 4, 5}},
        {2, 4000, {0, 1, 3, 3, 4, 5}},   {2, 2000, {0, 1, 1, 3, 4, 5}},
        {0, 3500, {0, 1, 2, 3, 4, 5}},   {5, 3500, {0, 1, 2, 3, 4, 5}},
    };
    for (const auto& [index, x, expected] : cases) {
        Knots p(3, 0, {0, 1, 2, 3, 4, 5}, 5000);
        p.vec().plaats_knooppunt(x, index);
        EXPECT_EQ(p.knots(), expected) << index << " " << x;
    }
}

TEST(KnoopVector, BadIndexesSizesAndScalesRaiseRunTimeErrors) {
    Knots w(2, 1, {0, 1, 2, 3});          // and no line for the pane
    EXPECT_EQ(w.vec().knoop(4.0f), 0.0);  // the spare slot exists
    EXPECT_EQ(errorOf([&] { w.vec().knoop(5.0f); }), kErrSubscript);
    // A value beyond every knot is compared with the spare slot and its run read past it.
    float count = 3.0f;
    EXPECT_EQ(errorOf([&] { w.vec().vergelijk_vector(count, arrayOf({7, 0, 0})); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { w.vec().plaats_knooppunt(1500, 1); }), kErrDivisionByZero);
    EXPECT_EQ(errorOf([&] { w.vec().dimensioneer_knopenvector(-2.0); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { w.vec().dimensioneer_knopenvector(1e12); }), kErrOutOfMemory);
    EXPECT_EQ(errorOf([&] { w.vec().dimensioneer_knopenvector(1e39); }), kErrOverflow);
    Knots equal(2, 0, {1, 1, 1, 1}, 5000);  // no knot range: 0 / 0
    EXPECT_EQ(errorOf([&] { equal.vec().teken_vector(); }), kErrOverflow);
    Knots empty(2, 0, {}, 5000);  // nothing drawn, nothing to pick
    empty.vec().teken_vector();
    EXPECT_TRUE(empty.Knopen().log().empty());
    EXPECT_EQ(errorOf([&] { empty.vec().zoek_knooppunt(1500); }), kErrSubscript);
}

}  // namespace
}  // namespace zw
