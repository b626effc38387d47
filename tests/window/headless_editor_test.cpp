#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <tuple>
#include <vector>

#include "editor_script.h"
#include "headless_window.h"
#include "platform/qimage_sink.h"
#include "platform/werk.h"
#include "views/constructie.h"
#include "window/afbeelding.h"
#include "window/constructie_beeld.h"

namespace zw {
namespace {

struct Editor {
    explicit Editor(int breedte = 800, int hoogte = 600) : w(dir.path(), dialogs, breedte, hoogte) {
        std::filesystem::create_directory_symlink(ZW_WAVELET_DIR, dir.file("Wavelet"));
        EXPECT_TRUE(EventGuard(dialogs).run([&] { w.start(); }));
    }
    TestDir dir;
    ScriptedDialogs dialogs;
    HeadlessEditor w;
};

// Inputs the fuzzer found interesting: each goes through everything a user can do with an
// opened file, every step ending in success or a classic run-time error. As in the fuzz target,
// an action has a fiftieth of its budget: many inputs run into it, and the sanitizers are slow.
TEST(HeadlessEditor, TheFuzzCorpusGoesThroughTheWholeEditor) {
    struct Grens {
        Grens() { zetWerkGrens(kWerkGrens / 50); }
        ~Grens() { zetWerkGrens(kWerkGrens); }
    } grens;
    const std::filesystem::path corpus =
        std::filesystem::path(ZW_SOURCE_DIR) / "tests/storage/corpus";
    int files = 0, opened = 0;
    for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
        Editor e(kScriptBreedte, kScriptHoogte);
        opened += speelAf(e.w, e.dialogs, entry.path().string());
        ++files;
    }
    EXPECT_GT(files, 0);
    EXPECT_GT(opened, 0);
}

// The blending pane drawn from the menu: its marks, functions and frame in order, the curve on
// the canvas. Order 1 marks every knot as inner; its blossom weighs no control point, so its real
// range divides 0 by 0 (error 6) as the canvas does, after the marks. The window's tests switch
// the pane on and off and place it.
TEST(HeadlessEditor, TheBlendingPaneDrawsKnotMarksFunctionsAndFrame) {
    const std::tuple<int, int, bool> cases[] = {{4, 7, false}, {4, 7, true}, {1, 4, false}};
    for (const auto& [k, count, open] : cases) {
        SCOPED_TRACE(k * 10 + open);
        Editor e;
        HeadlessEditor& w = e.w;
        std::vector<std::pair<float, float>> points;
        for (int i = 0; i < count; ++i)
            points.emplace_back(1000.0f + 1000.0f * i, i % 2 == 0 ? 2000.0f : 6000.0f);
        setCurve(w, k, points, open);
        w.meng().setLogging(true);
        w.Doek().setLogging(true);
        ASSERT_EQ(errorOf([&] { w.klik("mntBeeldMengFuncties"); }), k == 1 ? kErrOverflow : 0);
        ASSERT_TRUE(w.mengstat);

        // The domain's ends up the frame, then a tick per knot: the outer ones, then the inner.
        const std::vector<double> u = HeadlessWindow::knotsOf(w);
        const int L = static_cast<int>(u.size());
        const auto x = [&](int i) { return (u[i] - u[0]) / ((u[L - 1] - u[0]) / 1000000); };
        std::vector<std::tuple<double, double, Colour>> marks = {{x(k - 1), 100, w.lijnkleur},
                                                                 {x(L - k), 100, w.lijnkleur}};
        for (int i = 0; i < L; ++i) {
            if (i <= k - 2 || i >= L - k + 1) {
                marks.emplace_back(x(i), -10, w.virtueel);
            }
        }
        for (int i = k - 1; i <= L - k; ++i) {
            marks.emplace_back(x(i), -10, w.Reeel);
        }
        const std::vector<DrawRecord>& log = w.meng().log();
        ASSERT_GE(log.size(), marks.size() + (k > 1 ? 3 : 0));
        for (std::size_t m = 0; m < marks.size(); ++m) {
            const auto& [mx, top, colour] = marks[m];
            EXPECT_EQ(std::make_tuple(log[m].x1, log[m].y1, log[m].x2, log[m].y2, log[m].colour),
                      std::make_tuple(mx, 0.0, mx, top, colour));
        }
        if (k == 1) {
            continue;
        }
        // The frame's sides and its stub at the origin, not a base line.
        const double frame[3][4] = {{0, 0, 0, 100}, {1e6, 0, 1e6, 100}, {0, 0, 100, 0}};
        for (int m = 0; m < 3; ++m) {
            const DrawRecord& r = log[log.size() - 3 + m];
            EXPECT_EQ(
                std::make_tuple(r.x1, r.y1, r.x2, r.y2, r.colour),
                std::make_tuple(frame[m][0], frame[m][1], frame[m][2], frame[m][3], w.lijnkleur));
        }
        // The canvas keeps its curve: the pane's paint draws it there; the points are coloured.
        w.Doek().refresh();
        EXPECT_FALSE(recordsOf(w.Doek(), DrawKind::kLine, w.krommekleur).empty());
        std::uint32_t keer = 0;
        for (const DrawRecord& r : recordsOf(w.Doek(), DrawKind::kCircle, w.kleur(0))) {
            keer += r.times;
        }
        EXPECT_EQ(keer, static_cast<std::uint32_t>(count));
    }
}

// Each picking mode: turned on, it turns the other off, mark and all, and draws nothing yet; a
// left click picks and colours instead of adding a point, and records no version; the redraw
// marks the pick (point 3, or the points 1 .. 4 of segment 2, nearest the click); a second click
// on the item redraws without colour. "Nieuw" clears the views and their marks.
TEST(HeadlessEditor, ViewsAndPickingModesFollowTheirItems) {
    Editor e;
    HeadlessEditor& w = e.w;
    setCurve(w, 4, {{1000, 1000}, {3000, 6000}, {5000, 1500}, {7000, 6500}, {9000, 2000}});
    w.Doek().setLogging(true);
    const auto discs = [&](Colour c) {
        std::vector<double> x;  // the points' x are distinct
        for (const DrawRecord& r : recordsOf(w.Doek(), DrawKind::kCircle, c)) {
            x.push_back(r.x1);
        }
        return x;
    };
    const char* items[] = {"mntBeeldSegmentperControl", "mntBeeldControlperSegment"};
    const std::vector<double> picked[] = {{7000}, {3000, 5000, 7000, 9000}};
    for (int m = 0; m < 2; ++m) {
        w.Doek().refresh();
        const std::size_t drawn = w.Doek().log().size();
        const float versie = w.ops().versie;
        w.klik(items[m]);
        EXPECT_TRUE(w.Doek().log().size() == drawn && w.menus().vinkje(items[m]) &&
                    !w.menus().vinkje(items[1 - m]) && w.segmenten_per_controlepunt == (m == 0));
        w.Doek_MouseDown(1, 0, 7100, 6400);
        EXPECT_TRUE(w.polygoon().graad == 4.0f && w.ops().versie == versie);
        EXPECT_EQ(discs(w.segmentkleur), picked[m]);
    }
    w.klik(items[1]);
    EXPECT_TRUE(discs(w.segmentkleur).empty() && !w.controlepunten_per_segment &&
                !w.menus().vinkje(items[1]));
    w.klik("mntBeeldBezier");
    EXPECT_EQ(discs(w.Bezierkleur).size(), 8u);
    for (const char* item : {items[0], "mntBeeldMengFuncties", "mntBestandNieuw"}) {
        w.klik(item);
    }
    for (const char* item : {"mntBeeldBezier", items[0], "mntBeeldMengFuncties"}) {
        EXPECT_FALSE(w.menus().vinkje(item)) << item;
    }
    EXPECT_FALSE(w.knoppen().vinkje("Mengfuncties"));
}

// A pick the curve no longer has colours nothing and raises nothing. Seven points clicked, their
// Bezier curve, an eighth point (two segments, range 6 .. 8): the eighth point picked, Undo takes
// it away, and the redraw goes on to the knot pane; the next click picks afresh. A parameter
// picked near the end of the range is forgotten when Undo leaves the range at 7, and Redo does
// not bring it back.
TEST(HeadlessEditor, APickTheCurveNoLongerHasColoursNothing) {
    Editor e;
    HeadlessEditor& w = e.w;
    for (int i = 0; i < 7; ++i) {
        w.Doek_MouseDown(1, 0, 1000.0f + 1200.0f * i, i % 2 == 0 ? 2000.0f : 6000.0f);
    }
    w.klik("mntBewerkenKnopenZetOrde");
    w.klik("mntBeeldKnopenVector");
    w.Doek_MouseDown(1, 0, 9500, 8000);
    w.Doek().setLogging(true);
    w.Knopen().setLogging(true);
    const auto gekleurd = [&] { return recordsOf(w.Doek(), DrawKind::kCircle, w.segmentkleur); };
    for (const char* item : {"mntBeeldSegmentperControl", "mntBeeldControlperSegment"}) {
        SCOPED_TRACE(item);
        w.klik(item);
        w.Doek_MouseDown(1, 0, 9500, 8000);
        ASSERT_FALSE(gekleurd().empty());
        w.Knopen().cls();
        EXPECT_EQ(errorOf([&] { w.klik("mntBewerkenUndo"); }), 0);
        EXPECT_TRUE(gekleurd().empty());
        EXPECT_FALSE(w.Knopen().log().empty());
        EXPECT_EQ(errorOf([&] { w.klik("mntBewerkenRedo"); }), 0);
        EXPECT_TRUE(gekleurd().empty());
    }
    w.klik("mntBewerkenUndo");
    w.klik("mntBeeldSegmentperControl");
    w.Doek_MouseDown(1, 0, 1000, 2000);
    EXPECT_TRUE(w.polygoon().graad == 6.0f && gekleurd().size() == 1 && gekleurd()[0].x1 == 1000);
}

// The construction: enabled with a curve, on in the middle of the range with every level, drawn
// on the canvas' overlay (rings, discs and legs of the levels, the curve point, labels);
// "Invoegen" makes level 1 the polygon in one version; the blending pane's left button moves t;
// Undo to before ZetOrde turns it off without an error.
TEST(HeadlessEditor, TheConstructionIsDrawnOverTheCanvasAndInsertsItsParameter) {
    Editor e;
    HeadlessEditor& w = e.w;
    for (int i = 0; i < 7; ++i) {
        w.Doek_MouseDown(1, 0, 1000.0f + 1200.0f * i, i % 2 == 0 ? 2000.0f : 6000.0f);
    }
    EXPECT_FALSE(w.menus().aan("mntExtraConstructie"));
    w.klik("mntBewerkenKnopenZetOrde");
    w.klik("mntBewerkenKnopenZetuniform");
    w.klik("mntExtraConstructie");
    ConstructieBeeld& c = w.constructie();
    ASSERT_TRUE(c.aan() && w.menus().vinkje("mntExtraConstructie"));
    EXPECT_EQ(std::make_pair(c.t(), c.niveau()), std::make_pair(0.5, 6));
    Surface& laag = w.Doek().overlay();
    laag.setLogging(true);
    c.zetLabels(true);
    const auto aantal = [&](DrawKind soort) {
        return std::count_if(laag.log().begin(), laag.log().end(),
                             [&](const DrawRecord& r) { return r.kind == soort; });
    };
    EXPECT_EQ(std::make_tuple(aantal(DrawKind::kCircle), aantal(DrawKind::kLine),
                              aantal(DrawKind::kText)),
              std::make_tuple(7 + 28 + 1, 21, 28));
    const std::optional<Constructie> voor = bouw_constructie(kromme_van(w), c.t());
    const float versie = w.ops().versie;
    c.invoegen();
    EXPECT_EQ(w.ops().versie, versie + 1);
    ASSERT_EQ(w.polygoon().graad, 7.0f);
    for (int j = 0; j < 6; ++j) {
        const Punt p = w.polygoon().punten(static_cast<float>(voor->eersteIndex + 1 + j));
        EXPECT_NEAR(p.X, voor->niveaus[1].punten[j].X, 1.0f);
        EXPECT_NEAR(p.Y, voor->niveaus[1].punten[j].Y, 1.0f);
    }
    w.klik("mntBeeldMengFuncties");
    Surface& mengLaag = w.meng().overlay();
    mengLaag.setLogging(true);
    c.zetT(c.t());
    double procenten = 0.0;
    for (const DrawRecord& r : mengLaag.log()) {
        procenten += r.kind == DrawKind::kText ? std::stod(r.text) : 0.0;
    }
    EXPECT_NEAR(procenten, 100.0, 0.01);  // the rational basis functions at t, in percent
    w.meng().deliverMouseDown(1, 0, 1, w.meng().pixelHeight() / 2.0);
    EXPECT_EQ(c.t(), c.bereik()->begin);
    w.klik("mntBeeldMengFuncties");  // the pane of no curve is the editor's own error 9
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(errorOf([&] { w.klik("mntBewerkenUndo"); }), 0);
    }
    EXPECT_FALSE(c.aan() || w.menus().vinkje("mntExtraConstructie"));
}

