#include "platform/array.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "test_support.h"

namespace zw {
namespace {

TEST(Array, IndexesAreRoundedThenChecked) {
    Array<int> a;
    EXPECT_EQ(errorOf([&] { a(0); }), kErrSubscript);  // never dimensioned
    a.redim(4);
    a(3) = 3;
    a(4) = 4;
    EXPECT_EQ(a(2.5f), 0);  // 2.5 rounds to the even 2, not 3
    EXPECT_EQ(a(3.5f), 4);  // 3.5 rounds to 4
    EXPECT_EQ(a(-0.5), 0);  // -0.5 rounds to 0: inside
    for (double bad : {-1.0, -0.6, 4.6, 5.0}) {
        EXPECT_EQ(errorOf([&] { a(bad); }), kErrSubscript) << bad;
    }
    EXPECT_EQ(errorOf([&] { a(1e12); }), kErrOverflow);
}

TEST(Array, RedimStartsFreshAndPreserveKeeps) {
    Array<std::string> a(2);
    a(0) = "a";
    a(2) = "c";
    a.redimPreserve(4);
    EXPECT_EQ(a(2), "c");
    EXPECT_EQ(a(4), "");
    a.redimPreserve(1);
    EXPECT_EQ(a.upperBound(), 1);
    EXPECT_EQ(a(0), "a");
    a.redim(3);
    EXPECT_EQ(a(0), "");
}

TEST(Array, ImpossibleSizesRaiseAndLeaveTheArrayAlone) {
    Array<double> a(1);
    a(1) = 5;
    EXPECT_EQ(errorOf([&] { a.redim(-1); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { a.redim(kMaxArrayElements); }), kErrOutOfMemory);
    EXPECT_EQ(errorOf([&] { a.redimPreserve(1e9); }), kErrOutOfMemory);
    EXPECT_EQ(errorOf([&] { a.redim(std::nan("")); }), kErrOverflow);
    EXPECT_EQ(a(1), 5);
}

}  // namespace
}  // namespace zw
