#include <gtest/gtest.h>

#include <vector>

#include "headless_window.h"

namespace zw {
namespace {

// The SISL cross-check proves the polygons; these are the cases it does not reach.
TEST(KnotInsertion, HelftSplitsEverySegmentAtItsOldMiddle) {
    HeadlessWindow w;
    w.setCurve(4,
               {{1000, 1000}, {2000, 6000}, {4000, 500}, {6000, 7000}, {8000, 2000}, {9000, 9000}});
    w.knooppunten = false;
    w.vec().zet_knoop(5, 1.0);  // segment 2 of zero length: knots ... 0, 1, 1, 3 ...
    w.evaluator().splits_in_helft();
    EXPECT_TRUE(w.knooppunten);
    // Middles 0.5, 1 (the empty segment's knot once more) and 2.
    EXPECT_EQ(w.knots(), (std::vector<double>{-3, -2, -1, 0, 0.5, 1, 1, 1 + 1e-6, 2, 3, 4, 5, 6}));
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