// The links: off, a resting pointer does nothing; on, control point 3 lights its basis function,
// its tick and its segments, a double knot (one dragged onto its neighbour) its two segments and
// a tooltip; the pointer leaving clears all. The numbers write the knots' values and the
// continuity; the status line follows the curve and the mode of a click.
TEST(HeadlessEditor, TheLinksNumbersAndStatusFollowThePointerAndTheCurve) {
    Editor e;
    HeadlessEditor& w = e.w;
    const float punten[7][2] = {{1500, 7000}, {3000, 2000}, {5000, 7500}, {7000, 1500},
                                {9000, 7000}, {10000, 2500}, {11500, 7500}};
    for (int i = 0; i < 7; ++i) {
        w.Doek_MouseDown(1, 0, punten[i][0], punten[i][1]);
        if (i == 3) {
            w.klik("mntBewerkenKnopenZetOrde");
        }
    }
    w.klik("mntBeeldKnopenVector");
    w.klik("mntBeeldMengFuncties");
    EXPECT_EQ(w.waarBenIk(), "orde 4 · 7 punten · 4 segmenten · uniform");
    std::vector<Surface*> lagen{&w.Doek().overlay(), &w.meng().overlay(), &w.Knopen().overlay()};
    for (Surface* s : lagen) {
        s->setLogging(true);
    }
    const auto soorten = [&](Surface* s, DrawKind soort) {
        return std::count_if(s->log().begin(), s->log().end(),
                             [&](const DrawRecord& r) { return r.kind == soort; });
    };
    const ScaleMapper& m = w.Doek().mapper();
    const auto rust = [&](Surface& s, double x, double y) {
        s.deliverMouseMove(0, 0, s.mapper().toPixelX(x), s.mapper().toPixelY(y));
    };
    rust(w.Doek(), punten[3][0], punten[3][1]);
    EXPECT_TRUE(lagen[0]->log().empty());
    w.klik("mntExtraVerbanden");
    rust(w.Doek(), punten[3][0] + 3 * (m.toScaleX(1) - m.toScaleX(0)), punten[3][1]);
    EXPECT_GT(soorten(lagen[1], DrawKind::kLine), 20);  // its basis function, thick
    EXPECT_EQ(lagen[1]->log().front().drawWidth, 3);
    EXPECT_EQ(soorten(lagen[2], DrawKind::kLine), 1);  // its tick
    EXPECT_GT(soorten(lagen[0], DrawKind::kLine), 50);  // its segments, tinted
    w.Doek().deliverMouseLeave();
    EXPECT_TRUE(lagen[0]->log().empty() && lagen[1]->log().empty());

    // Knot 5 onto knot 4: value 1 twice, the curve C1 there.
    Surface& knopen = w.Knopen();
    w.Knopen_MouseDown(2, 0, static_cast<float>(w.knoopX(2)), w.hoogte);
    w.Knopen_MouseUp(2, 0, static_cast<float>(w.knoopX(1)), w.hoogte);
    EXPECT_EQ(w.waarBenIk(), "orde 4 · 7 punten · 3 segmenten · vrij");  // one interval empty
    rust(knopen, w.knoopX(1), w.hoogte);
    EXPECT_NE(w.tip.find("multipliciteit 2"), std::string::npos) << w.tip;
    EXPECT_NE(w.tip.find("C1"), std::string::npos) << w.tip;
    w.klik("mntExtraNummers");
    std::vector<std::string> teksten;
    for (const DrawRecord& r : lagen[2]->log()) {
        if (r.kind == DrawKind::kText) {
            teksten.push_back(r.text);
        }
    }
    EXPECT_NE(std::find(teksten.begin(), teksten.end(), "2x 1"), teksten.end());
    EXPECT_EQ(std::count(teksten.begin(), teksten.end(), "C1"), 1);
    w.Tb_ButtonClick("Spline");
    EXPECT_NE(w.waarBenIk().find("· Spline Punt"), std::string::npos);
}

