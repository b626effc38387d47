// What a user can do with a curve file, as one script of user actions on the whole editor: open
// it, see it with the knot pane, split every segment, insert a knot, take a wavelet step, drag a
// weight, see its Bezier notation and pick a point and a parameter, show the blending functions,
// zoom, undo and redo, export a figure. Each step is one action in the event guard, as the editor
// runs it, so each ends in success or in its classic run-time error, within its budget of work.
// The fuzz target and the corpus replay share it.
#pragma once

#include <optional>
#include <string>
#include <tuple>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/event_guard.h"
#include "platform/numeric.h"
#include "platform/scripted_dialogs.h"
#include "spline/blossom_functie.h"
#include "storage/opslag.h"
#include "weights/gewichten_form.h"
#include "window/constructie_beeld.h"
#include "window/headless_editor.h"

namespace zw {

// The script's editor is small: every step does what it does on a screen-sized one, on fewer
// pixels. The canvas in pixels, and the weights window's client area in twips.
constexpr int kScriptBreedte = 320;
constexpr int kScriptHoogte = 240;
constexpr float kScriptGewichtenBreedte = 2700.0f;
constexpr float kScriptGewichtenHoogte = 2250.0f;

// Fractions of a surface's width and height in its pixels, where the script's mouse goes.
inline double breed(const Surface& s, double deel) {
    return deel * s.pixelWidth();
}
inline double hoog(const Surface& s, double deel) {
    return deel * s.pixelHeight();
}

// A knot goes in at the middle of the real range, knot k - 1 to knot L - k, as a click there in
// the "Punt" mode would put it.
inline void voegKnoopInHetMidden(HeadlessEditor& w) {
    const float k = w.polygoon().orde;
    const float L = w.vec().knopenlengte;
    const double van = w.vec().knoop(addSingle(k, -1.0f));
    const double tot = w.vec().knoop(addSingle(L, -k));
    double t = checkedDouble(van + checkedDouble(tot - van) / 2.0);
    w.evaluator().maak_spline(t);
    w.ops().save();
    w.Doek().refresh();
    w.plaats_knopenvenster();
}

// Returns whether the file opened. The editor is the script's size (kScriptBreedte by
// kScriptHoogte), started.
inline bool speelAf(HeadlessEditor& w, ScriptedDialogs& dialogs, const std::string& bestand) {
    EventGuard guard(dialogs);
    w.gewichten().zetBinnenmaat(kScriptGewichtenBreedte, kScriptGewichtenHoogte);
    const bool geopend = guard.run([&] {
        dialogs.queueFileName(bestand);
        w.klik("mntBestandOpenen");
    });
    guard.run([&] {
        if (!w.knopen_zichtbaar) {
            w.klik("mntBeeldKnopenVector");
        }
    });
    guard.run([&] { w.klik("mntBewerkenSplineHelft"); });
    guard.run([&] { voegKnoopInHetMidden(w); });
    guard.run([&] {
        if (w.menus().aan("mntBewerkenWavelet")) {
            w.klik("mntBewerkenWavelet");
        }
    });
    // The weights window: shown, the handle nearest the left of the middle dragged to the top and
    // released, the canvas redrawn with its points in colour.
    guard.run([&] { w.klik("mntBeeldGewichten"); });
    Surface& gewichten = w.gewichten().Doek();
    const double x = breed(gewichten, 0.08);
    guard.run([&] { gewichten.deliverMouseDown(2, 0, x, hoog(gewichten, 0.5)); });
    guard.run([&] { gewichten.deliverMouseMove(2, 0, x, hoog(gewichten, 0.27)); });
    guard.run([&] { gewichten.deliverMouseUp(2, 0, x, hoog(gewichten, 0.03)); });
    // The derived views: the Bezier notation, a control point picked in one mode and a curve
    // parameter in the other, which stays on with the Bezier notation until "Nieuw".
    Surface& doek = w.Doek();
    for (const char* naam : {"mntBeeldBezier", "mntBeeldSegmentperControl"}) {
        guard.run([&] { w.klik(naam); });
    }
    guard.run([&] { doek.deliverMouseDown(1, 0, breed(doek, 0.375), hoog(doek, 0.33)); });
    guard.run([&] { w.klik("mntBeeldControlperSegment"); });
    guard.run([&] { doek.deliverMouseDown(1, 0, breed(doek, 0.625), hoog(doek, 0.58)); });
    // The blending functions, with that weight and those views, over zoom, undo and redo; then
    // off again. On the way the construction: on, t moved by the pane's button and by steps, a
    // level back, labels and tangent, played once across, inserted as a knot.
    guard.run([&] { w.Tb_ButtonClick("Mengfuncties"); });
    guard.run([&] { w.klik("mntExtraConstructie"); });
    Surface& meng = w.meng();
    guard.run([&] { meng.deliverMouseDown(1, 0, breed(meng, 0.3), hoog(meng, 0.5)); });
    guard.run([&] { meng.deliverMouseMove(1, 0, breed(meng, 0.6), hoog(meng, 0.5)); });
    ConstructieBeeld& constructie = w.constructie();
    guard.run([&] {
        constructie.stap(1);
        constructie.zetNiveau(constructie.niveau() - 1);
        constructie.zetLabels(true);
        constructie.zetRaaklijn(true);
    });
    for (int i = 0; i <= 4; ++i) {
        guard.run([&] {
            if (const std::optional<Bereik> b = constructie.bereik()) {
                constructie.zetT(b->begin + (b->eind - b->begin) * i / 4);
            }
        });
    }
    guard.run([&] { constructie.invoegen(); });
    // The links and the numbers: the pointer at rest on the canvas, the panes and off them.
    guard.run([&] { w.klik("mntExtraVerbanden"); });
    guard.run([&] { w.klik("mntExtraNummers"); });
    for (const auto& [s, fx, fy] : {std::make_tuple(&doek, 0.375, 0.33), std::make_tuple(&doek, 0.5, 0.5),
                                    std::make_tuple(&meng, 0.4, 0.6), std::make_tuple(&w.Knopen(), 0.5, 0.66)}) {
        guard.run([&] { s->deliverMouseMove(0, 0, breed(*s, fx), hoog(*s, fy)); });
    }
    guard.run([&] { w.Knopen().deliverMouseLeave(); });
    for (const char* naam : {"mntExtraHandleiding", "mntExtraOver"}) {
        guard.run([&] { w.klik(naam); });
    }
    // The order chosen (a cubic, open uniform) and raised once.
    guard.run([&] {
        dialogs.queueKeuze(Keuze{4, 1});
        w.klik("mntExtraOrdeKiezen");
    });
    guard.run([&] { w.klik("mntExtraGraadVerhogen"); });
    for (const char* naam :
         {"mntBeeldZoomInzoemen", "mntBeeldZoomUitzoemen", "mntBewerkenUndo", "mntBewerkenRedo"}) {
        guard.run([&] { w.klik(naam); });
    }
    // A figure of all of it, as "Extra > Exporteren..." writes it.
    guard.run([&] {
        dialogs.queueFileName(w.programDirectory() + "/figuur.svg");
        w.klik("mntExtraExporteren");
    });
    guard.run([&] { w.klik("mntBeeldMengFuncties"); });
    guard.run([&] {
        if (w.constructie().aan()) {
            w.klik("mntExtraConstructie");
        }
        w.klik("mntExtraVerbanden");
    });
    // Any other button: every weight back to 1. Then "Nieuw" unloads the window and the toolbar
    // shows it again, which loads it anew with the weights it kept.
    guard.run([&] { gewichten.deliverMouseDown(1, 0, 5, 5); });
    guard.run([&] { w.klik("mntBestandNieuw"); });
    guard.run([&] { w.Tb_ButtonClick("Gewicht"); });
    return geopend;
}

}  // namespace zw
