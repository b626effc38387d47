#include <gtest/gtest.h>

#include <vector>

#include "headless_window.h"
#include "test_support.h"

namespace zw {
namespace {

// The drawn curve (weighted, rounded) at n samples per segment.
std::vector<Punt> drawnCurve(HeadlessWindow& w, int perSegment) {
    const float k = w.polygoon().orde;
    std::vector<Punt> points;
    Array<double> args(k - 1);
    const double first = w.vec().knoop(k - 1);
    const double last = w.vec().knoop(w.vec().knopenlengte - k);
    for (int i = 0; i <= perSegment * 8; ++i) {
        const double t = first + (last - first) * i / (perSegment * 8);
        const float segment = std::min(w.vec().geef_segment(t), w.vec().knopenlengte - 2 * k + 1);
        for (float a = 0; a < k; ++a) {
            args(a) = t;
        }
        points.push_back(w.polygoon().zoek_coord(w.evaluator().blossom(args, segment), segment - 1));
    }
    return points;
}

void expectSameCurve(const std::vector<Punt>& before, const std::vector<Punt>& after) {
    ASSERT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        // New control points are rounded to Singles; drawn points are whole units.
        EXPECT_NEAR(after[i].X, before[i].X, 1.0) << i;
        EXPECT_NEAR(after[i].Y, before[i].Y, 1.0) << i;
    }
}

struct Wavy : HeadlessWindow {
    explicit Wavy(bool openUniform) {
        setCurve(4, {{1000, 1000}, {2000, 6000}, {4000, 500}, {6000, 7000}, {8000, 2000},
                     {9000, 9000}},
                 openUniform);
    }
};

TEST(KnotInsertion, AddsOnePointAndLeavesTheDrawnCurveInPlace) {
    for (const bool openUniform : {false, true}) {
        Wavy w(openUniform);
        const std::vector<Punt> before = drawnCurve(w, 40);
        const Punt head = w.polygoon().punten(0);
        const Punt tail = w.polygoon().punten(5);
        double t = 1.3;
        w.evaluator().maak_spline(t);
        EXPECT_EQ(w.polygoon().graad, 6.0f);
        EXPECT_EQ(w.vec().knopenlengte, 11.0f);
        EXPECT_EQ(w.polygoon().punten(0).X, head.X);
        EXPECT_EQ(w.polygoon().punten(6).X, tail.X);
        expectSameCurve(before, drawnCurve(w, 40));
    }
}

TEST(KnotInsertion, AnExistingValueRaisesTheMultiplicity) {
    Wavy w(false);
    const std::vector<Punt> before = drawnCurve(w, 40);
    double t = 1.0;  // knots -3 .. 6
    w.evaluator().maak_spline(t);
    EXPECT_EQ(t, 1.0 + 1e-6);
    EXPECT_EQ(w.vec().knoop(4), 1.0);
    EXPECT_EQ(w.vec().knoop(5), 1.0 + 1e-6);
    EXPECT_EQ(w.vec().knoop(6), 2.0);
    expectSameCurve(before, drawnCurve(w, 40));
}

TEST(KnotInsertion, HelftSplitsEverySegmentAtItsOldMiddle) {
    Wavy w(false);
    w.knooppunten = false;
    w.vec().zet_knoop(5, 1.0);  // segment 2 of zero length: knots ... 0, 1, 1, 3 ...
    w.evaluator().splits_in_helft();
    EXPECT_TRUE(w.knooppunten);
    // Middles 0.5, 1 (the empty segment's knot once more) and 2.
    const std::vector<double> expected = {-3, -2, -1, 0, 0.5, 1, 1, 1 + 1e-6, 2, 3, 4, 5, 6};
    ASSERT_EQ(w.vec().knopenlengte, 13.0f);
    for (int i = 0; i < 13; ++i) {
        EXPECT_DOUBLE_EQ(w.vec().knoop(i), expected[i]) << i;
    }
    EXPECT_EQ(w.polygoon().graad, 8.0f);
}

TEST(KnotInsertion, HelftWithoutSegmentsFailsBeforeChangingAnything) {
    HeadlessWindow w;
    w.setCurve(4, {{0, 0}, {1, 1}});  // 2 points, order 4: -1 segments
    EXPECT_EQ(errorOf([&] { w.evaluator().splits_in_helft(); }), kErrSubscript);
    EXPECT_EQ(w.vec().knopenlengte, 6.0f);
    EXPECT_EQ(w.polygoon().graad, 1.0f);
}

}  // namespace
}  // namespace zw
