#include <gtest/gtest.h>

#include "headless_window.h"

namespace zw {
namespace {

TEST(Gewichten, ResizingKeepsOldWeightsAndGivesNewOnesOne) {
    HeadlessWindow w;
    GewichtenForm& g = w.gewichten();
    g.dimensioneer_gewichten(3);
    g.zet_gewichten(0, 0.5);
    g.zet_gewichten(2, 8.0);
    g.dimensioneer_gewichten(5);
    EXPECT_EQ(g.gewicht(0), 0.5);
    EXPECT_EQ(g.gewicht(2), 8.0);
    EXPECT_EQ(g.gewicht(3), 1.0);
    EXPECT_EQ(g.gewicht(4), 1.0);
    EXPECT_EQ(g.gewicht(5), 0.0);  // the spare slot
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

}  // namespace
}  // namespace zw
