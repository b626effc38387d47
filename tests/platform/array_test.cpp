#include "platform/array.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace zw {
namespace {

template <typename F>
int errorOf(F&& action) {
    try {
        action();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

TEST(Array, UndimensionedHasNoElements) {
    Array<double> a;
    EXPECT_FALSE(a.dimensioned());
    EXPECT_EQ(errorOf([&] { a(0); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { a.upperBound(); }), kErrSubscript);
}

TEST(Array, BoundsAreCheckedAfterRoundingTheIndex) {
    Array<int> a(4);
    EXPECT_EQ(a.upperBound(), 4);
    a(4) = 7;
    EXPECT_EQ(a(4.4f), 7);
    a(3) = 3;
    EXPECT_EQ(a(2.5f), 0);  // 2.5 rounds to the even 2, not 3
    EXPECT_EQ(a(3.5f), 7);  // 3.5 rounds to 4
    for (double bad : {-1.0, -0.6, 4.6, 5.0, 1e12}) {
        const int expected = std::fabs(bad) > 1e10 ? kErrOverflow : kErrSubscript;
        EXPECT_EQ(errorOf([&] { a(bad); }), expected) << bad;
    }
    EXPECT_EQ(a(-0.5), 0);  // -0.5 rounds to 0: inside
}

TEST(Array, RedimStartsFreshAndPreserveKeeps) {
    Array<std::string> a(2);
    a(0) = "a";
    a(2) = "c";
    a.redimPreserve(4);
    EXPECT_EQ(a(0), "a");
    EXPECT_EQ(a(2), "c");
    EXPECT_EQ(a(4), "");
    a.redimPreserve(1);
    EXPECT_EQ(a.upperBound(), 1);
    EXPECT_EQ(errorOf([&] { a(2); }), kErrSubscript);
    a.redim(3);
    EXPECT_EQ(a(0), "");
}

TEST(Array, ImpossibleSizes) {
    Array<double> a(1);
    a(1) = 5;
    EXPECT_EQ(errorOf([&] { a.redim(-1); }), kErrSubscript);
    EXPECT_EQ(a(1), 5);  // a failed ReDim leaves the array as it was
    EXPECT_EQ(errorOf([&] { a.redim(kMaxArrayElements); }), kErrOutOfMemory);
    EXPECT_EQ(errorOf([&] { a.redimPreserve(1e9); }), kErrOutOfMemory);
    EXPECT_EQ(errorOf([&] { a.redim(std::nan("")); }), kErrOverflow);
    a.redim(kMaxArrayElements - 1);
    EXPECT_EQ(a.size(), static_cast<std::size_t>(kMaxArrayElements));
}

}  // namespace
}  // namespace zw
