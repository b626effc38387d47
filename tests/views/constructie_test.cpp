// The construction against SISL: level r of de Boor's triangle is the polygon with t inserted r
// times (Boehm), its last point the curve point, its last leg but one on the tangent. Then what
// SISL cannot say: the labels, the algorithm's name, degenerate knots.
#include <gtest/gtest.h>
#include <sisl.h>

#include <cmath>
#include <memory>
#include <random>
#include <tuple>
#include <vector>

#include "headless_window.h"
#include "views/constructie.h"

namespace zw {
namespace {

// Both sides compute in double, far below 1e-5; the model stores Singles, which for coordinates
// below 16384 lie within 2^-11 of the double.
constexpr double kTolerance = 1e-5 + 0x1p-11;

using SislCurve = std::unique_ptr<SISLCurve, void (*)(SISLCurve*)>;

// SISL's curve of the same knots and (weighted) points. SISL cuts a curve where a knot goes in at
// an end of its range, so it gets k knots more at each end, beyond all others, with points
// (0, 0, 1): the same curve on the real range, now inside SISL's. Point i is SISL's k + i.
SislCurve toSisl(const ConstructieKromme& c, bool rational) {
    const int k = c.orde, n = static_cast<int>(c.punten.size());
    std::vector<double> knots = c.knopen, coefs;
    knots.insert(knots.begin(), k, knots.front() - 1);
    knots.insert(knots.end(), k, knots.back() + 1);
    for (int i = -k; i < n + k; ++i) {
        const bool real = i >= 0 && i < n;
        const double w = real ? c.gewichten[i] : 1.0;
        const Punt p = real ? c.punten[i] : Punt();
        coefs.insert(coefs.end(), {p.X * w, p.Y * w, w});
        coefs.resize(coefs.size() - (rational ? 0 : 1));
    }
    return {newCurve(n + 2 * k, k, knots.data(), coefs.data(), rational ? 2 : 1, 2, 1), freeCurve};
}

void expectNear(const Punt& p, const double* sisl, const std::string& what) {
    EXPECT_NEAR(p.X, sisl[0], kTolerance) << what;
    EXPECT_NEAR(p.Y, sisl[1], kTolerance) << what;
}

// Order k, open-uniform or uniform knots, with or without weights; t at both ends of the range,
// on an interior knot and between knots. The range's end is evaluated from the left, like the
// construction's; everywhere else from the right, like its spans.
class ConstructieSisl : public ::testing::TestWithParam<std::tuple<int, bool, bool>> {};

TEST_P(ConstructieSisl, LevelsAreInsertionsAndTheLastLegTheTangent) {
    const auto [k, open, weighted] = GetParam();
    std::mt19937 rng(static_cast<unsigned>(100 * k + 10 * open + weighted));
    HeadlessWindow w;
    w.setRandomCurve(rng, k, k + 3, open);
    std::uniform_real_distribution<double> exponent(-3.0, 3.0);
    for (float i = 0; weighted && i <= w.polygoon().graad; ++i) {
        w.gewichten().zet_gewichten(i, std::exp2(exponent(rng)));
    }
    const ConstructieKromme kromme = kromme_van(w);
    const Bereik bereik = echt_bereik(kromme).value();
    std::uniform_real_distribution<double> between(bereik.begin, bereik.eind);
    for (const double t : {bereik.begin, bereik.eind, kromme.knopen[k], between(rng)}) {
        SCOPED_TRACE("t = " + std::to_string(t));
        const Constructie c = bouw_constructie(kromme, t).value();
        ASSERT_EQ(c.niveaus.size(), static_cast<std::size_t>(k));
        SislCurve curve = toSisl(kromme, weighted);
        double d[4] = {};
        int left = 0, stat = 0;
        (t == bereik.eind ? s1227 : s1221)(curve.get(), 1, t, &left, d, &stat);
        for (int r = 0; r < k && stat >= 0; ++r) {
            if (r > 0) {
                SISLCurve* refined = nullptr;
                s1017(curve.get(), &refined, t, &stat);
                curve = SislCurve(refined, freeCurve);
                ASSERT_TRUE(stat >= 0 && curve);
            }
            ASSERT_EQ(c.niveaus[r].punten.size(), static_cast<std::size_t>(k - r));
            for (int j = 0; j < k - r; ++j) {
                expectNear(c.niveaus[r].punten[j], curve->ecoef + 2 * (k + c.eersteIndex + r + j),
                           "level " + std::to_string(r));
            }
        }
        ASSERT_GE(stat, 0);
        expectNear(c.krommepunt, d, "curve point");
        ASSERT_EQ(c.heeftRaaklijn, k > 1);
        // Both points on the tangent, each within its rounding, in the order of t.
        for (const Punt& p : {c.raakA, c.raakB}) {
            const double afstand = (p.X - d[0]) * d[3] - (p.Y - d[1]) * d[2];
            EXPECT_TRUE(k == 1 || std::abs(afstand) / std::hypot(d[2], d[3]) < 2 * kTolerance);
        }
        EXPECT_TRUE(k == 1 || (c.raakB.X - c.raakA.X) * d[2] + (c.raakB.Y - c.raakA.Y) * d[3] > 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Sisl, ConstructieSisl,
                         ::testing::Combine(::testing::Range(1, 9), ::testing::Bool(),
                                            ::testing::Bool()));

// Uniform knots are knoop(i) = i - k + 1: t = 3.5 lies between knots 6 and 7 of a cubic, in
// segment 4 of points 3 .. 6.
TEST(Constructie, LabelsNameRangeAndEmptyIntervals) {
    HeadlessWindow w;
    const std::vector<std::pair<float, float>> p = {{0, 0}, {1, 5}, {3, 5}, {4, 0},
                                                    {6, 6}, {8, 0}, {9, 9}};
    w.setCurve(4, p);
    const Constructie c = bouw_constructie(kromme_van(w), 3.5).value();
    EXPECT_EQ(std::make_pair(c.segment, c.eersteIndex), std::make_pair(4, 3));
    const std::vector<std::vector<std::string>> labels = {
        {"f(1, 2, 3)", "f(2, 3, 4)", "f(3, 4, 5)", "f(4, 5, 6)"},
        {"f(2, 3, t)", "f(3, 4, t)", "f(4, 5, t)"},
        {"f(3, t, t)", "f(4, t, t)"},
        {"f(t, t, t)"}};
    for (std::size_t r = 0; r < labels.size(); ++r) {
        EXPECT_EQ(c.niveaus[r].labels, labels[r]) << "level " << r;
    }
    // An open-uniform end's millionths vanish, and so does the sign of a zero.
    EXPECT_EQ((std::vector<std::string>{kort_getal(0.1), kort_getal(-1.23456),
                                        kort_getal(-3 + 1e-6), kort_getal(-4e-7)}),
              (std::vector<std::string>{"0.1", "-1.235", "-3", "0"}));
    const Bereik bereik = echt_bereik(kromme_van(w)).value();
    EXPECT_EQ(std::make_tuple(bereik.klem(-1), bereik.klem(9), bereik.klem(NAN)),
              std::make_tuple(0.0, 4.0, 0.0));

    // The last segment dragged to nothing (knots ... 2, 4, 4, 5 ...): at the range's end one step
    // has no length to divide by; the point is SISL's all the same.
    w.vec().zet_knoop(6, 4.0);
    double d[2] = {};
    int left = 0, stat = 0;
    s1227(toSisl(kromme_van(w), false).get(), 0, 4.0, &left, d, &stat);
    expectNear(bouw_constructie(kromme_van(w), 4.0).value().krommepunt, d, "empty segment");
    // A range of no length at all gives points, not NaN (which would raise error 6).
    for (float i = 0; i < w.vec().knopenlengte; ++i) {
        w.vec().zet_knoop(i, 2.0);
    }
    EXPECT_EQ(errorOf([&] { bouw_constructie(kromme_van(w), 2.0).value(); }), 0);

    // The cubic Bezier curve, the same points on uniform knots, a point more. Order 1 has a blossom
    // of no arguments; too few points have no segment.
    for (const auto& [n, open, naam] :
         {std::tuple{4, true, "de Casteljau"}, std::tuple{4, false, "de Boor"},
          std::tuple{5, true, "de Boor"}}) {
        w.setCurve(4, {p.begin(), p.begin() + n}, open);
        EXPECT_EQ(algoritme_naam(kromme_van(w)), naam);
    }
    w.setCurve(1, {p.begin(), p.begin() + 2});
    EXPECT_EQ(bouw_constructie(kromme_van(w), 0.5).value().niveaus[0].labels[0], "f()");
    w.setCurve(4, {p.begin(), p.begin() + 3});
    EXPECT_FALSE(echt_bereik(kromme_van(w)) || bouw_constructie(kromme_van(w), 0.0));
}

}  // namespace
}  // namespace zw
