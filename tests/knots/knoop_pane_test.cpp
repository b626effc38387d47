#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "headless_window.h"

namespace zw {
namespace {

// The window's pane geometry: the line starts at x = 1000, at height 500; discs of radius 60.
struct Pane : HeadlessWindow {
    Pane(float k, const std::vector<double>& values, float lengte) {
        polygoon().orde = k;
        vec().dimensioneer_knopenvector(static_cast<double>(values.size()));
        for (std::size_t i = 0; i < values.size(); ++i) {
            vec().zet_knoop(static_cast<float>(i), values[i]);
        }
        vectorlengte = lengte;
        Reeel = rgb(0, 200, 0);
        virtueel = rgb(200, 0, 0);
    }
};

TEST(KnoopPane, RealAndVirtualDiscsAndGrevilleTicks) {
    // Order 4, 4 points: L = 8 and knots 3 .. 4 are real. x = 1000 + 1000 u.
    const std::vector<double> knots = {0, 1, 3, 4, 8, 9, 11, 12};
    Pane p(4, knots, 12000);
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
    Pane p(2, {-3, -2, 1, 2, 5}, 8000);  // x = 1000 + 1000 (u + 3)
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

TEST(KnoopPane, DraggedKnotStaysBetweenItsNeighbours) {
    const std::tuple<float, float, std::vector<double>> cases[] = {
        // x = 1000 + 1000 u
        {2, 3500, {0, 1, 2.5, 3, 4, 5}},      {2, 4500, {0, 1, 3 - 1e-6, 3, 4, 5}},
        {2, 1500, {0, 1, 1 + 1e-6, 3, 4, 5}}, {2, 4000, {0, 1, 3, 3, 4, 5}},
        {2, 2000, {0, 1, 1, 3, 4, 5}},        {0, 3500, {0, 1, 2, 3, 4, 5}},
        {5, 3500, {0, 1, 2, 3, 4, 5}},
    };
    for (const auto& [index, x, expected] : cases) {
        Pane p(3, {0, 1, 2, 3, 4, 5}, 5000);
        p.vec().plaats_knooppunt(x, index);
        EXPECT_EQ(p.knots(), expected) << index << " " << x;
    }
}

TEST(KnoopPane, DegenerateScalesRaiseTheArithmeticErrors) {
    Pane equal(2, {1, 1, 1, 1}, 5000);  // no knot range: 0 / 0
    EXPECT_EQ(errorOf([&] { equal.vec().teken_vector(); }), kErrOverflow);
    Pane flat(2, {0, 1, 2, 3}, 0);  // no line
    EXPECT_EQ(errorOf([&] { flat.vec().plaats_knooppunt(1500, 1); }), kErrDivisionByZero);
    Pane empty(2, {}, 5000);  // nothing drawn, nothing to pick
    empty.vec().teken_vector();
    EXPECT_TRUE(empty.Knopen().log().empty());
    EXPECT_EQ(errorOf([&] { empty.vec().zoek_knooppunt(1500); }), kErrSubscript);
}

}  // namespace
}  // namespace zw
