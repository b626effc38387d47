#include <QAction>

#include "editor_fixture.h"
#include "ui/gewichten_venster.h"

namespace zw {
namespace {

// The weights window at 400 x 300 pixels: scales from 450 (weight 32) to 4050 twips (1/32), 360
// twips to a power of two, weight 1 at 2250.
class WeightsTest : public EditorTest {
  protected:
    // Opened as the user opens it; the scripted dialogs only note the request, so the window is
    // shown here as the dialogs service would show it.
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
    // Where handle i was drawn last.
    std::pair<double, double> handle(int i) {
        const std::vector<DrawRecord>& log = form().Doek().log();
        const DrawRecord& r = log.at(log.size() - static_cast<std::size_t>(form().aantal_gew()) + i);
        return {r.x1, r.y1};
    }
    void press(Qt::MouseButton b, double x, double y) {
        QTest::mousePress(&doek(), b, Qt::NoModifier, pixel(form().Doek(), x, y));
    }
    void release(double x, double y) {
        QTest::mouseRelease(&doek(), Qt::RightButton, Qt::NoModifier, pixel(form().Doek(), x, y));
    }
    void dragHandle(int i, double y) {
        const auto [x, y0] = handle(i);
        drag(doek(), Qt::RightButton, x, y0, x, y);
    }
    std::vector<double> weights() {
        std::vector<double> v;
        for (float i = 0; i < form().aantal_gew(); ++i) {
            v.push_back(form().gewicht(i));
        }
        return v;
    }
    // The curve's vertices on the canvas.
    std::vector<std::pair<double, double>> curve() {
        std::vector<std::pair<double, double>> v;
        for (const DrawRecord& r : doekLog()) {
            if (r.kind == DrawKind::kLine && r.colour == w->krommekleur) {
                v.emplace_back(r.x2, r.y2);
            }
        }
        return v;
    }
};

double nearest(const std::vector<std::pair<double, double>>& path, double x, double y) {
    double d = 1e300;
    for (const auto& [px, py] : path) {
        d = std::min(d, std::hypot(px - x, py - y));
    }
    return d;
}

TEST_F(WeightsTest, OpensWithoutBlockingAndTheCanvasThenColoursItsPoints) {
    testCurve();
    GewichtenVenster& v = open();
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_EQ(dialogs.shown()[0].window, "GewichtenForm");
    EXPECT_FALSE(dialogs.shown()[0].modal);
    EXPECT_TRUE(w->gewichtstat);
    EXPECT_EQ(doek().size(), v.size());
    // Every point's colour is drawn once for every point.
    w->Doek().refresh();
    int coloured = 0;
    for (const DrawRecord& r : doekLog()) {
        for (int i = 0; i < 4; ++i) {
            const Punt& p = w->polygoon().punten(i);
            coloured += r.kind == DrawKind::kCircle && r.colour == w->kleur(i) && r.x1 == p.X &&
                        r.y1 == p.Y && r.fillColour == w->kleur(i);
        }
    }
    EXPECT_EQ(coloured, 16);
    // Closing it: the canvas draws its points plainly again. The menu opens it anew.
    v.close();
    EXPECT_FALSE(w->gewichtstat);
    w->menu("mntBeeldGewichten")->trigger();
    EXPECT_TRUE(w->gewichtstat);
    EXPECT_EQ(dialogs.shown().size(), 2u);
}

TEST_F(WeightsTest, ARightDragIsPinnedAtTheEndsAndItsReleaseRecordsOneVersion) {
    testCurve();
    open();
    const struct {
        int handle;
        double y, weight, largest;
    } drags[] = {{0, 100, 32, 32}, {1, 4400, 1.0 / 32, 32}, {0, 1530, 4, 4}};
    for (const auto& d : drags) {
        const float before = version();
        const auto [x, y0] = handle(d.handle);
        press(Qt::RightButton, x, y0);
        moveWith(doek(), Qt::RightButton, pixel(form().Doek(), x, d.y));
        EXPECT_EQ(form().gewicht(d.handle), d.weight);
        EXPECT_EQ(version(), before);
        release(x, d.y);
        EXPECT_EQ(form().get_grootste_gewicht(), d.largest);
        ASSERT_EQ(version(), before + 1);
        // The version holds every weight (records 3i + 3) and the largest (the last record).
        RecordFile file(dir.file("undoredo/" + std::to_string(static_cast<int>(version())) + ".zwl"));
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(file.getSingle(3 * i + 6), static_cast<float>(form().gewicht(i)));
        }
        EXPECT_EQ(file.getSingle(static_cast<double>(file.length() / 4)), static_cast<float>(d.largest));
    }
}

// The press halfway between the first two handles picks the first; any other button than the
// right resets every weight and the largest.
TEST_F(WeightsTest, EqualDistancesPickTheLowerIndexAndOtherButtonsReset) {
    testCurve();
    open();
    press(Qt::RightButton, 1800, 2250);
    release(1800, 1530);
    EXPECT_EQ(weights(), (std::vector<double>{4, 1, 1, 1}));
    for (Qt::MouseButton b : {Qt::LeftButton, Qt::MiddleButton}) {
        form().zet_gewichten(3, 8.0);
        form().zet_grootste_gewicht(8.0);
        QTest::mouseClick(&doek(), b, Qt::NoModifier, QPoint(20, 20));
        EXPECT_EQ(weights(), (std::vector<double>{1, 1, 1, 1}));
        EXPECT_EQ(form().get_grootste_gewicht(), 1.0);
    }
}

TEST_F(WeightsTest, ARaisedWeightPullsTheCurveTowardsItsPoint) {
    testCurve();
    open();
    const auto before = curve();
    dragHandle(1, 100);
    const auto after = curve();
    ASSERT_FALSE(after.empty());
    EXPECT_LT(nearest(after, 1000, 5000), nearest(before, 1000, 5000) - 500);
}

TEST_F(WeightsTest, NewPointsGetWeightOneAndNieuwClosesTheWindowKeepingTheWeights) {
    GewichtenVenster& v = open();
    for (int i = 0; i < 3; ++i) {
        click(1500 + 1000 * i, 2000);
    }
    dragHandle(1, 1530);
    click(5000, 3000);
    click(6000, 2000);
    EXPECT_EQ(weights(), (std::vector<double>{1, 4, 1, 1, 1}));
    // The window follows: five columns of 1000 twips.
    EXPECT_EQ(handle(4), std::make_pair(5000.0, 2250.0));

    w->knop("Nieuw")->trigger();
    EXPECT_FALSE(v.isVisible());
    EXPECT_FALSE(w->gewichtstat);
    EXPECT_EQ(weights(), (std::vector<double>{1, 4, 1, 1, 1}));
    EXPECT_EQ(form().get_grootste_gewicht(), 4.0);
    open();
    EXPECT_TRUE(v.isVisible());
    EXPECT_EQ(weights(), (std::vector<double>{1, 4, 1, 1, 1}));
}

}  // namespace
}  // namespace zw
