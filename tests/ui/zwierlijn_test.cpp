#include <QAction>
#include <QLabel>

#include "editor_fixture.h"
#include "knots/knoop_vector.h"
#include "platform/files.h"
#include "spline/blossom_functie.h"

namespace zw {
namespace {

class FirstStartTest : public EditorTest {
  protected:
    FirstStartTest() : EditorTest(false) {}
};

TEST_F(EditorTest, StartsWithTheSettingsAndTheFixedState) {
    EXPECT_TRUE(dialogs.messages().empty());
    EXPECT_TRUE(dialogs.shown().empty());
    struct {
        Colour MainWindow::*field;
        int record;
    } const colours[] = {{&MainWindow::Datakleur, 1},    {&MainWindow::krommekleur, 2},
                         {&MainWindow::controlkleur, 3}, {&MainWindow::doekkleur, 4},
                         {&MainWindow::lijnkleur, 5},    {&MainWindow::segmentkleur, 8},
                         {&MainWindow::Bezierkleur, 10}, {&MainWindow::Reeel, 11},
                         {&MainWindow::virtueel, 12}};
    for (const auto& c : colours) {
        EXPECT_EQ(w.get()->*c.field, kSettings[c.record]) << "record " << c.record;
    }
    EXPECT_EQ(w->ControleStraal, 60);
    EXPECT_EQ(w->berngrootte, 3000);
    EXPECT_EQ(w->Schaal, 2);  // the stored factor never takes effect
    EXPECT_EQ(w->BollenStraal, 60);
    EXPECT_EQ(w->hoogte, 500.0f);
    EXPECT_EQ(w->vectorlengte, w->scaleWidth() - 2000.0f);

    // The empty curve is the first version, in a history directory made for it.
    EXPECT_EQ(version(), 1.0f);
    EXPECT_TRUE(FileExists(dir.file("undoredo/1.zwl")));

    EXPECT_EQ(w->evaluator().stap, 0.05f);
    EXPECT_TRUE(w->menu("mntBeeldDetailHigh")->isChecked());
    EXPECT_FALSE(w->menu("mntBeeldDetailLow")->isChecked());
    EXPECT_TRUE(w->knopen_zichtbaar);
    EXPECT_TRUE(w->menu("mntBeeldKnopenVector")->isChecked());
    EXPECT_TRUE(w->knooppunten);
    EXPECT_TRUE(w->menu("mntBeeldKnooppunten")->isChecked());
    EXPECT_TRUE(w->sleep_detail);

    // The canvas fills the client area in twips; without a curve the knot pane is hidden.
    EXPECT_EQ(w->Doek().scaleWidth(), w->scaleWidth());
    EXPECT_EQ(w->Doek().scaleHeight(), w->scaleHeight());
    EXPECT_EQ(w->Knopen().width(), 0.0);
    EXPECT_EQ(w->doekWidget().size(), w->centralWidget()->size());

    EXPECT_EQ(w->bestandsdialoog().filter,
              "zwierlijnbestanden (*.zwl) |*.zwl|alle bestanden (*.*)|*.*");
    EXPECT_EQ(w->bestandsdialoog().defaultExtension, ".zwl");
    EXPECT_EQ(w->CoordLabel().text(), QStringLiteral("Vanalles en nog wa"));

    // Colour table: light grey, then the bright palette entries; the index wraps at 8.
    EXPECT_EQ(w->kleur(0), rgb(225, 225, 225));
    EXPECT_EQ(w->kleur(8), rgb(225, 225, 225));
    EXPECT_EQ(w->kleur(1), rgb(0, 255, 0));
    EXPECT_EQ(w->kleur(9), w->kleur(1));
    EXPECT_EQ(w->kleur(7), rgb(128, 0, 0));
}

TEST_F(FirstStartTest, AnnouncesTheSettingsFileAndShowsTheDialogModally) {
    ASSERT_EQ(dialogs.messages().size(), 1u);
    EXPECT_NE(dialogs.messages()[0].text.find("wordt aangemaakt nu"), std::string::npos);
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_EQ(dialogs.shown()[0].window, "Kleurtjes");
    EXPECT_TRUE(dialogs.shown()[0].modal);
}

TEST_F(EditorTest, LeftClicksAppendPointsEachAVersion) {
    const double at[][2] = {{1500, 1200}, {3000, 4500}, {6000, 1500}};
    for (const auto& p : at) {
        click(p[0], p[1]);
    }
    ASSERT_EQ(w->polygoon().graad, 2.0f);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(w->polygoon().punten(i).X, at[i][0]);
        EXPECT_EQ(w->polygoon().punten(i).Y, at[i][1]);
    }
    EXPECT_EQ(version(), 4.0f);
    EXPECT_EQ(RecordFile(dir.file("undoredo/4.zwl")).getSingle(1), 2.0f);
    // No order yet: points and legs only, and no knot pane.
    for (const DrawRecord& r : doekLog()) {
        EXPECT_NE(r.colour, w->krommekleur);
    }
    EXPECT_EQ(w->knopenWidget().width(), 0);
}

// The polygon first (each disc, then the leg that reaches it), then the curve, three pixels
// wide, from the start point through the knot points to the end point.
TEST_F(EditorTest, RedrawsPolygonThenCurve) {
    testCurve();
    const std::vector<DrawRecord> log = doekLog();
    const float xy[4][2] = {{1000, 1000}, {1000, 5000}, {7000, 5000}, {7000, 1000}};
    ASSERT_GT(log.size(), 7u);
    std::size_t r = 0;
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(fieldsOf(log[r++]),
                  fieldsOf(DrawRecord{DrawKind::kCircle, xy[i][0], xy[i][1], 0, 0, 60, kSettings[3],
                                      1, kFillSolid, kSettings[3]}));
        if (i > 0) {
            EXPECT_EQ(fieldsOf(log[r++]),
                      fieldsOf(DrawRecord{DrawKind::kLine, xy[i - 1][0], xy[i - 1][1], xy[i][0],
                                          xy[i][1], 0, kSettings[5], 1, kFillSolid, kSettings[3]}));
        }
    }
    // The rest is the curve: its discs at both ends, a polyline of 3-pixel lines between.
    std::vector<const DrawRecord*> lines;
    int discs = 0;
    for (; r < log.size(); ++r) {
        if (log[r].kind == DrawKind::kCircle) {
            EXPECT_EQ(log[r].colour, kSettings[1]);
            ++discs;
        } else {
            EXPECT_EQ(log[r].colour, kSettings[2]);
            EXPECT_EQ(log[r].drawWidth, 3);
            lines.push_back(&log[r]);
        }
    }
    EXPECT_EQ(discs, 2);
    ASSERT_EQ(lines.size(), 21u);  // 20 steps of 0.05 and the closing piece
    // One uniform cubic segment: it runs from (P0 + 4 P1 + P2) / 6 to (P1 + 4 P2 + P3) / 6.
    EXPECT_EQ(lines.front()->x1, 2000);
    EXPECT_EQ(lines.front()->y1, 4333);
    EXPECT_EQ(lines.back()->x2, 6000);
    EXPECT_EQ(lines.back()->y2, 4333);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i]->x1, lines[i - 1]->x2);
        EXPECT_EQ(lines[i]->y1, lines[i - 1]->y2);
    }
    EXPECT_EQ(w->Doek().drawWidth(), 1);
}