// Eight points, "Orde kiezen..." 4 with open-uniform knots: a clamped cubic of five segments in
// one version; "Graad verhogen": a quartic of 13 points whose curve is the cubic's within half a
// unit; Undo twice: the eight points without a curve.
TEST(HeadlessEditor, AChosenOrderAndARaisedDegreeKeepThePolygonAndTheCurve) {
    Editor e;
    HeadlessEditor& w = e.w;
    for (int i = 0; i < 8; ++i) {
        w.Doek_MouseDown(1, 0, 1000.0f + 1300.0f * i, i % 2 == 0 ? 2000.0f : 7000.0f);
    }
    const float versie = w.ops().versie;
    e.dialogs.queueKeuze(Keuze{4, 1});
    w.klik("mntExtraOrdeKiezen");
    EXPECT_EQ(w.waarBenIk(), "orde 4 · 8 punten · 5 segmenten · open uniform");
    EXPECT_EQ(w.ops().versie, versie + 1);
    const ConstructieKromme kubisch = *w.constructie().kromme();
    const Bereik bereik = *echt_bereik(kubisch);
    w.Doek().setLogging(true);
    w.klik("mntExtraGraadVerhogen");
    EXPECT_EQ(w.waarBenIk(), "orde 5 · 13 punten · 5 segmenten · vrij");
    for (const DrawRecord& r : recordsOf(w.Doek(), DrawKind::kLine, w.krommekleur)) {
        ASSERT_TRUE(std::max({r.x1, r.x2}) < 11000 && std::min({r.y1, r.y2}) > 1000 &&
                    std::max({r.y1, r.y2}) < 8000);  // drawn inside the polygon's box
    }
    const ConstructieKromme kwartisch = *w.constructie().kromme();
    EXPECT_EQ(echt_bereik(kwartisch)->begin, bereik.begin);
    EXPECT_EQ(echt_bereik(kwartisch)->eind, bereik.eind);
    for (int i = 0; i <= 200; ++i) {
        const double t = bereik.begin + (bereik.eind - bereik.begin) * i / 200;
        const Punt a = bouw_constructie(kubisch, t)->krommepunt;
        const Punt b = bouw_constructie(kwartisch, t)->krommepunt;
        ASSERT_LE(std::hypot(a.X - b.X, a.Y - b.Y), 0.5) << t;
    }
    w.klik("mntBewerkenUndo");
    w.klik("mntBewerkenUndo");
    EXPECT_EQ(w.waarBenIk(), "geen orde · 8 punten");
}

