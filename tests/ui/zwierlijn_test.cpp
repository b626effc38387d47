#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenuBar>
#include <QProcess>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QPushButton>
#include <QSlider>
#include <sstream>

#include "editor_fixture.h"
#include "knots/knoop_vector.h"
#include "platform/files.h"
#include "platform/qimage_sink.h"
#include "spline/blossom_functie.h"
#include "ui/handleiding_venster.h"
#include "ui/kleurtjes.h"
#include "window/constructie_beeld.h"

namespace zw {
namespace {

class FirstStartTest : public EditorTest {
  protected:
    FirstStartTest() : EditorTest(false) {}
};

TEST_F(EditorTest, StartsWithTheSettingsAndTheFixedState) {
    EXPECT_TRUE(dialogs.messages().empty());
    EXPECT_TRUE(dialogs.shown().empty());
    for (const ColourSetting& c : kColourSettings) {
        EXPECT_EQ(w.get()->*c.variable, setting(c.record)) << "record " << c.record;
    }
    EXPECT_EQ(w->ControleStraal, setting(6));
    EXPECT_EQ(w->berngrootte, setting(7));
    EXPECT_EQ(w->Schaal, 2);  // the stored factor never takes effect

    // The empty curve is the first version, in a history directory made for it.
    EXPECT_EQ(version(), 1.0f);
    EXPECT_TRUE(FileExists(dir.file("undoredo/1.zwl")));
    // The canvas fills the client area; without a curve the knot pane is hidden.
    EXPECT_EQ(w->doekWidget().size(), w->centralWidget()->size());
    EXPECT_EQ(w->Knopen().width(), 0.0);
    // The colour table's index wraps at 8.
    EXPECT_EQ(w->kleur(1), rgb(0, 255, 0));
    EXPECT_EQ(w->kleur(9), w->kleur(1));
}

// A first start announces and creates the settings file, which grows record by record as the user
// sets values, and shows the settings dialog modally; "Kleuren" shows it beside the editor.
TEST_F(FirstStartTest, AnnouncesTheSettingsFileAndShowsItsDialogModallyThenBesideTheEditor) {
    ASSERT_EQ(dialogs.messages().size(), 1u);
    EXPECT_EQ(dialogs.messages()[0].text, "File: " + dir.path() +
                                              "\\zwierlijn wordt aangemaakt nu. Vergeet het "
                                              "instellingen formulier niet te initialiseren...");
    EXPECT_TRUE(FileExists(dir.file("zwierlijn")));
    dialogs.queueColour(rgb(1, 2, 3));
    w->kleurtjes().knop("Lijn")->click();
    EXPECT_EQ(fileLength(dir.file("zwierlijn")), 20);
    EXPECT_EQ(RecordFile(dir.file("zwierlijn")).getLong(5), rgb(1, 2, 3));
    w->menu("mntBeeldKleuren")->trigger();
    ASSERT_EQ(dialogs.shown().size(), 2u);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(dialogs.shown()[i].window, "Kleurtjes");
        EXPECT_EQ(dialogs.shown()[i].modal, i == 0);
    }
}

// The settings dialog on its own, beside a window without widgets.
struct Dialog {
    Dialog() {
        RecordFile(dir.file("zwierlijn")).putLong(12, 0);
        form = std::make_unique<Kleurtjes>(w, dialogs, guard, dir.path());
    }
    std::int32_t record(int r) { return RecordFile(dir.file("zwierlijn")).getLong(r); }
    void type(QLineEdit* box, const char* text) {
        box->selectAll();
        QTest::keyClicks(box, QString::fromLatin1(text));
    }