TEST_F(EditorTest, RightDragMovesTheNearestPointAndTheReleaseRecordsOneVersion) {
    testCurve();
    const float before = version();
    QTest::mousePress(&w->doekWidget(), Qt::RightButton, Qt::NoModifier,
                      pixel(w->Doek(), 6900, 4900));
    moveWith(w->doekWidget(), Qt::RightButton, pixel(w->Doek(), 6000, 6000));
    EXPECT_EQ(w->polygoon().punten(2).X, 6000);
    EXPECT_EQ(w->polygoon().punten(2).Y, 6000);
    EXPECT_EQ(version(), before);
    // The redraw during the drag shows the point where it is now.
    EXPECT_EQ(doekLog()[3].x1, 6000);
    QTest::mouseRelease(&w->doekWidget(), Qt::RightButton, Qt::NoModifier,
                        pixel(w->Doek(), 6150, 6150));
    EXPECT_EQ(w->polygoon().punten(2).X, 6150);
    EXPECT_EQ(version(), before + 1);
    EXPECT_EQ(RecordFile(dir.file("undoredo/3.zwl")).getSingle(10), 6150.0f);
    // Other points stay.
    EXPECT_EQ(w->polygoon().punten(1).X, 1000);
}

TEST_F(EditorTest, ADragSamplesByTheDragStepTableAndTheReleaseRestoresTheStep) {
    testCurve();
    struct {
        bool openUniform;
        bool detailed;
        float during;
    } const cases[] = {
        {true, true, 0.15f}, {true, false, 1.0f}, {false, true, 0.05f}, {false, false, 0.25f}};
    for (const auto& c : cases) {
        w->vec().openuniform = c.openUniform;
        w->sleep_detail = c.detailed;
        QTest::mousePress(&w->doekWidget(), Qt::RightButton, Qt::NoModifier,
                          pixel(w->Doek(), 1000, 1000));
        EXPECT_FLOAT_EQ(w->evaluator().stap, c.during) << c.openUniform << c.detailed;
        QTest::mouseRelease(&w->doekWidget(), Qt::RightButton, Qt::NoModifier,
                            pixel(w->Doek(), 1000, 1000));
        EXPECT_EQ(w->evaluator().stap, 0.05f);
    }
    // A middle-button press changes the step too, and only a right release restores it.
    w->vec().openuniform = false;
    w->sleep_detail = false;
    QTest::mouseClick(&w->doekWidget(), Qt::MiddleButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(w->evaluator().stap, 0.25f);
}

TEST_F(EditorTest, ARightClickOnAnEmptyCanvasMovesNothingAndShowsNoError) {
    QTest::mouseClick(&w->doekWidget(), Qt::RightButton, Qt::NoModifier, QPoint(20, 20));
    EXPECT_TRUE(dialogs.messages().empty());
    EXPECT_EQ(w->polygoon().graad, -1.0f);
    EXPECT_EQ(w->evaluator().stap, 0.05f);
}

TEST_F(EditorTest, TheKnotPaneLiesAlongTheBottomAlsoAfterAResize) {
    testCurve();
    auto expectAlongTheBottom = [&] {
        EXPECT_EQ(w->Knopen().top(), w->scaleHeight() - 750.0f);
        EXPECT_EQ(w->Knopen().width(), w->scaleWidth());
        EXPECT_EQ(w->Knopen().height(), 750.0);
        EXPECT_EQ(w->knopenWidget().geometry(),
                  QRect(0, w->centralWidget()->height() - 50, w->centralWidget()->width(), 50));
    };
    expectAlongTheBottom();
    w->resize(w->width() + 120, w->height() + 90);
    QCoreApplication::processEvents();
    expectAlongTheBottom();
    EXPECT_EQ(w->vectorlengte, w->scaleWidth() - 2000.0f);

    w->mntBeeldKnopenVector_Click();
    EXPECT_FALSE(w->menu("mntBeeldKnopenVector")->isChecked());
    EXPECT_EQ(w->Knopen().width(), 0.0);
    w->resize(w->width() - 100, w->height());
    QCoreApplication::processEvents();
    EXPECT_EQ(w->Knopen().width(), 0.0);
}

TEST_F(EditorTest, ARightDragInTheKnotPaneMovesTheKnotAndTheReleaseRecordsIt) {
    testCurve();
    w->vec().openuniform = true;
    const Surface& pane = w->Knopen();
    // Knots -3 .. 4 over the line; knot 4 (value 1) goes to 1.5.
    auto x = [&](double u) { return w->breedtestap / 2 + (u + 3) * w->vectorlengte / 7; };
    const float before = version();

    // The left button picks but does not move.
    drag(w->knopenWidget(), Qt::LeftButton, x(1), 375, x(1.5), 375);
    EXPECT_EQ(w->index, 4);
    EXPECT_EQ(w->vec().knoop(4), 1.0);
    EXPECT_EQ(version(), before);

    QTest::mousePress(&w->knopenWidget(), Qt::RightButton, Qt::NoModifier, pixel(pane, x(1), 375));
    moveWith(w->knopenWidget(), Qt::RightButton, pixel(pane, x(1.5), 375));
    EXPECT_NEAR(w->vec().knoop(4), 1.5, 0.01);
    EXPECT_EQ(version(), before);
    QTest::mouseRelease(&w->knopenWidget(), Qt::RightButton, Qt::NoModifier,
                        pixel(pane, x(2.5), 375));
    // Held below the right neighbour, one millionth away.
    EXPECT_DOUBLE_EQ(w->vec().knoop(4), 2.0 - 1e-6);
    EXPECT_FALSE(w->vec().openuniform);
    EXPECT_EQ(version(), before + 1);
}

TEST_F(EditorTest, ZoomHalvesAndDoublesTheViewAndTheDiscs) {
    testCurve();
    const double W = std::lround(w->scaleWidth());
    const double H = std::lround(w->scaleHeight());
    auto view = [&] {
        const Surface& d = w->Doek();
        return std::vector<double>{d.scaleLeft(), d.scaleTop(), d.scaleWidth(), d.scaleHeight()};
    };
    w->mntBeeldZoomInzoemen_Click();
    EXPECT_EQ(view(), (std::vector<double>{W / 4, H / 4, W / 2, H / 2}));
    EXPECT_EQ(w->ControleStraal, 30);
    EXPECT_EQ(doekLog()[0].radius, 30);
    w->mntBeeldZoomInzoemen_Click();
    EXPECT_EQ(w->ControleStraal, 15);
    w->mntBeeldZoomNormaal_Click();
    EXPECT_EQ(view(), (std::vector<double>{0, 0, W, H}));
    EXPECT_EQ(w->ControleStraal, 60);

    w->mntBeeldZoomUitzoemen_Click();
    EXPECT_EQ(view(), (std::vector<double>{-W / 2, -H / 2, 2 * W, 2 * H}));
    EXPECT_EQ(w->ControleStraal, 120);

    // Halves go to the even neighbour: a radius of 1 vanishes, 3 becomes 2.
    for (auto [from, to] : {std::pair{1, 0}, std::pair{3, 2}, std::pair{5, 2}}) {
        w->ControleStraal = from;
        w->mntBeeldZoomInzoemen_Click();
        EXPECT_EQ(w->ControleStraal, to);
    }
    // Too many zoom-outs overflow the radius: the error ends the command, the editor goes on.
    w->ControleStraal = 1 << 30;
    EXPECT_FALSE(guard.run([&] { w->mntBeeldZoomUitzoemen_Click(); }));
    EXPECT_EQ(dialogs.messages().size(), 1u);
}

TEST_F(EditorTest, DetailAndViewToggles) {
    testCurve();
    const std::pair<void (Zwierlijn::*)(), const char*> details[] = {
        {&Zwierlijn::mntBeeldDetailLow_Click, "mntBeeldDetailLow"},
        {&Zwierlijn::mntBeeldDetailNormaal_Click, "mntBeeldDetailNormaal"},
        {&Zwierlijn::mntBeeldDetailHigh_Click, "mntBeeldDetailHigh"}};
    const float steps[] = {0.2f, 0.1f, 0.05f};
    for (int i = 0; i < 3; ++i) {
        // Chosen through the menu, as the user does.
        w->menu(details[i].second)->trigger();
        EXPECT_EQ(w->evaluator().stap, steps[i]);
        for (const auto& d : details) {
            EXPECT_EQ(w->menu(d.second)->isChecked(), d.second == details[i].second);
        }
    }
    w->menu("mntBeeldDetailHigh")->trigger();  // choosing the checked one keeps it checked
    EXPECT_TRUE(w->menu("mntBeeldDetailHigh")->isChecked());

    w->menu("mntBeeldKnooppunten")->trigger();
    EXPECT_FALSE(w->knooppunten);
    EXPECT_FALSE(w->menu("mntBeeldKnooppunten")->isChecked());
    for (const DrawRecord& r : doekLog()) {
        EXPECT_NE(r.colour, kSettings[1]);  // no knot discs
    }

    const std::size_t drawn = doekLog().size();
    w->menu("mntbeeldsleepdetail")->trigger();
    EXPECT_FALSE(w->sleep_detail);
    EXPECT_FALSE(w->menu("mntbeeldsleepdetail")->isChecked());
    EXPECT_EQ(doekLog().size(), drawn);
}

}  // namespace
}  // namespace zw
