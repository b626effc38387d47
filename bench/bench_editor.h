// The whole editor with a curve of `segmenten` segments at order `orde`, its points strewn over
// a canvas of 1200 x 800 pixels, for the benchmarks of a redraw.
#pragma once

#include <random>
#include <utility>
#include <vector>

#include "headless_window.h"
#include "platform/scripted_dialogs.h"
#include "window/headless_editor.h"

struct BenchEditor {
    BenchEditor(int segmenten, int orde) {
        w.start();
        std::mt19937 rng(5);
        std::uniform_int_distribution<int> x(1000, 14000), y(1000, 9000);
        std::vector<std::pair<float, float>> punten;
        for (int i = 0; i < segmenten + orde - 1; ++i) {
            const auto px = static_cast<float>(x(rng));
            punten.emplace_back(px, static_cast<float>(y(rng)));
        }
        zw::setCurve(w, orde, punten);
    }
    // Every view on: the blending pane, the Bezier notation, the segments of the middle control
    // point in colour and the knot pane.
    void allesAan() {
        for (const char* item :
             {"mntBeeldMengFuncties", "mntBeeldBezier", "mntBeeldSegmentperControl"}) {
            w.klik(item);
        }
        const zw::Punt midden = w.polygoon().punten(w.polygoon().graad / 2);
        w.Doek_MouseDown(1, 0, midden.X, midden.Y);
    }
    zw::TestDir dir;
    zw::ScriptedDialogs dialogs;
    zw::HeadlessEditor w{dir.path(), dialogs, 1200, 800};
};