    TestDir dir;
    HeadlessWindow w;
    ScriptedDialogs dialogs;
    EventGuard guard{dialogs};
    std::unique_ptr<Kleurtjes> form;
};

// The records are the ones the editor reads at start-up.
TEST(Kleurtjes, ColourButtonsAndTheRadiusSetTheirVariableAndRecord) {
    Dialog d;
    int colour = 100;
    for (const ColourSetting& c : kColourSettings) {
        d.dialogs.queueColour(++colour);
        d.form->knop(c.button)->click();
        EXPECT_EQ(d.w.*(c.variable), colour) << c.button;
        EXPECT_EQ(d.record(c.record), colour) << c.button;
    }
    EXPECT_EQ(d.w.Doek().backColour(), 104);
    // Cancelled: nothing changes.
    d.dialogs.queueColour(std::nullopt);
    d.form->knop("Kromme")->click();
    EXPECT_EQ(d.w.krommekleur, 102);
    EXPECT_EQ(d.record(2), 102);
    // The radius is rounded, halves to even.
    d.form->show();
    for (const auto& [text, expected] : {std::pair{"12.6", 13}, {"12.5", 12}, {"abc", 0}}) {
        d.type(d.form->Straal(), text);
        QTest::keyClick(d.form->Straal(), Qt::Key_Return);
        EXPECT_EQ(d.w.ControleStraal, expected) << text;
        EXPECT_EQ(d.record(6), expected) << text;
    }
}

TEST(Kleurtjes, EnterAppliesTheLastValidatedValueAndOnlyMovingWithinTheDialogValidates) {
    Dialog d;
    d.w.berngrootte = 3000;
    d.form->show();
    d.form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(d.form.get()));
    d.form->bern()->setFocus();
    EXPECT_EQ(d.form->bern()->text(), "3000");
    d.type(d.form->bern(), "2500");
    QTest::keyClick(d.form->bern(), Qt::Key_Return);
    EXPECT_EQ(d.w.berngrootte, 0);  // nothing validated yet
    d.form->Straal()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(d.w.berngrootte, 2500);
    EXPECT_EQ(d.record(7), 2500);
    // A switch to another window validates nothing: the box's text is stale after a zoom, which
    // the dialog shows when it is active again.
    d.w.ControleStraal = 30;
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(d.form->Straal(), &away);
    EXPECT_EQ(d.w.ControleStraal, 30);
    EXPECT_NE(d.record(6), 30);
    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(d.form.get(), &back);
    EXPECT_EQ(d.form->Straal()->text(), "30");
    d.type(d.form->Straal(), "77");
    d.form->knop("Exit")->click();
    EXPECT_EQ(d.w.ControleStraal, 77);
    EXPECT_FALSE(d.form->isVisible());
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
    EXPECT_TRUE(recordsOf(w->Doek(), DrawKind::kLine, w->krommekleur).empty());
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
                  fieldsOf(DrawRecord{DrawKind::kCircle, xy[i][0], xy[i][1], 0, 0, 60, setting(3),
                                      1, kFillSolid, setting(3)}));
        if (i > 0) {
            EXPECT_EQ(fieldsOf(log[r++]),
                      fieldsOf(DrawRecord{DrawKind::kLine, xy[i - 1][0], xy[i - 1][1], xy[i][0],
                                          xy[i][1], 0, setting(5), 1, kFillSolid, setting(3)}));
        }
    }
    // The rest is the curve: a disc at each end and 21 lines, 20 steps of 0.05 and the closing
    // piece. One uniform cubic segment runs from (P0 + 4 P1 + P2) / 6 to (P1 + 4 P2 + P3) / 6.
    const std::vector<DrawRecord> curve = recordsOf(w->Doek(), DrawKind::kLine, setting(2));
    EXPECT_EQ(recordsOf(w->Doek(), DrawKind::kCircle, setting(1)).size(), 2u);
    ASSERT_EQ(log.size(), r + 2 + 21);
    ASSERT_EQ(curve.size(), 21u);
    for (const DrawRecord& line : curve) {
        EXPECT_EQ(line.drawWidth, 3);
    }
    EXPECT_EQ(std::make_pair(curve[0].x1, curve[0].y1), std::make_pair(2000.0, 4333.0));
    EXPECT_EQ(std::make_pair(curve[20].x2, curve[20].y2), std::make_pair(6000.0, 4333.0));
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
}

