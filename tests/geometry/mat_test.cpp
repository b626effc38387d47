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

// Apart from machtdouble, nothing in the editor calls these routines yet; their classic rounding
// is what a caller would rely on.
TEST(Mat, PowersCountWholeStepsAndMachtRoundsEveryStep) {
    const std::tuple<float, float, int, double> cases[] = {
        {2, 3.9f, 8, 8},          {3, -2, 1, 1},  // whole steps of the exponent, none below 1
        {1.5f, 2, 3, 2.25},                       // 1.5 -> 2, then 2 * 1.5 = 3 (not 2.25 -> 2)
        {2.5f, 2, 5, 6.25},                       // 2.5 -> 2 (halves to even), then 5
        {-2, 15, -32768, -32768},
    };
    for (const auto& [base, exp, whole, real] : cases) {
        EXPECT_EQ(mat.macht(base, exp), whole) << base << "^" << exp;
        EXPECT_EQ(mat.machtdouble(base, exp), real) << base << "^" << exp;
    }
    EXPECT_EQ(errorOf([] { mat.macht(2, 15); }), kErrOverflow);
    EXPECT_EQ(errorOf([] { mat.machtdouble(1e200, 2); }), kErrOverflow);
}

TEST(Mat, BinomInrechthoekAndLn) {
    EXPECT_EQ(mat.binom(3, 8), 56.0f);
    EXPECT_EQ(mat.binom(5, 3), 1.0f);                            // i above n
    EXPECT_EQ(errorOf([] { mat.binom(0, 40); }), kErrOverflow);  // 40! passes the Single range
    const Punt a(0, 0), b(100, 100);
    for (const auto& [x, y, inside] : {std::tuple{120.0f, 50.0f, true},
                                       {121.0f, 50.0f, false},
                                       {-20.0f, 50.0f, true},
                                       {50.0f, -20.5f, false}}) {
        EXPECT_EQ(mat.inrechthoek(Punt(x, y), a, b), inside) << x << "," << y;
        EXPECT_EQ(mat.inrechthoek(Punt(x, y), b, a), inside) << x << "," << y;
    }
    // The sums are Singles: 100000008 + 20 rounds up to 100000032, which lets in a point that
    // lies 24 units beyond the edge.
    EXPECT_TRUE(mat.inrechthoek(Punt(100000032.0f, 0), Punt(0, 0), Punt(100000008.0f, 0)));
    EXPECT_NEAR(mat.ln(0.5), 0.0, 1e-15);  // the logarithm of twice the number
    EXPECT_EQ(errorOf([] { mat.ln(0); }), kErrInvalidCall);
}

TEST(Punt, SumsAndProductsInDoubleStoredAsSingles) {
    // The Double sum 10000001.5 is stored as the nearest Single.
    EXPECT_EQ(Punt(1e7f, 0).som(Punt(1.5f, 0)).X, 10000002.0f);
    EXPECT_EQ(errorOf([] { Punt(3e38f, 0).som(Punt(3e38f, 0)); }), kErrOverflow);
    Punt r(99, 99);
    r.produkt(Punt(-5, 1), 0.5);  // halves to even
    EXPECT_TRUE(r.isgelijkaan(Punt(-2, 0)));
    EXPECT_FALSE(r.isgelijkaan(Punt(-2, 0.001f)));  // exact, no tolerance
}

}  // namespace
}  // namespace zw
