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
