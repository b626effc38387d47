// Degree elevation against SISL's order raising (s1750): on the real range the raised curve is
// SISL's raised curve and the old one, for the editor's uniform and open-uniform knots and for
// knots that coincide exactly, with and without weights; the counts of knots and points. The
// editor keeps the doubled knots a millionth apart: the curves agree to that millionth times the
// curve's speed: within a twentieth of a unit here.
#include <gtest/gtest.h>
#include <sisl.h>

#include <array>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include "headless_window.h"
#include "spline/graadverhoging.h"
#include "views/constructie.h"
#include "views/knoopclusters.h"

namespace zw {
namespace {

using SislCurve = std::unique_ptr<SISLCurve, void (*)(SISLCurve*)>;

SislCurve alsSisl(const std::vector<double>& knopen, const std::vector<double>& x,
                  const std::vector<double>& y, const std::vector<double>& gewichten, int k,
                  bool rationeel) {
    std::vector<double> knots = knopen, coefs;
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double w = rationeel ? gewichten[i] : 1.0;
        coefs.insert(coefs.end(), {x[i] * w, y[i] * w, w});
        coefs.resize(coefs.size() - (rationeel ? 0 : 1));
    }
    return {newCurve(static_cast<int>(x.size()), k, knots.data(), coefs.data(), rationeel ? 2 : 1,
                     2, 1),
            freeCurve};
}

std::array<double, 2> punt(SISLCurve* c, double t, bool eind) {
    double d[2] = {};
    int left = 0, stat = 0;
    (eind ? s1227 : s1221)(c, 0, t, &left, d, &stat);
    EXPECT_GE(stat, 0);
    return {d[0], d[1]};
}

// Orders 2 .. 6; open uniform or uniform; weights or none; an interior knot moved exactly onto
// its neighbour or not.
TEST(Graadverhoging, TheRaisedCurveIsSislsAndTheOld) {
    for (int k = 2; k <= 6; ++k) {
        for (const int vorm : {0, 1, 2, 3, 4, 5, 6, 7}) {
            const bool open = vorm & 1, gewogen = vorm & 2, samen = vorm & 4;
            SCOPED_TRACE(testing::Message() << "k " << k << " vorm " << vorm);
            std::mt19937 rng(static_cast<unsigned>(10 * k + vorm));
            HeadlessWindow w;
            w.setRandomCurve(rng, k, k + 4, open);
            std::uniform_real_distribution<double> exponent(-2.0, 2.0);
            for (float i = 0; gewogen && i <= w.polygoon().graad; ++i) {
                w.gewichten().zet_gewichten(i, std::exp2(exponent(rng)));
            }
            if (samen) {  // knot k + 1 onto knot k: a double knot inside the range
                w.vec().zet_knoop(static_cast<float>(k + 1), w.vec().knoop(static_cast<float>(k)));
            }
            const ConstructieKromme oud = kromme_van(w);
            const Verhoogd nieuw = verhoog_graad(oud.knopen, oud.punten, oud.gewichten, k).value();
            ASSERT_EQ(nieuw.orde, k + 1);
            ASSERT_EQ(nieuw.knopen.size(), nieuw.punten.size() + k + 1);
            std::vector<double> ox, oy;
            for (const Punt& p : oud.punten) {
                ox.push_back(p.X);
                oy.push_back(p.Y);
            }
            SislCurve was = alsSisl(oud.knopen, ox, oy, oud.gewichten, k, gewogen);
            SislCurve wordt = alsSisl(nieuw.knopen, nieuw.x, nieuw.y, nieuw.gewichten, k + 1, gewogen);
            SISLCurve* sisl = nullptr;
            int stat = 0;
            s1750(was.get(), k + 1, &sisl, &stat);
            ASSERT_GE(stat, 0);
            SislCurve verhoogd(sisl, freeCurve);
            const Bereik b = echt_bereik(oud).value();
            // The ends, and between the knots: at a double knot of order 2 the curve jumps.
            for (int s = 0; s <= 101; ++s) {
                const double t = s == 0     ? b.begin
                                 : s == 101 ? b.eind
                                            : b.begin + (b.eind - b.begin) * (s - 0.5) / 100;
                const auto p = punt(wordt.get(), t, s == 101), q = punt(verhoogd.get(), t, s == 101),
                           r = punt(was.get(), t, s == 101);
                for (int c = 0; c < 2; ++c) {
                    EXPECT_NEAR(p[c], q[c], 0.05) << t;
                    EXPECT_NEAR(q[c], r[c], 1e-9 * std::fabs(r[c]) + 1e-9) << t;
                }
            }
            // A double knot becomes a triple; a uniform cubic of S segments has 2S + k - 1 points.
            int hoogste = 0;
            for (const KnoopCluster& c : knoopclusters(nieuw.knopen, k + 1)) {
                hoogste = c.inwendig ? std::max(hoogste, c.multipliciteit) : hoogste;
            }
            EXPECT_EQ(hoogste, samen ? 3 : 2);
            if (!samen) {
                EXPECT_EQ(nieuw.punten.size(), static_cast<std::size_t>(2 * 5 + k - 1));
            }
        }
    }
}

}  // namespace
}  // namespace zw