// With the weights window open the classic redraw draws every point in its colour once per
// point, each pass followed by the leg to that point. The editor folds the passes; its picture
// is theirs but on the discs' antialiased rims. Two discs overlap and legs run through discs. A
// polygon of 400 points, whose passes would draw 160,000 discs, is drawn within the budget of
// one action.
TEST(HeadlessEditor, PointsInColourArePaintedAsTheirPasses) {
    Editor e;
    HeadlessEditor& w = e.w;
    const std::vector<std::pair<float, float>> punten = {{1000, 1000}, {1045, 1030}, {3000, 1500},
                                                         {1500, 600},  {2000, 3000}, {1020, 1800}};
    for (const auto& [x, y] : punten) {
        w.Doek_MouseDown(1, 0, x, y);
    }
    w.klik("mntBeeldGewichten");
    w.Doek().refresh();
    Surface gangen;  // in twips, as the canvas at its normal zoom
    gangen.setPixelSize(w.Doek().pixelWidth(), w.Doek().pixelHeight());
    gangen.setBackColour(w.doekkleur);
    gangen.setFillStyle(kFillSolid);
    for (std::size_t i = 0; i < punten.size(); ++i) {
        for (std::size_t j = 0; j < punten.size(); ++j) {
            const Colour c = w.kleur(static_cast<double>(j));
            gangen.setFillColour(c);
            gangen.circle(punten[j].first, punten[j].second, w.ControleStraal, c);
        }
        if (i > 0) {
            gangen.line(punten[i - 1].first, punten[i - 1].second, punten[i].first,
                        punten[i].second, w.lijnkleur);
        }
    }
    // The largest difference of a channel on the discs' rims, and elsewhere.
    const QImage &beeld = imageOf(w.Doek()), &verwacht = imageOf(gangen);
    int rand = 0, elders = 0;
    for (int y = 0; y < beeld.height(); ++y) {
        for (int x = 0; x < beeld.width(); ++x) {
            const bool opRand = std::any_of(punten.begin(), punten.end(), [&](const auto& p) {
                const double d = std::hypot(x + 0.5 - p.first / kTwipsPerPixel,
                                            y + 0.5 - p.second / kTwipsPerPixel);
                return std::fabs(d - w.ControleStraal / kTwipsPerPixel) < 1.5;
            });
            const QRgb a = beeld.pixel(x, y), b = verwacht.pixel(x, y);
            int& grootste = opRand ? rand : elders;
            grootste = std::max({grootste, std::abs(qRed(a) - qRed(b)),
                                 std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
        }
    }
    EXPECT_EQ(elders, 0);
    EXPECT_LE(rand, 32);  // 23 where a leg runs under a rim
    setCurve(w, 4, std::vector<std::pair<float, float>>(400, {5000.0f, 4000.0f}));
    Werkbudget budget;
    EXPECT_EQ(errorOf([&] { w.Doek().refresh(); }), 0);
}

// A curve of five points whose knots lie `afstand` apart, saved in the editor's directory.
std::string verreKromme(Editor& e, double afstand) {
    std::mt19937 rng(3);
    HeadlessWindow bron;
    bron.setRandomCurve(rng, 4, 5);
    for (float i = 0; i <= bron.vec().knopenlengte; ++i) {
        bron.vec().zet_knoop(i, i * afstand);
    }
    const std::string bestand = e.dir.file("ver.zwl");
    ScriptedDialogs stil;
    Opslag(bron, stil, e.dir.path()).opslaan(bestand);
    return bestand;
}

// Knots a million units apart ask for some 2e7 samples per segment. With the budget of an
// action at a twentieth of its size (the whole budget takes too long under the sanitizers), the
// redraw ends in error 7 and the next action works; a person's curve needs far less.
TEST(HeadlessEditor, AnActionBeyondItsBudgetEndsInError7AndTheEditorCarriesOn) {
    Editor e;
    e.dialogs.queueFileName(verreKromme(e, 1e6));
    {
        Werkbudget budget(kWerkGrens / 20);
        EXPECT_EQ(errorOf([&] { e.w.klik("mntBestandOpenen"); }), kErrOutOfMemory);
    }
    EXPECT_EQ(e.w.polygoon().graad, 4.0f);  // the file was read before the redraw ran out
    e.dialogs.queueFileName(verreKromme(e, 1.0));
    Werkbudget budget;
    EXPECT_EQ(errorOf([&] { e.w.klik("mntBestandOpenen"); }), 0);
    EXPECT_LT(Werkbudget::gedaan(), kWerkGrens / 500);
}

// The polylines of an SVG figure, each in the stroke of its group (one a primitive), and the
// centres of its circles; whether it holds an image.
struct Svg {
    std::vector<std::pair<QString, QPolygonF>> lijnen;
    QPolygonF cirkels;
    bool bitmap = false;
};

Svg leesSvg(const std::string& bestand) {
    QFile file(QString::fromStdString(bestand));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    Svg svg;
    QString kleur;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const auto a = [&](const char* naam) {
            return xml.attributes().value(QLatin1String(naam));
        };
        kleur = xml.name() == u"g" ? a("stroke").toString() : kleur;
        QPolygonF punten;
        for (const QString& p : a("points").toString().split(u' ', Qt::SkipEmptyParts)) {
            punten << QPointF(p.section(u',', 0, 0).toDouble(), p.section(u',', 1).toDouble());
        }
        if (xml.name() == u"polyline") {
            svg.lijnen.emplace_back(kleur, punten);
        } else if (xml.name() == u"circle") {
            svg.cirkels << QPointF(a("cx").toDouble(), a("cy").toDouble());
        }
        svg.bitmap = svg.bitmap || xml.name() == u"image";
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return svg;
}

struct Figuur : Editor {
    Figuur() : Editor(900, 600) {
        setCurve(w, 4, {{1500, 7000}, {3000, 1500}, {6000, 2000}, {8000, 7500}, {11000, 6000}});
    }
    // Where the canvas puts a point of the curve, in its pixels.
    QPointF pixel(const Punt& p) {
        const ScaleMapper& m = w.Doek().mapper();
        return {m.toPixelX(p.X), m.toPixelY(p.Y)};
    }
};

// The curve passes its knot points and the control points are discs where the canvas has them,
// at the zoom of the canvas.
TEST(Afbeelding, SvgHoldsTheCurveAndThePointsWhereTheCanvasDrawsThem) {
    for (const char* item : {"", "mntBeeldZoomInzoemen"}) {
        SCOPED_TRACE(item);
        Figuur f;
        f.w.klik(item);
        exporteerAfbeelding(f.w, f.dir.file("f.SVG"));
        const Svg svg = leesSvg(f.dir.file("f.SVG"));
        EXPECT_FALSE(svg.bitmap);
        QPainterPath kromme;
        for (const auto& [kleur, l] : svg.lijnen) {
            kromme.addPolygon(kleur == toQColor(f.w.krommekleur).name() ? l : QPolygonF());
        }
        const QPainterPath rand = QPainterPathStroker(QPen(Qt::black, 1.5)).createStroke(kromme);
        for (float i = 3; i <= 5; ++i) {
            EXPECT_TRUE(rand.contains(f.pixel(drawnPoint(f.w, f.w.vec().knoop(i))))) << i;
        }
        for (float i = 0; i <= f.w.polygoon().graad; ++i) {
            const QPointF p = f.pixel(f.w.polygoon().punten(i));
            EXPECT_TRUE(std::any_of(svg.cirkels.begin(), svg.cirkels.end(),
                                    [&](QPointF c) { return QLineF(c, p).length() < 0.01; }));
        }
    }
}

// A PDF of one page in the canvas' proportions, of paths only; a PNG of twice the pixels with the
// curve's colour on the curve and the background's in the corner.
TEST(Afbeelding, PdfIsOnePageOfTheCanvasAndPngHasTwiceItsPixels) {
    Figuur f;
    exporteerAfbeelding(f.w, f.dir.file("f.pdf"));
    QFile pdf(QString::fromStdString(f.dir.file("f.pdf")));
    const QString inhoud = pdf.open(QIODevice::ReadOnly) ? QString::fromLatin1(pdf.readAll()) : "";
    EXPECT_EQ(inhoud.count(QRegularExpression("/Type\\s*/Page\\b(?!s)")), 1);
    EXPECT_FALSE(inhoud.contains(QRegularExpression("/Subtype\\s*/Image")));
    const auto box = QRegularExpression("/MediaBox\\s*\\[0 0 ([\\d.]+) ([\\d.]+)").match(inhoud);
    EXPECT_NEAR(box.captured(1).toDouble() / box.captured(2).toDouble(), 900.0 / 600.0, 0.005);

    exporteerAfbeelding(f.w, f.dir.file("f.png"));
    const QImage png(QString::fromStdString(f.dir.file("f.png")));
    ASSERT_EQ(png.size(), QSize(1800, 1200));
    const QPointF p = f.pixel(drawnPoint(f.w, (f.w.vec().knoop(3) + f.w.vec().knoop(4)) / 2)) * 2;
    EXPECT_EQ(png.pixelColor(p.toPoint()), toQColor(f.w.krommekleur));
    EXPECT_EQ(png.pixelColor(0, 0), toQColor(f.w.doekkleur));
}

// One raster picture has one renderer: at the screen's pixel ratio the PNG's picture is what the
// screen shows, pixel for pixel, the blending pane over its corner of the canvas.
TEST(Afbeelding, APngAtTheScreensRatioIsTheScreensPicture) {
    Figuur f;
    for (const char* item : {"mntBeeldMengFuncties", "mntBeeldBezier", "mntBeeldGewichten"}) {
        f.w.klik(item);
    }
    const QImage figuur = afbeeldingAlsBeeld(f.w, 1.0);
    QImage scherm = imageOf(f.w.Doek()).copy();
    {
        QPainter p(&scherm);
        p.drawImage(QPoint(f.w.meng().pixelLeft(), f.w.meng().pixelTop()), imageOf(f.w.meng()));
    }
    ASSERT_EQ(figuur.size(), scherm.size());
    EXPECT_TRUE(figuur.convertToFormat(scherm.format()) == scherm);
}

// The renderer's exit status: 0 with a figure written, 1 with the run-time error's text for a
// file whose drawing fails, 2 with a one-line message for bad arguments and unreadable files.
TEST(Afbeelding, TheRenderersExitStatus) {
    Figuur f;
    Opslag(f.w, f.dialogs, f.dir.path()).opslaan(f.dir.file("k.zwl"));
    const float reuzen = 1e9f;  // a polygon of a billion points
    std::ofstream(f.dir.file("kapot.zwl"), std::ios::binary)
        .write(reinterpret_cast<const char*>(&reuzen), sizeof reuzen);
    const auto pad = [&](const char* naam) { return QString::fromStdString(f.dir.file(naam)); };
    const QString k = pad("k.zwl"), uit = pad("r.png");
    const struct {
        QStringList args;
        int status;
        const char* melding;
    } gevallen[] = {
        {{k, uit, "--grootte", "300x200", "--bezier", "--segmenten", "2", "--constructie", "1",
          "--labels", "--raaklijn", "--passend"},
         0,
         ""},
        {{k, uit, "--constructie", "99"}, 2, "--constructie: de parameter ligt van"},
        {{k, uit, "--constructie", "1", "--niveau", "4"}, 2, "niveaus 0 tot en met 3"},
        {{k, uit, "--labels"}, 2, "horen bij --constructie"},
        {{pad("weg.zwl"), uit}, 2, "kan de kromme"},
        {{pad("kapot.zwl"), uit}, 1, "Fout 7 tijdens uitvoering: "},
        {{k, uit, "--detail", "hoog"}, 2, "--detail"},
        {{k, pad("r.gif")}, 2, ".svg, .pdf of .png"},
        {{k, uit, "--segmenten", "5"}, 2, "0 tot en met 4"},
    };
    for (const auto& g : gevallen) {
        SCOPED_TRACE(g.args.join(u' ').toStdString());
        QProcess render;
        render.start(QStringLiteral(ZW_RENDER), g.args);
        ASSERT_TRUE(render.waitForFinished(60000));
        const QString fout = QString::fromLocal8Bit(render.readAllStandardError());
        EXPECT_EQ(render.exitCode(), g.status) << fout.toStdString();
        EXPECT_TRUE(fout.contains(QString::fromUtf8(g.melding)) && fout.count(u'\n') <= 1);
    }
    EXPECT_EQ(QImage(uit).size(), QSize(600, 400));
}

}  // namespace
}  // namespace zw
