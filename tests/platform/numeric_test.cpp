// The classic numeric rules: rounding, conversions between numbers and between numbers and text,
// arithmetic faults, loops, arrays, and the run-time errors they raise.
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
#include "platform/text.h"
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

// Blanks, tabs and line feeds skipped anywhere, a carriage return stops; sign, digits and one
// point up to the first character that does not fit; E and D exponents, one without digits
// ignored. Hex and octal typed as Integer up to 16 bits, Long up to 32 bits, Long always with a
// trailing "&". Long digit strings read exactly.
TEST(Val, ReadsNumbersTheClassicWay) {
    using Cases = std::vector<std::pair<std::string, double>>;
    const Cases decimal = {
        {" 1 2 3", 123}, {" - 1", -1}, {"\t1\n2", 12}, {"1 . 5 E 1", 15}, {"1\r2", 1},
        {"\r5", 0},      {"", 0},      {"abc", 0},     {"12.6", 12.6},    {".5", 0.5},
        {"-.5", -0.5},   {"5.", 5},    {"12abc", 12},  {"1.2.3", 1.2},    {"--1", 0},
        {"+-1", 0},      {"-", 0},     {".", 0},       {"1,5", 1},        {"1.5D2", 150},
        {"2e-1", 0.2},   {"1E", 1},    {"1E+", 1},     {"1E-x", 1},       {"1E2.5", 100},
        {"1E-400", 0},
    };
    const Cases hexAndOctal = {
        {"&h 1f", 31},      {"&HFFFF", -1},     {"&H8000", -32768}, {"&H7FFF", 32767},
        {"&H0000FFFF", -1}, {"&H10000", 65536}, {"&HFFFFFFFF", -1}, {"&H80000000", -2147483648.0},
        {"&HFFFF&", 65535}, {"&H1G", 1},        {"&O177777", -1},   {"&o17", 15},
        {"&O78", 7},        {"&O8", 0},         {"&H", 0},          {"&", 0},
        {"&12", 0},         {"-&H1", 0},
    };
    const Cases longDigitStrings = {
        {"1" + std::string(400, '0') + "E-400", 1.0},
        {"0." + std::string(400, '0') + "1E401", 1.0},
        {"1" + std::string(300, '0'), 1e300},
        {"1.7976931348623157E308", std::numeric_limits<double>::max()},
        {"0E999999999999999999999", 0.0},
        {"." + std::string(2000, '3'), 1.0 / 3.0},
        {std::string(5000, ' ') + "-" + std::string(5000, '0') + "2.5", -2.5},
    };
    for (const Cases* cases : {&decimal, &hexAndOctal, &longDigitStrings}) {
        for (const auto& [text, expected] : *cases) {
            EXPECT_EQ(val(text), expected) << "Val(\"" << text.substr(0, 40) << "\")";
        }
    }
}

TEST(Val, RaisesOverflowBeyondTheRange) {
    const std::string cases[] = {
        "1E400",       "1D309",        "-1E309",        "1" + std::string(400, '0'),
        "&H100000000", "&H100000000&", "&O40000000000", "&H1FFFFFFFFFFFFFFFF"};
    for (const auto& text : cases) {
        EXPECT_EQ(errorOf([&] { val(text); }), kErrOverflow) << text;
    }
}

// Seven digits, fixed notation while at most seven digits stand before the point or, below 1,
// leading zeros and digits after the point together are at most seven; carries through nines;
// an exact half rounds away from zero.
TEST(SingleText, RoundsToSevenDigitsAndSwitchesToENotation) {
    const std::pair<float, const char*> cases[] = {
        {1000, "1000"},
        {-0.5f, "-0.5"},
        {1.0f / 3, "0.3333333"},
        {-0.0f, "0"},
        {9999999, "9999999"},
        {12345678, "1.234568E+07"},
        {9999999.5f, "1E+07"},
        {3.4028235e38f, "3.402823E+38"},
        {0.0000001f, "0.0000001"},
        {0.00000123f, "1.23E-06"},
        {std::nextafter(1e-7f, 0.0f), "9.999999E-08"},
        {std::numeric_limits<float>::denorm_min(), "1.401298E-45"},
        {std::nextafter(1235.0f, 0.0f), "1235"},
        {std::nextafter(2e10f, 0.0f), "2E+10"},
        {1234.5625f, "1234.563"},
        {12345665, "1.234567E+07"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(singleToText(value), text) << text;
    }
}

// The same rules at fifteen digits, with carries across the fixed/E boundary both ways.
TEST(DoubleText, RoundsToFifteenDigitsAndSwitchesToENotation) {
    const std::pair<double, const char*> cases[] = {
        {0.1 + 0.2, "0.3"},
        {2.0 / 3, "0.666666666666667"},
        {1e14, "100000000000000"},
        {1e15, "1E+15"},
        {1e100, "1E+100"},
        {123456789012345678.0, "1.23456789012346E+17"},
        {1e-16, "1E-16"},
        {std::numeric_limits<double>::max(), "1.79769313486232E+308"},
        {std::nextafter(1e15, 0.0), "1E+15"},
        {std::nextafter(1e14, 0.0), "100000000000000"},
        {std::nextafter(1e-15, 0.0), "0.000000000000001"},
        {1000000000000005.0, "1.00000000000001E+15"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(doubleToText(value), text) << text;
    }
}

// Str: a blank before a non-negative number, and no zero before the point of a magnitude
// below 1. Values that are no numbers still get a text.
TEST(StrText, LeadingBlankNoLeadingZeroAndNonFiniteValues) {
    EXPECT_EQ(singleToStr(3), " 3");
    EXPECT_EQ(singleToStr(-0.0f), " 0");
    EXPECT_EQ(singleToStr(0.5f), " .5");
    EXPECT_EQ(singleToStr(-0.5f), "-.5");
    EXPECT_EQ(singleToStr(1e7f), " 1E+07");
    EXPECT_EQ(doubleToStr(2.0 / 3), " .666666666666667");
    EXPECT_EQ(doubleToStr(-1e-15), "-.000000000000001");
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(doubleToText(std::nan("")), "NaN");
    EXPECT_EQ(doubleToText(inf), "inf");
    EXPECT_EQ(doubleToStr(-inf), "-inf");
    EXPECT_EQ(singleToStr(std::numeric_limits<float>::infinity()), " inf");
}

}  // namespace
}  // namespace zw