TEST_F(EditorTest, ADragSamplesByTheDragStepTableAndTheReleaseRestoresTheStep) {
    // On an empty canvas a right click moves nothing and shows no error.
    QTest::mouseClick(&w->doekWidget(), Qt::RightButton, Qt::NoModifier, QPoint(20, 20));
    EXPECT_TRUE(dialogs.messages().empty());
    EXPECT_EQ(w->polygoon().graad, -1.0f);
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

// The knot pane lies along the bottom, also after a resize; a right drag in it moves a knot and
// the release records it.
TEST_F(EditorTest, TheKnotPaneAlongTheBottomMovesAKnotWithTheRightButton) {
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

    w->mntBeeldKnopenVector_Click();
    EXPECT_EQ(w->Knopen().width(), 0.0);
    w->resize(w->width() - 100, w->height());
    QCoreApplication::processEvents();
    EXPECT_EQ(w->Knopen().width(), 0.0);
}

TEST_F(EditorTest, ZoomHalvesAndDoublesTheViewAndTheDiscs) {
    testCurve();
    const double W = std::lround(w->scaleWidth());
    const double H = std::lround(w->scaleHeight());
    auto view = [&] {
        const Surface& d = w->Doek();
        return std::vector<double>{d.scaleLeft(), d.scaleTop(), d.scaleWidth(), d.scaleHeight()};
    };
    const std::tuple<const char*, std::vector<double>, int> zooms[] = {
        {"mntBeeldZoomInzoemen", {W / 4, H / 4, W / 2, H / 2}, 30},
        {"mntBeeldZoomNormaal", {0, 0, W, H}, 60},
        {"mntBeeldZoomUitzoemen", {-W / 2, -H / 2, 2 * W, 2 * H}, 120}};
    for (const auto& [item, seen, radius] : zooms) {
        w->menu(item)->trigger();
        EXPECT_EQ(view(), seen) << item;
        EXPECT_EQ(w->ControleStraal, radius) << item;
        EXPECT_EQ(doekLog()[0].radius, radius) << item;
    }

    // Halves go to the even neighbour: a radius of 1 vanishes, 3 becomes 2.
    for (auto [from, to] : {std::pair{1, 0}, std::pair{3, 2}}) {
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
    const std::pair<QString, float> details[] = {{"mntBeeldDetailLow", 0.2f},
                                                 {"mntBeeldDetailNormaal", 0.1f},
                                                 {"mntBeeldDetailHigh", 0.05f}};
    for (const auto& [name, step] : details) {
        w->menu(name)->trigger();  // through the menu, as the user does
        EXPECT_EQ(w->evaluator().stap, step);
        for (const auto& other : details) {
            EXPECT_EQ(w->menu(other.first)->isChecked(), other.first == name);
        }
    }
    w->menu("mntBeeldDetailHigh")->trigger();  // choosing the checked one keeps it checked
    EXPECT_TRUE(w->menu("mntBeeldDetailHigh")->isChecked());

    w->menu("mntBeeldKnooppunten")->trigger();
    EXPECT_FALSE(w->menu("mntBeeldKnooppunten")->isChecked());
    EXPECT_TRUE(recordsOf(w->Doek(), DrawKind::kCircle, setting(1)).empty());  // no knot discs
    w->menu("mntbeeldsleepdetail")->trigger();
    EXPECT_FALSE(w->sleep_detail);

    // The blending pane on from the menu, off from the toolbar: the item's mark, the button's
    // pressed state and the pane in the canvas' top-right corner follow.
    for (const bool fromMenu : {true, false}) {
        (fromMenu ? w->menu("mntBeeldMengFuncties") : w->knop("Mengfuncties"))->trigger();
        EXPECT_EQ(w->menu("mntBeeldMengFuncties")->isChecked(), fromMenu);
        EXPECT_EQ(w->knop("Mengfuncties")->isChecked(), fromMenu);
        const QRect pane = w->mengWidget().geometry();
        EXPECT_EQ(pane, fromMenu ? QRect(w->doekWidget().width() - 200, 0, 200, 200) : QRect());
    }
}

QByteArray inhoud(const QString& bestand) {
    QFile file(bestand);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What an export could disturb beyond the canvas' picture: every menu item and button, the
// flags without one, the history and its versions in the undo directory.
std::string stand(ZwierlijnVenster& w, const std::string& map) {
    std::ostringstream s;
    for (const QAction* a : w.findChildren<QAction*>()) {
        s << a->objectName().toStdString() << a->isEnabled() << a->isChecked() << ' ';
    }
    s << w.segment << w.gewichtstat << w.ops().versie << w.ops().maxversie;
    const QDir undo(QString::fromStdString(map + "/undoredo"));
    for (const QFileInfo& f : undo.entryInfoList(QDir::Files, QDir::Name)) {
        s << ' ' << f.fileName().toStdString() << inhoud(f.filePath()).toHex().toStdString();
    }
    return s.str();
}

// In each format, from a menu of its own after the classic three: the export asks for nothing
// but the file, gives the renderer's figure byte for byte for the same curve, views, settings and
// size, and leaves the drawing, its history and its view alone. A file that cannot be written
// ends the action with its run-time error.
TEST_F(EditorTest, ExportIsTheRenderersFigureAndLeavesEverythingAsItWas) {
    const QList<QAction*> menus = w->menuBar()->actions();
    EXPECT_TRUE(menus.size() == 4 && menus[2]->text() == "&Beeld" && menus[3]->text() == "E&xtra");
    testCurve();
    w->menu(QStringLiteral("mntBeeldBezier"))->trigger();
    w->menu(QStringLiteral("mntBeeldMengFuncties"))->trigger();
    w->ops().opslaan(dir.file("k.zwl"));
    const std::string voor = stand(*w, dir.path());
    const QImage doek = imageOf(w->Doek()).copy();
    const auto pad = [&](const char* naam) { return QString::fromStdString(dir.file(naam)); };
    for (const char* soort : {"svg", "png", "pdf", "nee/f.svg"}) {
        const QString editor = pad("editor.") + QLatin1String(soort);
        dialogs.queueFileName(editor.toStdString());
        w->menu(QStringLiteral("mntExtraExporteren"))->trigger();
        const QString render = pad("render.") + QLatin1String(soort);
        QProcess p;
        p.start(QStringLiteral(ZW_RENDER),
                {pad("k.zwl"), render, QStringLiteral("--grootte"),
                 QStringLiteral("%1x%2").arg(w->Doek().pixelWidth()).arg(w->Doek().pixelHeight()),
                 "--bezier", "--mengfuncties", "--instellingen", pad("zwierlijn")});
        ASSERT_TRUE(p.waitForFinished(60000));
        // A PDF carries the time it was made.
        EXPECT_TRUE(soort[1] == 'd' || inhoud(editor) == inhoud(render)) << soort;
        EXPECT_EQ(QFile::exists(editor), dialogs.messages().empty());
    }
    ASSERT_EQ(dialogs.messages().size(), 1u);
    EXPECT_EQ(dialogs.messages()[0].text, errorMessage(RuntimeError(kErrPathNotFound)));
    EXPECT_EQ(
        dialogs.fileRequests().back().request.filter,
        "SVG-afbeelding (*.svg)|*.svg|PDF-document (*.pdf)|*.pdf|PNG-afbeelding (*.png)|*.png");
    EXPECT_EQ(stand(*w, dir.path()), voor);
    EXPECT_EQ(imageOf(w->Doek()), doek);
}

// Ctrl+T shows the construction's window beside the editor; its buttons step the levels and
// Right moves t by a hundredth of the range; closing the window turns the view off and clears
// the menu's mark.
TEST_F(EditorTest, TheConstructionsWindowStepsMovesAndClosesTheView) {
    testCurve();
    QAction* item = w->menu(QStringLiteral("mntExtraConstructie"));
    EXPECT_EQ(item->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_T));
    item->trigger();
    QWidget* venster = w->findChild<QWidget*>(QStringLiteral("Constructie"));
    ASSERT_TRUE(venster != nullptr);
    EXPECT_EQ(dialogs.shown().back().window, "Constructie");  // shown beside the editor
    EXPECT_EQ(venster->windowTitle(), QStringLiteral("Constructie"));
    EXPECT_TRUE(item->isChecked());
    ConstructieBeeld& c = w->constructie();
    const auto knop = [&](const char* tekst) {
        for (QPushButton* b : venster->findChildren<QPushButton*>()) {
            if (b->text() == QString::fromUtf8(tekst)) {
                return b;
            }
        }
        return static_cast<QPushButton*>(nullptr);
    };
    ASSERT_TRUE(knop("Vorige stap") && knop("Volgende stap") && knop("Afspelen") &&
                knop("Invoegen"));
    knop("Vorige stap")->click();
    EXPECT_EQ(c.niveau(), 2);
    const double t = c.t(), breed = c.bereik()->eind - c.bereik()->begin;
    QSlider* schuif = venster->findChild<QSlider*>();
    schuif->setFocus();
    QTest::keyClick(schuif, Qt::Key_Right);
    EXPECT_NEAR(c.t(), t + breed / 100, 1e-9);
    venster->close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(c.aan() || item->isChecked());
}

// F1 opens the manual on its first page, from the menu as well; every page the manual links is
// there and every picture it names loads. "Over Zwierlijn" names the directory the editor runs
// from and its settings file.
TEST_F(EditorTest, TheManualOpensOnItsFirstPageAndHoldsEveryPageAndPictureItNames) {
    QAction* item = w->menu(QStringLiteral("mntExtraHandleiding"));
    EXPECT_EQ(item->shortcut(), QKeySequence(Qt::Key_F1));
    item->trigger();
    auto* handleiding =
        dynamic_cast<HandleidingVenster*>(w->findChild<QWidget*>(QStringLiteral("Handleiding")));
    ASSERT_NE(handleiding, nullptr);
    EXPECT_EQ(dialogs.shown().back().window, "Handleiding");
    EXPECT_EQ(handleiding->browser().source().fileName(), QStringLiteral("eerste-kromme.html"));
    EXPECT_GT(handleiding->paginas().size(), 8);
    const QRegularExpression verwijzing(QStringLiteral("(href|src)=\"([^\"#:]+)"));
    for (const QString& pagina : QDir(HandleidingVenster::kMap).entryList({"*.html"})) {
        QFile bestand(HandleidingVenster::kMap + pagina);
        ASSERT_TRUE(bestand.open(QIODevice::ReadOnly)) << pagina.toStdString();
        const QString html = QString::fromUtf8(bestand.readAll());
        for (auto m = verwijzing.globalMatch(html); m.hasNext();) {
            const auto gevonden = m.next();
            const QString doel = HandleidingVenster::kMap + gevonden.captured(2);
            SCOPED_TRACE((pagina + " -> " + gevonden.captured(2)).toStdString());
            EXPECT_TRUE(gevonden.captured(1) == "href" ? QFile::exists(doel) : !QImage(doel).isNull());
        }
    }
    w->menu(QStringLiteral("mntExtraOver"))->trigger();
    const std::string over = dialogs.messages().back().text;
    EXPECT_NE(over.find("Programmamap: " + dir.path()), std::string::npos) << over;
    EXPECT_NE(over.find(dir.path() + "/zwierlijn"), std::string::npos) << over;
}

}  // namespace
}  // namespace zw
