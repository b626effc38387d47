#include "platform/numeric.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zw {
namespace {

int errorOf(void (*action)()) {
    try {
        action();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

TEST(RoundHalfEven, TiesGoToTheEvenNeighbour) {
    const struct {
        double in, out;
    } cases[] = {
        {0.5, 0},       {1.5, 2},
        {2.5, 2},       {3.5, 4},
        {-0.5, 0},      {-1.5, -2},
        {-2.5, -2},     {2.4999999, 2},
        {2.5000001, 3}, {-2.6, -3},
        {12.6, 13},     {12.5, 12},
        {1e300, 1e300}, {4503599627370497.0, 4503599627370497.0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(roundHalfEven(c.in), c.out) << c.in;
    }
}

TEST(Conversions, IntegerAndLongRoundThenCheckTheRange) {
    EXPECT_EQ(toInteger(32767.4), 32767);
    EXPECT_EQ(toInteger(-32768.5), -32768);  // the tie rounds to the even -32768: in range
    EXPECT_EQ(toInteger(2.5), 2);
    EXPECT_EQ(toLong(2147483647.4), 2147483647);
    EXPECT_EQ(toLong(-2147483648.5), -2147483648LL);
    EXPECT_EQ(toIndex(3.5f), 4);
    EXPECT_EQ(toIndex(4.5f), 4);
}

TEST(Conversions, OutOfRangeAndNaNOverflow) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (double bad : {32767.5, -32769.0, nan, inf, -inf}) {
        EXPECT_THROW(toInteger(bad), RuntimeError) << bad;
    }
    for (double bad : {2147483647.5, -2147483649.0, 1e20, nan, inf}) {
        EXPECT_THROW(toLong(bad), RuntimeError) << bad;
    }
    EXPECT_EQ(errorOf([] { toInteger(40000); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { toIndex(std::nanf("")); }), kErrOverflow);
}

TEST(Conversions, SingleOverflowsOnlyPastTheLargestSingle) {
    EXPECT_EQ(toSingle(3.4028235e38), std::numeric_limits<float>::max());
    // Just below the rounding boundary a double still rounds down to FLT_MAX.
    EXPECT_EQ(toSingle(0x1.fffffefffffffp127), std::numeric_limits<float>::max());
    EXPECT_EQ(errorOf([] { toSingle(0x1.ffffffp127); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { toSingle(-1e39); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { toSingle(std::nan("")); }), kErrOverflow);
    EXPECT_EQ(toSingle(0.1), 0.1f);
}

TEST(Arithmetic, ClassicFaultsInsteadOfInfinities) {
    EXPECT_EQ(errorOf([] { divide(1, 0); }), kErrDivisionByZero);
    EXPECT_EQ(errorOf([] { divide(0, 0); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { divide(1e300, 1e-300); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { divideSingle(2.0f, 0.0f); }), kErrDivisionByZero);
    EXPECT_EQ(errorOf([] { multiplySingle(1e30f, 1e30f); }), kErrOverflow);
    EXPECT_EQ(divide(1, 4), 0.25);
}

TEST(ForSingle, RunsLikeAClassicForLoop) {
    std::vector<float> seen;
    forSingle(1.0f, 3.5f, 1.0f, [&](float i) { seen.push_back(i); });
    EXPECT_EQ(seen, (std::vector<float>{1, 2, 3}));
    seen.clear();
    forSingle(3.0f, 1.0f, -1.0f, [&](float i) { seen.push_back(i); });
    EXPECT_EQ(seen, (std::vector<float>{3, 2, 1}));
    seen.clear();
    forSingle(1.0f, 0.0f, 1.0f, [&](float i) { seen.push_back(i); });
    EXPECT_TRUE(seen.empty());
    forSingle(1.0f, std::nanf(""), 1.0f, [&](float i) { seen.push_back(i); });
    EXPECT_TRUE(seen.empty());
}

TEST(ForSingle, ACounterThatStopsAdvancingOverflowsInsteadOfHanging) {
    int rounds = 0;
    EXPECT_EQ(errorOf([] { forSingle(16777215.0f, 1e30f, 1.0f, [](float) {}); }), kErrOverflow);
    // 2^24 + 1 is no Single: a loop up to 2^24 would repeat its last round for ever.
    EXPECT_THROW(forSingle(16777214.0f, 16777216.0f, 1.0f, [&](float) { ++rounds; }), RuntimeError);
    EXPECT_EQ(rounds, 3);
    rounds = 0;
    forSingle(16777214.0f, 16777215.0f, 1.0f, [&](float) { ++rounds; });
    EXPECT_EQ(rounds, 2);
}

}  // namespace
}  // namespace zw
