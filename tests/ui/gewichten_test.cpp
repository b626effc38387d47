#include <QAction>

#include "editor_fixture.h"
#include "ui/gewichten_venster.h"

namespace zw {
namespace {

// The weights window at 400 x 300 pixels: scales from 450 (weight 32) to 4050 twips (1/32), 360
// twips to a power of two, weight 1 at 2250.
class WeightsTest : public EditorTest {
  protected:
    // The scripted dialogs only note the request; the window is shown here as they would.
    GewichtenVenster& open(const char* key = "Gewicht") {
        w->knop(key)->trigger();
        GewichtenVenster& v = w->gewichtenVenster();
        v.resize(400, 300);
        v.show();
        QCoreApplication::processEvents();
        return v;
    }
    GewichtenForm& form() { return w->gewichten(); }
    SurfaceWidget& doek() { return w->gewichtenVenster().doekWidget(); }
    void dragWeight(double x, double y0, double y1) { drag(doek(), Qt::RightButton, x, y0, x, y1); }
    std::vector<double> weights() {
        std::vector<double> v;
        for (float i = 0; i < form().aantal_gew(); ++i) {
            v.push_back(form().gewicht(i));
        }
        return v;
    }
};

// A drag picks the nearest handle, the lower index of equally near ones. Each release is one
// version holding every weight (records 3i + 3) and the largest (the last record); the largest
// is looked for again, so it can fall. The canvas redraws the curve, which
// starts at (w0 P0 + 4 w1 P1 + w2 P2) / (w0 + 4 w1 + w2).
TEST_F(WeightsTest, ARightDragSetsTheNearestWeightAndOtherButtonsResetThem) {
    testCurve();
    open();
    const struct {
        double x, from, to, weight, largest;
    } drags[] = {{1800, 2250, 1890, 2, 2},  // halfway between the first two: the first
                 {1200, 2250, 100, 32, 32},
                 {2400, 2250, 4400, 1.0 / 32, 32},
                 {1200, 450, 1530, 4, 4}};
    for (const auto& d : drags) {
        const float before = version();
        dragWeight(d.x, d.from, d.to);
        EXPECT_EQ(form().gewicht(static_cast<float>(d.x / 1200 - 1)), d.weight);
        EXPECT_EQ(form().get_grootste_gewicht(), d.largest);
        ASSERT_EQ(version(), before + 1);
        RecordFile file(
            dir.file("undoredo/" + std::to_string(static_cast<int>(version())) + ".zwl"));
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(file.getSingle(3 * i + 6), static_cast<float>(form().gewicht(i)));
        }
        EXPECT_EQ(file.getSingle(static_cast<double>(file.length() / 4)), d.largest);
        const std::vector<double> g = weights();
        const double sum = g[0] + 4 * g[1] + g[2];
        const DrawRecord start = recordsOf(w->Doek(), DrawKind::kLine, w->krommekleur).at(0);
        EXPECT_NEAR(start.x1, (1000 * g[0] + 4000 * g[1] + 7000 * g[2]) / sum, 0.5);
        EXPECT_NEAR(start.y1, (1000 * g[0] + 20000 * g[1] + 5000 * g[2]) / sum, 0.5);
    }
    // Any other button than the right resets every weight and the largest.
    for (Qt::MouseButton b : {Qt::LeftButton, Qt::MiddleButton}) {
        form().zet_gewichten(3, 8.0);
        form().zet_grootste_gewicht(8.0);
        QTest::mouseClick(&doek(), b, Qt::NoModifier, QPoint(20, 20));
        EXPECT_EQ(weights(), (std::vector<double>{1, 1, 1, 1}));
        EXPECT_EQ(form().get_grootste_gewicht(), 1.0);
    }
}

// The window opens without blocking. New points weigh 1, and while the window is open the canvas
// draws every point's colour once for every point. Closing the window, or "Nieuw", keeps the
// weights; the menu and the toolbar open it anew.
TEST_F(WeightsTest, OpensBesideTheCanvasAndClosingKeepsTheWeights) {
    GewichtenVenster& v = open();
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_EQ(dialogs.shown()[0].window, "GewichtenForm");
    EXPECT_FALSE(dialogs.shown()[0].modal);
    EXPECT_EQ(doek().size(), v.size());
    for (int i = 0; i < 3; ++i) {
        click(1500 + 1000 * i, 2000);
    }
    dragWeight(3000, 2250, 1530);
    click(5000, 3000);
    click(6000, 2000);
    EXPECT_EQ(weights(), (std::vector<double>{1, 4, 1, 1, 1}));
    // The window follows: the last of five handles in a column of 1000 twips.
    EXPECT_EQ(form().Doek().log().back().x1, 5000);
    w->Doek().refresh();
    int coloured = 0;
    for (const DrawRecord& r : doekLog()) {
        for (int i = 0; i < 5; ++i) {
            const Punt& p = w->polygoon().punten(i);
            const bool disc = r.kind == DrawKind::kCircle && r.colour == w->kleur(i) &&
                              r.x1 == p.X && r.y1 == p.Y && r.fillColour == w->kleur(i);
            coloured += disc ? static_cast<int>(r.times) : 0;
        }
    }
    EXPECT_EQ(coloured, 25);

    v.close();
    EXPECT_FALSE(w->gewichtstat);
    w->menu("mntBeeldGewichten")->trigger();
    EXPECT_TRUE(w->gewichtstat);
    v.show();  // as the dialogs would
    w->knop("Nieuw")->trigger();
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(w->gewichtstat);
    EXPECT_EQ(weights(), (std::vector<double>{1, 4, 1, 1, 1}));
    EXPECT_EQ(form().get_grootste_gewicht(), 4.0);
    open();
    EXPECT_TRUE(v.isVisible());
}

}  // namespace
}  // namespace zw
