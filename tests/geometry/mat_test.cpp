#include "geometry/mat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

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
    const std::tuple<double, float, double> cases[] = {
        {3, 0, 1}, {3, -2, 1}, {2, 3.9f, 8}, {2, 2.5f, 4}, {-2, 3, -8}, {0.5, 2, 0.25}, {7, 1, 7},
    };
    for (const auto& [base, exp, result] : cases) {
        EXPECT_EQ(mat.machtdouble(base, exp), result) << base << "^" << exp;
    }
    EXPECT_EQ(errorOf([] { mat.machtdouble(1e200, 2); }), kErrOverflow);
}

TEST(Mat, MachtRoundsEveryStepAndOverflowsPastAnInteger) {
    const std::tuple<float, float, int> cases[] = {
        {2, 3, 8},    {2, 14, 16384}, {-2, 15, -32768},
        {3, 0, 1},    {3, -1, 1},     {1.5f, 2, 3},  // 1.5 -> 2, then 2 * 1.5 = 3 (not 2.25 -> 2)
        {2.5f, 2, 5},                                // 2.5 -> 2 (halves to even), then 5
        {0.4f, 1, 0}, {3, 2.9f, 9},
    };
    for (const auto& [base, exp, result] : cases) {
        EXPECT_EQ(mat.macht(base, exp), result) << base << "^" << exp;
    }
    EXPECT_EQ(errorOf([] { mat.macht(2, 15); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { mat.macht(-2, 16); }), kErrOverflow);
}

TEST(Mat, BinomIncludingTheOneForIAboveN) {
    const std::tuple<float, float, float> cases[] = {
        {2, 4, 6}, {0, 0, 1}, {5, 3, 1},  {0, 5, 1},
        {5, 5, 1}, {1, 7, 7}, {3, 8, 56}, {10, 20, 184756},
    };
    for (const auto& [i, n, result] : cases) {
        EXPECT_EQ(mat.binom(i, n), result) << n << " over " << i;
    }
    EXPECT_EQ(errorOf([] { mat.binom(0, 40); }), kErrOverflow);  // 40! passes the Single range
}

TEST(Mat, InrechthoekWidensByTwentyInEitherCornerOrder) {
    const Punt a(0, 0), b(100, 100);
    const std::tuple<float, float, bool> cases[] = {
        {120, 50, true}, {121, 50, false}, {-20, 50, true}, {-21, 50, false},
        {50, 120, true}, {50, 121, false}, {50, -20, true}, {50, -20.5f, false},
    };
    for (const auto& [x, y, inside] : cases) {
        EXPECT_EQ(mat.inrechthoek(Punt(x, y), a, b), inside) << x << "," << y;
        EXPECT_EQ(mat.inrechthoek(Punt(x, y), b, a), inside) << x << "," << y;
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
