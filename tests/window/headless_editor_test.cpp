#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "editor_script.h"
#include "headless_window.h"
#include "platform/werk.h"

namespace zw {
namespace {

struct Editor {
    Editor() {
        std::filesystem::create_directory_symlink(ZW_WAVELET_DIR, dir.file("Wavelet"));
        EXPECT_TRUE(EventGuard(dialogs).run([&] { w.start(); }));
    }
    TestDir dir;
    ScriptedDialogs dialogs;
    HeadlessEditor w{dir.path(), dialogs, 800, 600};
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
        Editor e;
        opened += speelAf(e.w, e.dialogs, entry.path().string());
        ++files;
    }
    EXPECT_GT(files, 0);
    EXPECT_GT(opened, 0);
}

TEST(HeadlessEditor, HelftShowsTheKnotPointsAndChecksTheirItem) {
    Editor e;
    setCurve(e.w, 3, {{1000, 1000}, {3000, 4000}, {6000, 1000}, {8000, 3000}});
    e.w.klik("mntBeeldKnooppunten");
    ASSERT_FALSE(e.w.knooppunten);
    ASSERT_FALSE(e.w.menus().vinkje("mntBeeldKnooppunten"));
    e.w.klik("mntBewerkenSplineHelft");
    EXPECT_TRUE(e.w.knooppunten);
    EXPECT_TRUE(e.w.menus().vinkje("mntBeeldKnooppunten"));
    EXPECT_EQ(e.w.polygoon().graad, 5.0f);  // two segments, each split once
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
        for (const DrawRecord& r : w.Doek().log()) {
            if (r.colour == c && r.kind == DrawKind::kCircle) {
                x.push_back(r.x1);
            }
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
    EXPECT_LT(Werkbudget::gedaan(), kWerkGrens / 1000);
}

}  // namespace
}  // namespace zw
