#include <gtest/gtest.h>

#include <tuple>

#include "geometry/mat.h"
#include "headless_window.h"

namespace zw {
namespace {

TEST(Coordinaten, ToevoegenFollowsTheOrderOnlyFromZeroAndLengthensABezierCurve) {
    HeadlessWindow w;
    w.polygoon().toevoegen(Punt(1, 2));
    EXPECT_EQ(w.polygoon().orde, -1.0f);
    w.polygoon().orde = 0.0f;
    w.polygoon().toevoegen(Punt(3, 4));
    EXPECT_EQ(w.polygoon().orde, 1.0f);
    w.polygoon().toevoegen(Punt(5, 6));
    EXPECT_EQ(w.polygoon().orde, 1.0f);

    // In Bezier mode every point lengthens the knot vector.
    w.polygoon().test();  // order 4, knots -3 .. 4
    w.polygoon().toevoegen(Punt(9000, 3000));
    EXPECT_EQ(w.polygoon().orde, 4.0f);
    EXPECT_EQ(w.knots(), (std::vector<double>{-3, -2, -1, 0, 1, 2, 3, 4, 5}));
    // zet_orde makes it a Bezier curve of all five points.
    w.polygoon().zet_orde();
    EXPECT_EQ(w.polygoon().orde, 5.0f);
    EXPECT_EQ(w.knots(), (std::vector<double>{-4, -3, -2, -1, 0, 1, 2, 3, 4, 5}));
}

TEST(Coordinaten, ZoekCoordWeighsRoundsAndSkipsPointsPastTheLast) {
    HeadlessWindow w;
    w.setCurve(3, {{0, 0}, {5, 1}, {10, 4}});
    // 123 would weigh point 3, which does not exist.
    const Array<double> tabel = arrayOf({0.5, 0.5, 123, 0});
    const Punt mid = w.polygoon().zoek_coord(tabel, 1);
    EXPECT_EQ(mid.X, 8.0f);  // 7.5 rounds to even
    EXPECT_EQ(mid.Y, 2.0f);  // 2.5 rounds to even
    w.gewichten().zet_gewichten(2, 3.0);
    const Punt pulled = w.polygoon().zoek_coord(tabel, 1);  // (5 + 30) / 4, (1 + 12) / 4
    EXPECT_EQ(pulled.X, 9.0f);
    EXPECT_EQ(pulled.Y, 3.0f);
    const Array<double> weightless = arrayOf({0, 0, 123, 0});  // 0 / 0
    EXPECT_EQ(errorOf([&] { w.polygoon().zoek_coord(weightless, 1); }), kErrOverflow);
}

// The window's drag test picks the nearest point; of equally near ones the lowest is taken.
TEST(Coordinaten, ZoekPuntTakesTheLowestOfEquallyNearPointsAndEmptySlotsRaise) {
    HeadlessWindow w;
    EXPECT_EQ(errorOf([&] { w.polygoon().zoek_punt(0, 0); }), kErrObjectNotSet);
    w.polygoon().dimensioneer_punten(2);
    w.polygoon().zet_punt(0, Punt(1, 1));
    EXPECT_EQ(errorOf([&] { w.polygoon().punten(1); }), kErrObjectNotSet);
    EXPECT_EQ(errorOf([&] { w.polygoon().dimensioneer_punten(1e9f); }), kErrOutOfMemory);
    w.setCurve(2, {{0, 0}, {10, 0}, {20, 0}, {10, 0}});
    EXPECT_EQ(w.polygoon().zoek_punt(5, 0), 0.0f);   // 0 and 1 equally near
    EXPECT_EQ(w.polygoon().zoek_punt(11, 1), 1.0f);  // 1 and 3 coincide
}

TEST(Coordinaten, ControlPointsAreDrawnInTheirOwnColours) {
    HeadlessWindow w;
    w.setCurve(2, {{10, 20}, {30, 40}, {50, 60}});
    w.ControleStraal = 7;
    w.controlkleur = rgb(1, 2, 3);
    w.polygoon().teken_controlepunten_in_kleur();
    const std::vector<DrawRecord>& log = w.Doek().log();
    ASSERT_EQ(log.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(fieldsOf(log[i]),
                  std::make_tuple(DrawKind::kCircle, 10.0 + 20 * i, 20.0 + 20 * i, 0.0, 0.0, 7.0,
                                  w.kleur(i), 1, kFillSolid, w.kleur(i)));
    }
    EXPECT_EQ(w.Doek().fillColour(), w.controlkleur);
}

// New weights are 1 (the weights window's tests grow the polygon by clicks), the spare slot stays
// 0, and shrinking keeps the survivors. The largest weight looks only at the polygon's points.
TEST(Gewichten, TheSpareSlotShrinkingAndTheLargestWeight) {
    HeadlessWindow w;
    w.setCurve(2, {{0, 0}, {1, 1}, {2, 2}});
    GewichtenForm& g = w.gewichten();
    g.zet_gewichten(1, 4.0);
    g.dimensioneer_gewichten(5);
    EXPECT_EQ(g.gewicht(5), 0.0);
    g.zet_gewichten(4, 30.0);  // no point 4
    g.zoek_grootste_gewicht();
    EXPECT_EQ(g.get_grootste_gewicht(), 4.0);
    g.zet_gewichten(2, 8.0);
    g.dimensioneer_gewichten(2);
    EXPECT_EQ(g.gewicht(2), 8.0);  // survives as the spare slot
    EXPECT_EQ(errorOf([&] { g.gewicht(3); }), kErrSubscript);
    EXPECT_EQ(g.gewicht(1.5f), 8.0);  // halves to even: index 2
    g.zet_niet_rationeel();
    EXPECT_EQ(g.gewicht(1), 1.0);
    EXPECT_EQ(g.get_grootste_gewicht(), 1.0);
}

// At its design size the form's scales run from 450 (weight 32) to 4050 (1/32), 360 twips to a
// power of two, one column of 900 twips per weight. A handle's height is rounded to whole twips,
// and a weight above 32 is drawn mirrored below the top.
TEST(Gewichten, HandlesSitOnTheirScales) {
    HeadlessWindow w;
    w.Bezierkleur = rgb(9, 9, 9);
    w.setCurve(2, {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}});
    GewichtenForm& g = w.gewichten();
    const double weights[] = {1.0, 32.0, 1.0 / 32.0, 64.0, 3.0};
    const double heights[] = {2250.0, 450.0, 4050.0, 810.0, 1679.0};
    for (int k = 0; k < 5; ++k) {
        g.zet_gewichten(static_cast<float>(k), weights[k]);
    }
    g.toon();
    const std::vector<DrawRecord>& log = g.Doek().log();
    // The level of 1, then per column its scale and eleven ticks, then the handles.
    ASSERT_EQ(log.size(), 1u + 5u * 12u + 5u);
    EXPECT_EQ(fieldsOf(log[0]), fieldsOf(DrawRecord{DrawKind::kLine, 0, 2250, 5400, 2250, 0,
                                                    rgb(225, 0, 0), 1, kFillSolid, kBlack}));
    EXPECT_EQ(std::make_tuple(log[60].x1, log[60].y1, log[60].x2, log[60].drawWidth),
              std::make_tuple(4500.0 - 50.0, 4050.0, 4500.0 + 50.0, 4));
    for (int k = 0; k < 5; ++k) {
        EXPECT_EQ(fieldsOf(log[61 + k]),
                  fieldsOf(DrawRecord{DrawKind::kCircle, 900.0 * (k + 1), heights[k], 0, 0, 60,
                                      w.kleur(k), 4, kFillSolid, rgb(9, 9, 9)}))
            << k;
    }
    // No logarithm of a weight that is not positive: the paint ends with error 5.
    g.zet_gewichten(2, 0.0);
    EXPECT_EQ(errorOf([&] { g.Doek().refresh(); }), kErrInvalidCall);
}

const Mat mat;

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

TEST(Punt, DistancesSumsAndProductsInDoubleStoredAsSingles) {
    EXPECT_DOUBLE_EQ(mat.bereken_afstand(Punt(0, 0), Punt(3, 4)), 5.0);
    // Two Singles far apart do not lose the unit step.
    EXPECT_DOUBLE_EQ(mat.bereken_afstand(Punt(16777216.0f, 0), Punt(-16777216.0f, 0)), 33554432.0);
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
