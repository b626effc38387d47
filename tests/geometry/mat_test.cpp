#include "geometry/mat.h"

#include <gtest/gtest.h>

#include <cmath>

#include "test_support.h"

namespace zw {
namespace {

const Mat mat;

TEST(Mat, Afstand) {
    EXPECT_DOUBLE_EQ(mat.bereken_afstand(Punt(0, 0), Punt(3, 4)), 5.0);
    // Differences in Double: two Singles far apart do not lose the unit step.
    EXPECT_DOUBLE_EQ(mat.bereken_afstand(Punt(16777216.0f, 0), Punt(-16777216.0f, 0)), 33554432.0);
}

TEST(Mat, MachtdoubleCountsWholeStepsOfTheExponent) {
    const struct {
        double base;
        float exp;
        double result;
    } cases[] = {
        {3, 0, 1}, {3, -2, 1}, {2, 3.9f, 8}, {2, 2.5f, 4}, {-2, 3, -8}, {0.5, 2, 0.25}, {7, 1, 7},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(mat.machtdouble(c.base, c.exp), c.result) << c.base << "^" << c.exp;
    }
    EXPECT_EQ(errorOf([] { mat.machtdouble(1e200, 2); }), kErrOverflow);
}

TEST(Mat, MachtRoundsEveryStepAndOverflowsPastAnInteger) {
    const struct {
        float base, exp;
        int result;
    } cases[] = {
        {2, 3, 8},    {2, 14, 16384}, {-2, 15, -32768},
        {3, 0, 1},    {3, -1, 1},     {1.5f, 2, 3},  // 1.5 -> 2, then 2 * 1.5 = 3 (not 2.25 -> 2)
        {2.5f, 2, 5},                                // 2.5 -> 2 (halves to even), then 5
        {0.4f, 1, 0}, {3, 2.9f, 9},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(mat.macht(c.base, c.exp), c.result) << c.base << "^" << c.exp;
    }
    EXPECT_EQ(errorOf([] { mat.macht(2, 15); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { mat.macht(-2, 16); }), kErrOverflow);
}

TEST(Mat, BinomIncludingTheOneForIAboveN) {
    const struct {
        float i, n, result;
    } cases[] = {
        {2, 4, 6}, {0, 0, 1}, {5, 3, 1},  {0, 5, 1},
        {5, 5, 1}, {1, 7, 7}, {3, 8, 56}, {10, 20, 184756},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(mat.binom(c.i, c.n), c.result) << c.n << " over " << c.i;
    }
    EXPECT_EQ(errorOf([] { mat.binom(0, 40); }), kErrOverflow);  // 40! passes the Single range
}

TEST(Mat, InrechthoekWidensByTwentyInEitherCornerOrder) {
    const Punt a(0, 0), b(100, 100);
    const struct {
        float x, y;
        bool inside;
    } cases[] = {
        {120, 50, true}, {121, 50, false}, {-20, 50, true}, {-21, 50, false},
        {50, 120, true}, {50, 121, false}, {50, -20, true}, {50, -20.5f, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(mat.inrechthoek(Punt(c.x, c.y), a, b), c.inside) << c.x << "," << c.y;
        EXPECT_EQ(mat.inrechthoek(Punt(c.x, c.y), b, a), c.inside) << c.x << "," << c.y;
    }
    // The sums are Singles: 100000008 + 20 rounds up to 100000032, which lets in a point that
    // lies 24 units beyond the edge.
    EXPECT_TRUE(mat.inrechthoek(Punt(100000032.0f, 0), Punt(0, 0), Punt(100000008.0f, 0)));
    EXPECT_FALSE(mat.inrechthoek(Punt(100000040.0f, 0), Punt(0, 0), Punt(100000008.0f, 0)));
}

TEST(Mat, LnIsTheLogarithmOfTwiceTheNumber) {
    EXPECT_NEAR(mat.ln(1), std::log(2.0), 1e-15);
    EXPECT_NEAR(mat.ln(0.5), 0.0, 1e-15);
    EXPECT_NEAR(mat.ln(8), std::log(16.0), 1e-15);
    EXPECT_EQ(errorOf([] { mat.ln(0); }), kErrInvalidCall);
    EXPECT_EQ(errorOf([] { mat.ln(-3); }), kErrInvalidCall);
}

}  // namespace
}  // namespace zw
