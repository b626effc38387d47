// One drawing of the curve as the canvas redraw does it on every mouse move of a drag: eight
// segments at the "High" detail (step 0.05), each sample a blossom and a weighted, rounded point.
// Beside it the same polyline replayed straight onto the surface, so that the ratio shows what
// the evaluation adds to the rasterising.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "headless_window.h"

namespace {

constexpr int kSegments = 8;

void prepare(zw::HeadlessWindow& w, int k) {
    std::mt19937 rng(11);
    w.setRandomCurve(rng, k, kSegments + k - 1, true);
    w.Doek().setPixelSize(1200, 800);
    w.Doek().scale(0, 0, 10000, 10000);
    w.evaluator().stap = 0.05f;
    w.krommekleur = zw::rgb(33, 97, 196);
    w.Datakleur = zw::rgb(230, 126, 34);
    w.ControleStraal = 60;
}

void BM_TekenSpline(benchmark::State& state) {
    zw::HeadlessWindow w;
    prepare(w, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        w.Doek().cls();
        w.evaluator().teken_spline();
        benchmark::DoNotOptimize(w.Doek().log().data());
    }
    state.counters["lines"] = static_cast<double>(w.Doek().log().size());
}

void BM_PolylineOnly(benchmark::State& state) {
    zw::HeadlessWindow w;
    prepare(w, static_cast<int>(state.range(0)));
    w.evaluator().teken_spline();
    const std::vector<zw::DrawRecord> drawn = w.Doek().log();
    zw::Surface& doek = w.Doek();
    for (auto _ : state) {
        doek.cls();
        for (const zw::DrawRecord& r : drawn) {
            doek.setDrawWidth(r.drawWidth);
            if (r.kind == zw::DrawKind::kLine) {
                doek.line(r.x1, r.y1, r.x2, r.y2, r.colour);
            } else {
                doek.circle(r.x1, r.y1, r.radius, r.colour);
            }
        }
        doek.setDrawWidth(1);
        benchmark::DoNotOptimize(doek.log().data());
    }
}

BENCHMARK(BM_TekenSpline)->Arg(2)->Arg(4)->Arg(8)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PolylineOnly)->Arg(2)->Arg(4)->Arg(8)->Unit(benchmark::kMicrosecond);

}  // namespace
