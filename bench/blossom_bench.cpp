// The cost of one curve point per order: the editor's road (the argument list of k - 1 equal
// parameters, the segment search, blossoming, the combination of the control points) against
// SISL's de Boor evaluation (s1221) of the identical curve at the identical parameters.
#include <benchmark/benchmark.h>
#include <sisl.h>

#include <cstddef>
#include <memory>
#include <random>
#include <vector>

#include "headless_window.h"

namespace {

constexpr int kPoints = 12;
// Random parameters, so that neither evaluator gains from the segment of the previous point.
constexpr std::size_t kParameters = 256;

// A curve of order k through fixed random points on a uniform knot vector, and parameters spread
// over its real range.
struct Curve {
    explicit Curve(int k) {
        std::mt19937 rng(20240611u + static_cast<unsigned>(k));
        w.setRandomCurve(rng, k, kPoints);
        // The real range runs from knot k - 1 to knot L - k; its end belongs to no segment.
        const float L = w.vec().knopenlengte;
        std::uniform_real_distribution<double> inRange(w.vec().knoop(static_cast<float>(k - 1)),
                                                       w.vec().knoop(L - static_cast<float>(k)));
        for (std::size_t i = 0; i < kParameters; ++i) {
            ts.push_back(inRange(rng));
            segments.push_back(w.vec().geef_segment(ts.back()));
        }
    }
    zw::HeadlessWindow w;
    std::vector<double> ts;
    std::vector<float> segments;
};

// One curve point per iteration: the argument list of k - 1 equal parameters, blossoming and the
// combination of the control points. With `search` the segment is searched among the knots, as
// SISL searches its interval; without, it is known, as in the curve drawing, which evaluates
// segment by segment.
template <bool search>
void pointsOfCurve(benchmark::State& state) {
    const int k = static_cast<int>(state.range(0));
    Curve curve(k);
    zw::HeadlessWindow& w = curve.w;
    zw::Array<double> args(k - 1);
    std::size_t i = 0;
    for (auto _ : state) {
        const double t = curve.ts[i % kParameters];
        const float sigma = search ? w.vec().geef_segment(t) : curve.segments[i % kParameters];
        ++i;
        for (int j = 0; j < k; ++j) {
            args(j) = t;
        }
        const zw::Array<double> c = w.evaluator().blossom(args, sigma);
        zw::Punt p = w.evaluator().bereken_punt(c, sigma - 1.0f);
        benchmark::DoNotOptimize(p);
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_Blossom(benchmark::State& state) {
    pointsOfCurve<true>(state);
}

void BM_BlossomInSegment(benchmark::State& state) {
    pointsOfCurve<false>(state);
}

struct CurveDeleter {
    void operator()(SISLCurve* c) const { freeCurve(c); }
};

void BM_Sisl(benchmark::State& state) {
    const int k = static_cast<int>(state.range(0));
    Curve curve(k);
    zw::HeadlessWindow& w = curve.w;
    std::vector<double> knots = w.knots();
    std::vector<double> coefs;
    for (float j = 0; j <= w.polygoon().graad; ++j) {
        coefs.push_back(w.polygoon().punten(j).X);
        coefs.push_back(w.polygoon().punten(j).Y);
    }
    const std::unique_ptr<SISLCurve, CurveDeleter> c(
        newCurve(kPoints, k, knots.data(), coefs.data(), 1, 2, 1));
    if (!c) {
        state.SkipWithError("newCurve failed");
        return;
    }
    int left = 0;
    std::size_t i = 0;
    for (auto _ : state) {
        const double t = curve.ts[i++ % kParameters];
        double p[2];
        int stat = 0;
        s1221(c.get(), 0, t, &left, p, &stat);
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(stat);
    }
    state.SetItemsProcessed(state.iterations());
}

// The parameter search behind a click on the curve: the canvas point is a curve point moved
// aside, so that the search has to tell competing pieces apart.
void BM_ZoekTwaarde(benchmark::State& state) {
    const int k = static_cast<int>(state.range(0));
    Curve curve(k);
    zw::HeadlessWindow& w = curve.w;
    std::vector<zw::Punt> clicks;
    for (std::size_t i = 0; i < 16; ++i) {
        const zw::Punt p = w.drawnPoint(curve.ts[i]);
        clicks.emplace_back(p.X + 150.0f, p.Y - 100.0f);
    }
    std::size_t i = 0;
    for (auto _ : state) {
        double t = 0.0;
        w.evaluator().zoek_twaarde(clicks[i++ % clicks.size()], t);
        benchmark::DoNotOptimize(t);
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(BM_Blossom)->DenseRange(2, 8)->Unit(benchmark::kNanosecond);
BENCHMARK(BM_BlossomInSegment)->DenseRange(2, 8)->Unit(benchmark::kNanosecond);
BENCHMARK(BM_Sisl)->DenseRange(2, 8)->Unit(benchmark::kNanosecond);
BENCHMARK(BM_ZoekTwaarde)->Arg(2)->Arg(4)->Arg(8)->Unit(benchmark::kMicrosecond);

}  // namespace
