#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "geometry/mat.h"
#include "headless_window.h"

namespace zw {
namespace {

double drawnDistance(HeadlessWindow& w, double t, const Punt& q) {
    return Mat().bereken_afstand(w.drawnPoint(t), q);
}

double denseBest(HeadlessWindow& w, const Punt& q, int perSegment) {
    const float k = w.polygoon().orde;
    double best = HUGE_VAL;
    for (float s = 1; s <= w.segments(); ++s) {
        const double a = w.vec().knoop(k + s - 2);
        const double b = w.vec().knoop(k + s - 1);
        for (int i = 0; i <= perSegment; ++i) {
            best = std::min(best, drawnDistance(w, a + (b - a) * i / perSegment, q));
        }
    }
    return best;
}

TEST(ParameterSearch, FindsTheNearestDrawnPointOnAnyCurve) {
    std::mt19937 rng(42);
    std::uniform_real_distribution<float> coordinate(0.0f, 10000.0f);
    std::uniform_real_distribution<double> exponent(-3.0, 3.0);
    for (int k = 2; k <= 8; ++k) {
        for (const bool openUniform : {false, true}) {
            HeadlessWindow w;
            w.setRandomCurve(rng, k, k + 3, openUniform);
            for (float i = 0; i <= w.polygoon().graad; ++i) {
                w.gewichten().zet_gewichten(i, std::exp2(exponent(rng)));
            }
            const double first = w.vec().knoop(k - 1.0f);
            const double last = w.vec().knoop(w.vec().knopenlengte - k);
            std::uniform_real_distribution<double> along(first, last);
            std::uniform_real_distribution<float> offset(-300.0f, 300.0f);
            for (int query = 0; query < 4; ++query) {
                // Anywhere on the canvas, or just beside the curve, where minima compete.
                Punt q(coordinate(rng), coordinate(rng));
                if (query % 2 == 1) {
                    const Punt on = w.drawnPoint(along(rng));
                    q = Punt(on.X + offset(rng), on.Y + offset(rng));
                }
                double t = -1e9;
                w.evaluator().zoek_twaarde(q, t);
                ASSERT_GE(t, first);
                ASSERT_LE(t, last);
                EXPECT_LE(drawnDistance(w, t, q), denseBest(w, q, 600) + 0.5)
                    << "k " << k << " open " << openUniform << " query " << q.X << "," << q.Y;
            }
        }
    }
}

TEST(ParameterSearch, ACurveWithoutSegmentsLeavesTheParameterAlone) {
    HeadlessWindow w;
    w.setCurve(4, {{0, 0}, {100, 100}});
    double t = 12.5;
    w.evaluator().zoek_twaarde(Punt(50, 50), t);
    EXPECT_EQ(t, 12.5);
}

}  // namespace
}  // namespace zw
