// One redraw of the canvas, as every mouse move of a drag redraws it, for curves of 16 and 64
// segments at orders 2, 4 and 8 in the whole editor (window/headless_editor.h) at the "High"
// detail: alone, and with the blending pane, which draws a line per control point for every
// sample (1.7 million for 64 segments of order 2).
//
// With every view on: the blending pane, the Bezier notation, the segments of the middle control
// point in colour and the knot pane, for 64 segments.
//
// A curve of 1,000 and of 4,096 points with every view on and the weights window open.
//
// Beside them the canvas alone as the surface used to rasterise it, for the ratio: the same
// redraw with the log on, then every logged primitive stroked on its own with a fresh pen, as
// each line and circle was before lines were collected.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <random>
#include <vector>

#include "bench_editor.h"
#include "headless_window.h"
#include "platform/event_guard.h"
#include "geometry/coordinaten.h"
#include "platform/qimage_sink.h"
#include "platform/scripted_dialogs.h"
#include "platform/werk.h"
#include "window/constructie_beeld.h"
#include "window/headless_editor.h"

namespace {

using Editor = BenchEditor;

// Each primitive as the surface stroked it on its own.
void strokeOneByOne(const zw::Surface& surface, QImage& image) {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const zw::ScaleMapper map = surface.mapper();
    for (const zw::DrawRecord& r : surface.log()) {
        const QPointF a(map.toPixelX(r.x1), map.toPixelY(r.y1));
        if (r.kind == zw::DrawKind::kLine) {
            painter.setPen(QPen(zw::toQColor(r.colour), r.drawWidth, Qt::SolidLine, Qt::SquareCap,
                                Qt::RoundJoin));
            painter.drawLine(a, QPointF(map.toPixelX(r.x2), map.toPixelY(r.y2)));
        } else {
            const double radius = map.widthToPixels(r.radius);
            painter.setPen(QPen(zw::toQColor(r.colour), r.drawWidth));
            painter.setBrush(r.fillStyle == zw::kFillSolid ? QBrush(zw::toQColor(r.fillColour))
                                                           : QBrush(Qt::NoBrush));
            painter.drawEllipse(a, radius, radius);
        }
    }
}

void BM_DoekZoalsVroeger(benchmark::State& state) {
    Editor e(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    zw::Surface& doek = e.w.Doek();
    zw::Surface& knopen = e.w.Knopen();
    doek.setLogging(true);
    knopen.setLogging(true);
    doek.refresh();  // places the knot pane
    QImage beeld(doek.pixelWidth(), doek.pixelHeight(), QImage::Format_ARGB32_Premultiplied);
    QImage knopenbeeld(knopen.pixelWidth(), knopen.pixelHeight(),
                       QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        doek.refresh();
        beeld.fill(Qt::white);
        knopenbeeld.fill(Qt::white);
        strokeOneByOne(doek, beeld);
        strokeOneByOne(knopen, knopenbeeld);
    }
    state.counters["primitieven"] = static_cast<double>(doek.log().size());
}

void BM_Doek(benchmark::State& state) {
    Editor e(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        e.w.Doek().refresh();
        benchmark::DoNotOptimize(zw::imageOf(e.w.Doek()).constBits());
    }
}

// Counter "budget%": the share of an action's budget of work that one redraw uses.
void BM_DoekEnMeng(benchmark::State& state) {
    Editor e(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    e.w.klik("mntBeeldMengFuncties");
    for (auto _ : state) {
        e.w.Doek().refresh();
        benchmark::DoNotOptimize(zw::imageOf(e.w.Doek()).constBits());
        benchmark::DoNotOptimize(zw::imageOf(e.w.meng()).constBits());
    }
    zw::Werkbudget budget;
    e.w.Doek().refresh();
    state.counters["budget%"] =
        100.0 * static_cast<double>(zw::Werkbudget::gedaan()) / static_cast<double>(zw::kWerkGrens);
}

void BM_DoekAllesAan(benchmark::State& state) {
    Editor e(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    e.allesAan();
    for (auto _ : state) {
        e.w.Doek().refresh();
        for (zw::Surface* s : {&e.w.Doek(), &e.w.meng(), &e.w.Knopen()}) {
            benchmark::DoNotOptimize(zw::imageOf(*s).constBits());
        }
    }
}

// The construction of a curve point with every view on, labels and tangent, while t is dragged:
// the overlays alone (canvas, blending pane, knot pane), as a move of t redraws them, and the
// whole redraw beside it.
void BM_ConstructieOverlay(benchmark::State& state) {
    Editor e(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    e.allesAan();
    e.w.klik("mntExtraConstructie");
    zw::ConstructieBeeld& c = e.w.constructie();
    c.zetLabels(true);
    c.zetRaaklijn(true);
    const zw::Bereik b = *c.bereik();
    int i = 0;
    for (auto _ : state) {
        c.zetT(b.begin + (b.eind - b.begin) * (i++ % 101) / 100.0);
        for (zw::Surface* s : {&e.w.Doek(), &e.w.meng(), &e.w.Knopen()}) {
            benchmark::DoNotOptimize(zw::imageOf(s->overlay()).constBits());
        }
    }
}

void BM_DoekAllesAanMetConstructie(benchmark::State& state) {
    Editor e(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    e.allesAan();
    e.w.klik("mntExtraConstructie");
    e.w.constructie().zetLabels(true);
    e.w.constructie().zetRaaklijn(true);
    for (auto _ : state) {
        e.w.Doek().refresh();
        for (zw::Surface* s : {&e.w.Doek(), &e.w.meng(), &e.w.Knopen()}) {
            benchmark::DoNotOptimize(zw::imageOf(*s).constBits());
            benchmark::DoNotOptimize(zw::imageOf(s->overlay()).constBits());
        }
    }
}

// The pointer resting on one control point, then the next, with the links on and every view on:
// each move lights something else, and the overlays are drawn again.
void BM_Verbanden(benchmark::State& state) {
    Editor e(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    e.allesAan();
    e.w.klik("mntExtraVerbanden");
    zw::Surface& doek = e.w.Doek();
    const zw::ScaleMapper& m = doek.mapper();
    int i = 0;
    for (auto _ : state) {
        const zw::Punt p = e.w.polygoon().punten(static_cast<float>(i++ % 8));
        doek.deliverMouseMove(0, 0, m.toPixelX(p.X), m.toPixelY(p.Y));
        for (zw::Surface* s : {&e.w.Doek(), &e.w.meng(), &e.w.Knopen()}) {
            benchmark::DoNotOptimize(zw::imageOf(s->overlay()).constBits());
        }
    }
}

// `aantal` points strewn at random over the canvas (every leg and segment crosses much of it:
// the most pixels), or along a winding path as refining a drawn curve leaves them.
std::vector<std::pair<float, float>> groteKromme(std::int64_t aantal, bool pad) {
    std::mt19937 rng(7);
    std::uniform_int_distribution<int> x(500, 20500), y(500, 14000);
    std::vector<std::pair<float, float>> punten;
    for (std::int64_t i = 0; i < aantal; ++i) {
        if (pad) {
            const double a = 2.0 * M_PI * static_cast<double>(i) / static_cast<double>(aantal);
            punten.emplace_back(static_cast<float>(10500 + 9000 * std::sin(3 * a)),
                                static_cast<float>(7500 + 6000 * std::sin(4 * a)));
        } else {
            const auto px = static_cast<float>(x(rng));
            punten.emplace_back(px, static_cast<float>(y(rng)));
        }
    }
    return punten;
}

// A curve of a thousand points and more, as nine "Helft"s make of a cubic, with every view on:
// the weights window open (every point drawn in its colour once per point), the blending pane,
// the Bezier notation and the knot pane, on a canvas of 1400 x 1000 pixels. A cubic with uniform
// unit knots at the "High" detail; each redraw runs as the editor runs it, within the budget of
// work of one action, and one that runs out of it is reported. Arguments: the number of points,
// and 1 for points along a path, 0 for points at random.
void BM_GroteKromme(benchmark::State& state) {
    zw::TestDir dir;
    zw::ScriptedDialogs dialogs;
    zw::HeadlessEditor w{dir.path(), dialogs, 1400, 1000};
    w.start();
    zw::setCurve(w, 4, groteKromme(state.range(0), state.range(1) != 0));
    // Each item redraws, as an action of its own.
    zw::ScriptedDialogs stil;
    zw::EventGuard guard(stil);
    for (const char* item : {"mntBeeldGewichten", "mntBeeldMengFuncties", "mntBeeldBezier"}) {
        guard.run([&] { w.klik(item); });
    }
    if (!w.knopen_zichtbaar) {
        guard.run([&] { w.klik("mntBeeldKnopenVector"); });
    }
    std::uint64_t werk = 0;
    for (auto _ : state) {
        zw::Werkbudget budget;
        try {
            w.Doek().refresh();
            for (zw::Surface* s : {&w.Doek(), &w.meng(), &w.Knopen()}) {
                benchmark::DoNotOptimize(zw::imageOf(*s).constBits());
            }
        } catch (const zw::RuntimeError& fout) {
            state.SkipWithError(zw::errorMessage(fout).c_str());
            break;
        }
        werk = zw::Werkbudget::gedaan();
    }
    state.counters["budget%"] =
        100.0 * static_cast<double>(werk) / static_cast<double>(zw::kWerkGrens);
}

void krommen(benchmark::internal::Benchmark* b) {
    for (const int segmenten : {64, 16}) {
        for (const int orde : {2, 4, 8}) {
            b->Args({segmenten, orde});
        }
    }
    b->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_DoekZoalsVroeger)->Apply(krommen);
BENCHMARK(BM_Doek)->Apply(krommen);
BENCHMARK(BM_DoekEnMeng)->Apply(krommen);
BENCHMARK(BM_DoekAllesAan)->ArgsProduct({{64}, {2, 4, 8}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConstructieOverlay)->ArgsProduct({{64}, {2, 4, 8}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DoekAllesAanMetConstructie)
    ->ArgsProduct({{64}, {2, 4, 8}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Verbanden)->ArgsProduct({{64}, {2, 4, 8}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GroteKromme)
    ->Args({1000, 0})
    ->Args({1000, 1})
    ->Args({4096, 0})
    ->Unit(benchmark::kMillisecond);

}  // namespace

// Labels need the fonts of a GUI application.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
