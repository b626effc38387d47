// The classic numeric rules: rounding, conversions, arithmetic faults, loops, arrays, and the
// run-time errors they raise.
#include "platform/numeric.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "platform/array.h"
#include "platform/event_guard.h"
#include "platform/scripted_dialogs.h"
#include "test_support.h"

namespace zw {
namespace {

TEST(RoundHalfEven, TiesGoToTheEvenNeighbour) {
    const std::pair<double, double> cases[] = {
        {0.5, 0},   {1.5, 2},       {2.5, 2},       {-0.5, 0},
        {-2.5, -2}, {2.4999999, 2}, {2.5000001, 3}, {4503599627370497.0, 4503599627370497.0},
    };
    for (const auto& [in, out] : cases) {
        EXPECT_EQ(roundHalfEven(in), out) << in;
    }
}

TEST(Conversions, RoundThenCheckTheRange) {
    EXPECT_EQ(toInteger(-32768.5), -32768);  // the tie rounds to the even -32768: in range
    EXPECT_EQ(toLong(-2147483648.5), -2147483648LL);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (double bad : {32767.5, -32769.0, nan, inf}) {
        EXPECT_EQ(errorOf([&] { toInteger(bad); }), kErrOverflow) << bad;
    }
    for (double bad : {2147483647.5, -2147483649.0, nan, -inf}) {
        EXPECT_EQ(errorOf([&] { toLong(bad); }), kErrOverflow) << bad;
    }
    // Just below the rounding boundary a Double still rounds down to the largest Single.
    EXPECT_EQ(toSingle(0x1.fffffefffffffp127), std::numeric_limits<float>::max());
    for (double bad : {0x1.ffffffp127, -1e39, nan}) {
        EXPECT_EQ(errorOf([&] { toSingle(bad); }), kErrOverflow) << bad;
    }
}

TEST(Arithmetic, ClassicFaultsInsteadOfInfinities) {
    EXPECT_EQ(errorOf([] { divide(1, 0); }), kErrDivisionByZero);
    EXPECT_EQ(errorOf([] { divide(0, 0); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { divide(1e300, 1e-300); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { divideSingle(2.0f, 0.0f); }), kErrDivisionByZero);
    EXPECT_EQ(errorOf([] { multiplySingle(1e30f, 1e30f); }), kErrOverflow);
}

TEST(ForSingle, RunsLikeAClassicForLoopAndNeverHangs) {
    const auto run = [](float first, float last, float step) {
        std::vector<float> seen;
        forSingle(first, last, step, [&](float i) { seen.push_back(i); });
        return seen;
    };
    EXPECT_EQ(run(1, 3.5f, 1), (std::vector<float>{1, 2, 3}));
    EXPECT_EQ(run(3, 1, -1), (std::vector<float>{3, 2, 1}));
    EXPECT_TRUE(run(1, 0, 1).empty());
    EXPECT_TRUE(run(1, std::nanf(""), 1).empty());
    EXPECT_EQ(run(16777214.0f, 16777215.0f, 1).size(), 2u);
    // 2^24 + 1 is no Single: a loop up to 2^24 would repeat its last round for ever.
    EXPECT_EQ(errorOf([&] { run(16777214.0f, 16777216.0f, 1); }), kErrOverflow);
}

// Indexes are rounded, halves to even, then checked; redim starts afresh, redimPreserve keeps what
// fits, and an impossible size leaves the array as it was.
TEST(Array, IndexesAreRoundedThenCheckedAndSizesStartAfreshOrPreserve) {
    Array<std::string> a;
    EXPECT_EQ(errorOf([&] { a(0); }), kErrSubscript);  // never dimensioned
    a.redim(4);
    a(3) = "3";
    a(4) = "4";
    EXPECT_EQ(a(2.5f), "");   // 2.5 rounds to the even 2, not 3
    EXPECT_EQ(a(3.5f), "4");  // 3.5 rounds to 4
    EXPECT_EQ(a(-0.5), "");   // -0.5 rounds to 0: inside
    for (double bad : {-1.0, -0.6, 4.6, 5.0}) {
        EXPECT_EQ(errorOf([&] { a(bad); }), kErrSubscript) << bad;
    }
    EXPECT_EQ(errorOf([&] { a(1e12); }), kErrOverflow);
    a.redimPreserve(6);
    EXPECT_EQ(a(4), "4");
    EXPECT_EQ(a(6), "");
    a.redimPreserve(3);
    EXPECT_EQ(a.upperBound(), 3);
    EXPECT_EQ(a(3), "3");
    EXPECT_EQ(errorOf([&] { a.redim(-1); }), kErrSubscript);
    EXPECT_EQ(errorOf([&] { a.redim(kMaxArrayElements); }), kErrOutOfMemory);
    EXPECT_EQ(errorOf([&] { a.redimPreserve(1e9); }), kErrOutOfMemory);
    EXPECT_EQ(errorOf([&] { a.redim(std::nan("")); }), kErrOverflow);
    EXPECT_EQ(a(3), "3");
    a.redim(3);
    EXPECT_EQ(a(3), "");
}

TEST(EventGuard, AnErrorEndsTheActionWithItsMessageAndTheProgramCarriesOn) {
    ScriptedDialogs dialogs;
    EventGuard guard(dialogs);
    bool reached = false;
    EXPECT_FALSE(guard.run([] { Array<double>(2)(3) = 1; }));
    EXPECT_TRUE(guard.run([&] { reached = true; }));
    EXPECT_TRUE(reached);
    guard.run([] { throw std::bad_alloc(); });
    guard.run([] { throw 42; });
    ASSERT_EQ(dialogs.messages().size(), 3u);
    EXPECT_EQ(dialogs.messages()[0].text,
              "Fout 9 tijdens uitvoering:\n\nHet subscript valt buiten het bereik");
    EXPECT_EQ(dialogs.messages()[1].text, errorMessage(RuntimeError(kErrOutOfMemory)));
    EXPECT_EQ(dialogs.messages()[2].text, errorMessage(RuntimeError(kErrInternal)));
    EXPECT_EQ(RuntimeError(1234).text(), standardErrorText(95));  // no text of its own
}

}  // namespace
}  // namespace zw
