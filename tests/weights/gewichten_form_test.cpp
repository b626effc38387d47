#include <gtest/gtest.h>

#include "headless_window.h"

namespace zw {
namespace {

// New weights are 1 (the weights window's tests grow the polygon by clicks), the spare slot stays
// 0, and shrinking keeps the survivors.
TEST(Gewichten, TheSpareSlotAndShrinking) {
    HeadlessWindow w;
    GewichtenForm& g = w.gewichten();
    g.dimensioneer_gewichten(3);
    g.zet_gewichten(2, 8.0);
    g.dimensioneer_gewichten(5);
    EXPECT_EQ(g.gewicht(5), 0.0);
    g.dimensioneer_gewichten(2);
    EXPECT_EQ(g.gewicht(2), 8.0);  // survives as the spare slot
    EXPECT_EQ(errorOf([&] { g.gewicht(3); }), kErrSubscript);
    EXPECT_EQ(g.gewicht(1.5f), 8.0);  // halves to even: index 2
}

TEST(Gewichten, TheLargestWeightLooksOnlyAtThePolygonsPoints) {
    HeadlessWindow w;
    w.setCurve(2, {{0, 0}, {1, 1}, {2, 2}});
    GewichtenForm& g = w.gewichten();
    g.dimensioneer_gewichten(5);
    g.zet_gewichten(1, 4.0);
    g.zet_gewichten(4, 30.0);  // no point 4
    g.zoek_grootste_gewicht();
    EXPECT_EQ(g.get_grootste_gewicht(), 4.0);
    g.zet_niet_rationeel();
    EXPECT_EQ(g.gewicht(4), 1.0);
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

}  // namespace
}  // namespace zw
