// Knot clusters: which knots the pane shows as one, where they lie, and the continuity it writes
// at them, checked against the curve's own derivatives as SISL evaluates them.
#include <gtest/gtest.h>
#include <sisl.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "headless_window.h"
#include "views/knoopclusters.h"

namespace zw {
namespace {

// A cluster in one line: its knots, its label, where it lies and its continuity.
std::string beschrijving(const KnoopCluster& c) {
    const std::string plaats = c.inwendig ? (c.reeel ? "inwendig" : "inwendig maar virtueel")
                                          : (c.reeel ? "eind" : "virtueel");
    return std::to_string(c.eerste) + ".." + std::to_string(c.laatste) + " " + cluster_tekst(c) +
           " " + plaats + " " + continuiteit_tekst(c.continuiteit);
}

TEST(KnoopClusters, ClustersTheirPlaceAndTexts) {
    // The open-uniform vector of order 8 as the editor makes it: its ends step by millionths.
    std::mt19937 rng(8);
    HeadlessWindow w;
    w.setRandomCurve(rng, 8, 9, true);
    const double nan = std::nan("");
    struct Rij {
        const char* naam;
        std::vector<double> knopen;
        int orde;
        std::vector<std::string> clusters;
    };
    const std::vector<Rij> rijen = {
        {"uniform",
         {-2, -1, 0, 1, 2, 3, 4},
         3,
         {"0..0 -2 virtueel C1", "1..1 -1 virtueel C1", "2..2 0 eind C1", "3..3 1 inwendig C1",
          "4..4 2 eind C1", "5..5 3 virtueel C1", "6..6 4 virtueel C1"}},
        // As zet_open_uniform leaves order 3 with four points.
        {"open-uniform",
         {-2, -2 + 1e-6, -2 + 2e-6, 1 - 1e-6, 4 - 4e-6, 4 - 3e-6, 4},
         3,
         {"0..2 3x -2 eind C-1", "3..3 1 inwendig C1", "4..6 3x 4 eind C-1"}},
        {"open-uniform of order 8",
         w.knots(),
         8,
         {"0..7 8x -7 eind C-1", "8..8 1 inwendig C6", "9..16 8x 9 eind C-1"}},
        {"dragged onto its neighbour",
         {0, 1, 2, 2, 3, 4},
         2,
         {"0..0 0 virtueel C0", "1..1 1 eind C0", "2..3 2x 2 inwendig C-1", "4..4 3 eind C0",
          "5..5 4 virtueel C0"}},
        {"1e-6 apart",
         {0, 0, 0, 0, 1, 1 + 1e-6, 2, 2, 2, 2},
         4,
         {"0..3 4x 0 eind C-1", "4..5 2x 1 inwendig C1", "6..9 4x 2 eind C-1"}},
        {"triple between clamped ends",
         {0, 0, 0, 0, 2.5, 2.5, 2.5 + 1e-6, 5, 5, 5, 5},
         4,
         {"0..3 4x 0 eind C-1", "4..6 3x 2.5 inwendig C0", "7..10 4x 5 eind C-1"}},
        {"a cluster across the range's start",
         {-2, 0, 0, 1, 2, 3, 4},
         3,
         {"0..0 -2 virtueel C1", "1..2 2x 0 eind C0", "3..3 1 inwendig C1", "4..4 2 eind C1",
          "5..5 3 virtueel C1", "6..6 4 virtueel C1"}},
        {"2e-5 apart",
         {0, 1, 1 + 2e-5, 2},
         1,
         {"0..0 0 eind C-1", "1..1 1 inwendig C-1", "2..2 1 inwendig C-1", "3..3 2 eind C-1"}},
        {"no segment",
         {0, 1, 1, 2, 3},
         3,
         {"0..0 0 virtueel C1", "1..2 2x 1 virtueel C0", "3..3 2 virtueel C1",
          "4..4 3 virtueel C1"}},
        {"not a number",
         {0, nan, nan, 1},
         1,
         {"0..0 0 eind C-1", "1..1 nan inwendig C-1", "2..2 nan inwendig C-1", "3..3 1 eind C-1"}},
        {"no knots", {}, 3, {}},
    };
    for (const Rij& rij : rijen) {
        std::vector<std::string> gevonden;
        for (const KnoopCluster& c : knoopclusters(rij.knopen, rij.orde)) {
            gevonden.push_back(beschrijving(c));
        }
        EXPECT_EQ(gevonden, rij.clusters) << rij.naam;
    }
    EXPECT_EQ(continuiteit_tekst(-3), "C-1");
    // The value is the mean of the cluster's knots.
    EXPECT_DOUBLE_EQ(knoopclusters({1, 1 + 2e-6}, 1).at(0).waarde, 1 + 1e-6);
}

using SislCurve = std::unique_ptr<SISLCurve, void (*)(SISLCurve*)>;

// The largest coordinate of derivative `orde` anywhere on the curve: the largest of its B-spline
// coefficients, in whose hull it lies.
double grootste_afgeleide(SISLCurve* kromme, int orde) {
    SISLCurve* afgeleide = nullptr;
    int stat = 0;
    s1720(kromme, orde, &afgeleide, &stat);
    const SislCurve houder(afgeleide, freeCurve);
    EXPECT_TRUE(stat >= 0 && afgeleide);
    double grootste = 0.0;
    for (int i = 0; afgeleide && i < afgeleide->in * afgeleide->idim; ++i) {
        grootste = std::max(grootste, std::abs(afgeleide->ecoef[i]));
    }
    return grootste;
}

// Order k between unit-spaced knots, with m knots at k + 1, equal or 1e-6 apart, and random
// points: at every interior cluster the derivatives of order 0 .. C from the left at its lowest
// knot and from the right at its highest agree, and those of order C + 1 do not. Across knots
// 1e-6 apart derivative j changes by at most the width times the largest derivative j + 1.
TEST(KnoopClusters, ContinuityIsTheCurvesAtEveryInteriorCluster) {
    std::mt19937 rng(26);
    std::uniform_real_distribution<double> coordinaat(-10.0, 10.0);
    for (int k = 2; k <= 6; ++k) {
        for (int m = 1; m <= k; ++m) {
            for (const double stap : {0.0, 1e-6}) {
                SCOPED_TRACE("order " + std::to_string(k) + ", " + std::to_string(m) + " knots " +
                             std::to_string(stap) + " apart");
                std::vector<double> knopen;
                for (int i = 0; i <= 2 * k + 2; ++i) {
                    for (int j = 0; j < (i == k + 1 ? m : 1); ++j) {
                        knopen.push_back(i + j * stap);
                    }
                }
                const int n = static_cast<int>(knopen.size()) - k;
                std::vector<double> punten(2 * static_cast<std::size_t>(n));
                std::generate(punten.begin(), punten.end(), [&] { return coordinaat(rng); });
                const SislCurve kromme(newCurve(n, k, knopen.data(), punten.data(), 1, 2, 1),
                                       freeCurve);
                ASSERT_NE(kromme, nullptr);

                const std::vector<KnoopCluster> clusters = knoopclusters(knopen, k);
                const auto cluster = std::find_if(clusters.begin(), clusters.end(),
                                                  [&](const auto& c) { return c.eerste == k + 1; });
                ASSERT_NE(cluster, clusters.end());
                EXPECT_EQ(cluster->multipliciteit, m);
                EXPECT_TRUE(cluster->inwendig);
                for (const KnoopCluster& c : clusters) {
                    if (!c.inwendig) {
                        continue;
                    }
                    const double a = knopen.at(c.eerste), b = knopen.at(c.laatste);
                    std::vector<double> links(2 * k), rechts(2 * k);
                    int index = 0, stat = 0;
                    s1227(kromme.get(), k - 1, a, &index, links.data(), &stat);
                    ASSERT_GE(stat, 0);
                    s1221(kromme.get(), k - 1, b, &index, rechts.data(), &stat);
                    ASSERT_GE(stat, 0);
                    for (int j = 0; j <= c.continuiteit + 1; ++j) {
                        const double verschil = std::hypot(links[2 * j] - rechts[2 * j],
                                                           links[2 * j + 1] - rechts[2 * j + 1]);
                        const double grootte = 1.0 + std::hypot(links[2 * j], links[2 * j + 1]) +
                                               std::hypot(rechts[2 * j], rechts[2 * j + 1]);
                        SCOPED_TRACE("derivative " + std::to_string(j) + " at knot " +
                                     std::to_string(c.eerste));
                        if (j <= c.continuiteit) {
                            const double breedte = b > a ? grootste_afgeleide(kromme.get(), j + 1) *
                                                               std::sqrt(2.0) * (b - a)
                                                         : 0.0;
                            EXPECT_LE(verschil, 1e-9 * grootte + breedte);
                        } else {
                            EXPECT_GT(verschil, 1e-3 * grootte);
                        }
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace zw
