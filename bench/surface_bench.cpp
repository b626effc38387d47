// The cost of one canvas redraw: clear, a control polygon with its discs, and a curve drawn as
// a polyline of short segments, as the editor draws on every mouse move during a drag.
#include <benchmark/benchmark.h>

#include <cmath>

#include "platform/colour.h"
#include "platform/surface.h"

namespace {

void drawScene(zw::Surface& surface, int curveSegments) {
    surface.setBackColour(zw::rgb(250, 250, 245));
    surface.setFillStyle(zw::kFillSolid);
    surface.setFillColour(zw::rgb(30, 90, 200));
    for (int i = 0; i < 12; ++i) {
        const double x = 1000 + 1200.0 * i, y = 3000 + 1500 * std::sin(i);
        surface.circle(x, y, 60, zw::rgb(30, 90, 200));
        if (i > 0) {
            surface.line(x - 1200, 3000 + 1500 * std::sin(i - 1), x, y, zw::rgb(120, 120, 120));
        }
    }
    surface.setDrawWidth(3);
    double px = 1000, py = 3000;
    for (int s = 1; s <= curveSegments; ++s) {
        const double t = static_cast<double>(s) / curveSegments;
        const double x = 1000 + 13200 * t, y = 3000 + 1400 * std::sin(11 * t);
        surface.line(px, py, x, y, zw::rgb(200, 40, 40));
        px = x;
        py = y;
    }
    surface.setDrawWidth(1);
}

void BM_CanvasRedraw(benchmark::State& state) {
    zw::Surface surface;
    surface.setPixelSize(1000, 700);
    surface.setDevicePixelRatio(static_cast<double>(state.range(1)));
    const int segments = static_cast<int>(state.range(0));
    for (auto _ : state) {
        drawScene(surface, segments);
        benchmark::DoNotOptimize(surface.log().data());
    }
    state.SetItemsProcessed(state.iterations() * (segments + 23));
}
// 160 samples: eight segments at the editor's "High" detail; 3200: the same at order 2.
BENCHMARK(BM_CanvasRedraw)
    ->Args({160, 1})
    ->Args({160, 2})
    ->Args({3200, 1})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
