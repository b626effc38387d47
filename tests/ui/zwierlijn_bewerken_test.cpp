#include <QAction>
#include <QApplication>
#include <QToolBar>

#include "editor_fixture.h"
#include "geometry/mat.h"
#include "knots/knoop_vector.h"
#include "platform/files.h"
#include "spline/blossom_functie.h"
#include "tools/wavelet_matrix.h"
#include "ui/kleurtjes.h"

namespace zw {
namespace {

const std::string kNothingMore = "Er is niets anders meer opgeslagen...";

class CommandTest : public EditorTest {
  protected:
    bool toolbarEnabled(const char* key) { return w->knop(key)->isEnabled(); }
    bool menuEnabled(const char* name) { return w->menu(name)->isEnabled(); }
    void clickButton(const char* key) { w->knop(key)->trigger(); }
    void clickPoints(int count) {
        for (int i = 0; i < count; ++i) {
            click(1500 + 1200 * i, i % 2 == 0 ? 2000 : 6000);
        }
    }
    // A curve of order k through `count` points, in one step as a file would give it.
    void curve(int k, int count, bool openUniform) {
        std::vector<std::pair<float, float>> points;
        for (int i = 0; i < count; ++i) {
            points.emplace_back(1000.0f + 100.0f * i, i % 2 == 0 ? 2000.0f : 6000.0f);
        }
        setCurve(*w, k, points, openUniform);
        w->Doek().refresh();
    }
    int segments() { return zw::segments(*w); }
};

// Every button's image is drawn for the screen it is shown on: twice as many pixels at twice
// the ratio, and in colour.
TEST_F(CommandTest, TheToolbarButtonsHaveImagesForAnyPixelRatio) {
    for (const QAction* action : w->Tb().actions()) {
        if (!action->isSeparator()) {
            const QPixmap twice = action->icon().pixmap(QSize(24, 24), 2.0);
            EXPECT_EQ(twice.size(), QSize(48, 48)) << action->objectName().toStdString();
            EXPECT_FALSE(twice.toImage().allGray()) << action->objectName().toStdString();
        }
    }
}

TEST_F(CommandTest, AnEmptyCanvasEnablesOnlyWhatItCanDo) {
    for (const char* key :
         {"Undo", "Redo", "ZetOrde", "Uniform", "OpenUniform", "Spline", "Helft", "Mengfuncties"}) {
        EXPECT_FALSE(toolbarEnabled(key)) << key;
    }
    for (const char* key : {"Nieuw", "Openen", "Opslaan", "Inzoemen", "Gewicht"}) {
        EXPECT_TRUE(toolbarEnabled(key)) << key;
    }
    for (const char* name : {"mntBewerkenKnopen", "mntBewerkenSpline", "mntBeeldKnopenVector",
                             "mntBeeldBezier", "mntBeeldMengFuncties", "mntBewerkenUndo"}) {
        EXPECT_FALSE(menuEnabled(name)) << name;
    }
    // No points and no order count as two segments.
    EXPECT_TRUE(menuEnabled("mntBewerkenWavelet"));
}

// ZetOrde is for two to seven points; without an order the menu's last rule offers it for more.
// It makes the Bezier curve of the points, hides the knot pane and flips the knot points.
TEST_F(CommandTest, ZetOrdeGivesTheBezierCurveOfAtMostSevenPoints) {
    clickPoints(8);
    EXPECT_FALSE(toolbarEnabled("ZetOrde"));
    EXPECT_TRUE(menuEnabled("mntBewerkenKnopenZetOrde"));
    clickButton("Undo");
    EXPECT_TRUE(toolbarEnabled("ZetOrde") && menuEnabled("mntBewerkenKnopenZetOrde"));
    const float before = version();
    clickButton("ZetOrde");
    EXPECT_EQ(w->polygoon().orde, 7.0f);
    EXPECT_EQ(version(), before + 1);
    EXPECT_TRUE(!w->knopen_zichtbaar && w->Knopen().width() == 0.0);
    EXPECT_FALSE(w->knooppunten || w->menu("mntBeeldKnooppunten")->isChecked());
    for (const char* key : {"Uniform", "OpenUniform", "Spline", "Helft", "Mengfuncties", "Undo"}) {
        EXPECT_TRUE(toolbarEnabled(key)) << key;
    }
    EXPECT_TRUE(menuEnabled("mntBeeldBezier"));
    // With an order, eight points are too many for both.
    clickPoints(1);
    EXPECT_FALSE(toolbarEnabled("ZetOrde") || menuEnabled("mntBewerkenKnopenZetOrde"));
}

TEST_F(CommandTest, TheWaveletStepIsOfferedForTwoToSixtyFourSegments) {
    for (int k : {2, 4}) {
        for (int s : {1, 2, 3, 4, 5, 7, 8, 12, 16, 31, 32, 33, 48, 63, 64, 65}) {
            curve(k, s + k - 1, true);
            const bool power = s == 2 || s == 4 || s == 8 || s == 16 || s == 32 || s == 64;
            EXPECT_EQ(menuEnabled("mntBewerkenWavelet"), power) << k << " " << s;
        }
    }
}

TEST_F(CommandTest, OpenenStartsTheHistoryAgainAndOpslaanLeavesItAlone) {
    clickPoints(3);
    clickButton("ZetOrde");
    const std::string file = dir.file("kromme.zwl");
    dialogs.queueFileName(file);
    clickButton("Opslaan");
    EXPECT_EQ(version(), 5.0f);
    EXPECT_FALSE(FileExists(dir.file("undoredo/6.zwl")));
    const FileDialogRequest& asked = dialogs.fileRequests().back().request;
    EXPECT_EQ(asked.filter, "zwierlijnbestanden (*.zwl) |*.zwl|alle bestanden (*.*)|*.*");
    EXPECT_EQ(asked.defaultExtension, ".zwl");
    // The first dialog opens at home, never in the (installed: hidden) program directory; the
    // next where the user put the curve, "Nieuw" or not.
    EXPECT_EQ(asked.directory, homeDirectory());

    clickButton("Nieuw");
    EXPECT_EQ(w->polygoon().graad, -1.0f);
    EXPECT_EQ(version(), 1.0f);
    EXPECT_TRUE(w->kleurtjes().file_bestaat);
    dialogs.queueFileName(file);
    clickButton("Openen");
    EXPECT_EQ(dialogs.fileRequests().back().request.directory, dir.path());
    EXPECT_EQ(w->polygoon().graad, 2.0f);
    EXPECT_EQ(w->polygoon().orde, 3.0f);
    EXPECT_EQ(version(), 2.0f);
    EXPECT_EQ(w->ops().maxversie, 2.0f);
    EXPECT_FALSE(toolbarEnabled("Redo"));

    // A cancelled dialog does nothing.
    clickButton("Openen");
    EXPECT_EQ(version(), 2.0f);
}

// Knot insertion by clicking: a knot where the click meets the curve, one control point more;
// the cross-check with SISL shows that the curve stays.
TEST_F(CommandTest, ASplinePuntClickInsertsAKnotWhereItMeetsTheCurve) {
    curve(4, 6, true);
    clickButton("Spline");
    EXPECT_TRUE(w->segment && w->knop("Spline")->isChecked());
    const float v = version();
    const Punt p = drawnPoint(*w, 1.25);
    click(p.X, p.Y);
    EXPECT_EQ(w->polygoon().graad, 6.0f);
    EXPECT_EQ(version(), v + 1);
    const std::vector<double> u = HeadlessWindow::knotsOf(*w);
    ASSERT_EQ(u.size(), 11u);
    EXPECT_LE(Mat().bereken_afstand(drawnPoint(*w, u[5]), p), 15.0);  // within the pixel clicked
    // Clicking the button again leaves the mode and the button pressed.
    clickButton("Spline");
    EXPECT_TRUE(!w->segment && w->knop("Spline")->isChecked());
}

// Helft also shows the knot points, and checks their item.
TEST_F(CommandTest, HelftDoublesTheSegmentsAndTheKnotCommandsRecordVersions) {
    curve(3, 4, true);
    ASSERT_EQ(segments(), 2);
    w->menu("mntBeeldKnooppunten")->trigger();
    ASSERT_FALSE(w->knooppunten || w->menu("mntBeeldKnooppunten")->isChecked());
    const float v = version();
    clickButton("Helft");
    EXPECT_EQ(segments(), 4);
    EXPECT_EQ(version(), v + 1);
    EXPECT_TRUE(w->knooppunten && w->menu("mntBeeldKnooppunten")->isChecked());
    clickButton("Uniform");
    EXPECT_FALSE(w->vec().openuniform);
    clickButton("OpenUniform");
    EXPECT_TRUE(w->vec().openuniform);
    EXPECT_EQ(version(), v + 3);
}

TEST_F(CommandTest, TheWaveletStepHalvesTheSegmentsFromTheMenu) {
    curve(4, 11, true);
    const float v = version();
    w->menu("mntBewerkenWavelet")->trigger();  // no tables beside this program yet
    EXPECT_EQ(dialogs.messages().size(), 1u);
    EXPECT_EQ(segments(), 8);
    EXPECT_EQ(version(), v + 1);  // recorded all the same

    makeDirectory(dir.file("Wavelet"));
    writeWaveletTable(dir.file("Wavelet"), 4, 3);
    w->menu("mntBewerkenWavelet")->trigger();
    EXPECT_EQ(segments(), 4);
    EXPECT_EQ(version(), v + 2);
    EXPECT_TRUE(menuEnabled("mntBewerkenWavelet"));
}

TEST_F(CommandTest, UndoAndRedoWalkTheVersions) {
    clickPoints(3);
    w->menu("mntBewerkenUndo")->trigger();
    w->menu("mntBewerkenUndo")->trigger();
    EXPECT_EQ(w->polygoon().graad, 0.0f);
    EXPECT_TRUE(toolbarEnabled("Redo"));
    // The keyboard as a desktop editor has it.
    QApplication::setActiveWindow(w.get());
    QTest::keyClick(w.get(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(w->polygoon().graad, 1.0f);
    QTest::keyClick(w.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(w->polygoon().graad, 2.0f);
    EXPECT_TRUE(dialogs.messages().empty());
    // At the end of the history the button is off; the command itself says so.
    EXPECT_FALSE(toolbarEnabled("Redo"));
    w->mntBewerkenRedo_Click();
    ASSERT_EQ(dialogs.messages().size(), 1u);
    EXPECT_EQ(dialogs.messages()[0].text, kNothingMore);
    QTest::keyClick(w.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(w->polygoon().graad, 1.0f);
    // A new version cuts the chain: the one it replaces is gone, the new one is the last.
    click(7500, 3000);
    EXPECT_FALSE(toolbarEnabled("Redo"));
    w->mntBewerkenUndo_Click();
    w->mntBewerkenRedo_Click();
    EXPECT_EQ(w->polygoon().punten(2).X, 7500);
    // Nothing comes before the first version, the empty curve.
    for (int i = 0; i < 4; ++i) {
        w->mntBewerkenUndo_Click();
    }
    EXPECT_EQ(w->polygoon().graad, -1.0f);
    EXPECT_EQ(dialogs.messages().size(), 2u);
}

}  // namespace
}  // namespace zw
