// The longest single actions a file can ask for, each run as the editor runs it: in the event
// guard, with its budget of work. A curve beyond reason must end in error 7 well within two
// seconds; a person's curve must use a small fraction of the budget. Counters: "fout7" is 1 when
// the action ended in error 7, "budget%" the share of the budget it used.
#include <benchmark/benchmark.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "editor_script.h"
#include "headless_window.h"
#include "platform/werk.h"

namespace {

struct Kromme {
    int orde;
    int punten;
    double knoopafstand;  // between the uniform knots
};

void zetKromme(zw::HeadlessEditor& w, const Kromme& kromme) {
    std::mt19937 rng(5);
    std::uniform_int_distribution<int> coordinate(500, 9500);
    std::vector<std::pair<float, float>> points;
    for (int i = 0; i < kromme.punten; ++i) {
        const auto x = static_cast<float>(coordinate(rng));
        points.emplace_back(x, static_cast<float>(coordinate(rng)));
    }
    zw::setCurve(w, kromme.orde, points);
    w.polygoon().orde_gezet = kromme.orde > 0;
    for (float i = 0; i <= w.vec().knopenlengte; ++i) {
        w.vec().zet_knoop(i, (i - kromme.orde) * kromme.knoopafstand);
    }
}

// One action on a fresh editor holding the curve; the time is the action's alone.
void meet(benchmark::State& state, const Kromme& kromme,
          const std::function<void(zw::HeadlessEditor&, const std::string&)>& actie) {
    zw::TestDir dir;
    zw::ScriptedDialogs dialogs;
    zw::EventGuard guard(dialogs);
    double fout7 = 0, gebruikt = 0;
    for (auto _ : state) {
        state.PauseTiming();
        zw::HeadlessEditor w(dir.path(), dialogs, 1200, 800);
        w.start();
        zetKromme(w, kromme);
        w.ops().opslaan(dir.file("kromme.zwl"));
        const std::size_t berichten = dialogs.messages().size();
        state.ResumeTiming();
        guard.run([&] {
            actie(w, dir.file("kromme.zwl"));
            gebruikt = static_cast<double>(zw::Werkbudget::gedaan());
        });
        state.PauseTiming();
        fout7 = dialogs.messages().size() > berichten &&
                dialogs.messages().back().text.find("Onvoldoende geheugen") != std::string::npos;
        state.ResumeTiming();
    }
    state.counters["fout7"] = fout7;
    state.counters["budget%"] = fout7 != 0 ? 100.0 : 100.0 * gebruikt / zw::kWerkGrens;
}

void tekenen(zw::HeadlessEditor& w, const std::string&) { w.Doek().refresh(); }
void openen(zw::HeadlessEditor& w, const std::string& bestand) { w.ops().openen(bestand); }
void helft(zw::HeadlessEditor& w, const std::string&) { w.klik("mntBewerkenSplineHelft"); }
void invoegen(zw::HeadlessEditor& w, const std::string&) { zw::voegKnoopInHetMidden(w); }

const Kromme kMens{4, 67, 1.0};          // 64 segments, as a person might make them
const Kromme kVerreKnopen{4, 5, 2.5e6};  // the real range spans 5e6 units: 1e8 samples
const Kromme kVeelPunten{8, 65536, 1.0};
const Kromme kDuizenden{4, 4096, 1.0};
const Kromme kHogeOrde{30, 40, 1.0};      // an order that only a file can hold
const Kromme kAlleenPunten{0, 65536, 1.0};  // no order yet: the polygon alone

BENCHMARK_CAPTURE(meet, tekenen_mens, kMens, tekenen)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(meet, helft_mens, kMens, helft)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(meet, tekenen_orde_30, kHogeOrde, tekenen)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(meet, tekenen_verre_knopen, kVerreKnopen, tekenen)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(meet, tekenen_65536_punten_zonder_orde, kAlleenPunten, tekenen)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(meet, tekenen_65536_punten, kVeelPunten, tekenen)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(meet, openen_65536_punten, kVeelPunten, openen)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(meet, invoegen_65536_punten, kVeelPunten, invoegen)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(meet, helft_4096_punten, kDuizenden, helft)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(meet, helft_65536_punten, kVeelPunten, helft)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
