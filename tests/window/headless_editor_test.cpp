#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <tuple>
#include <vector>

#include "editor_script.h"
#include "window/editor_fixture.h"
#include "headless_window.h"
#include "platform/qimage_sink.h"
#include "platform/werk.h"

namespace zw {
namespace {

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

}  // namespace
}  // namespace zw
