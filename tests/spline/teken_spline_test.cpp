#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <tuple>
#include <vector>

#include "headless_window.h"
#include "platform/werk.h"
#include "views/beeld.h"

namespace zw {
namespace {

using Vertex = std::pair<double, double>;

void append(std::vector<Vertex>& path, const Vertex& v) {
    if (path.empty() || path.back() != v) {
        path.push_back(v);
    }
}

// The vertices of lines that must join end to start. The line joining a knot point to the
// segment before is drawn again at once as the line to the segment's first sample.
std::vector<Vertex> polyline(const std::vector<DrawRecord>& lines) {
    std::vector<Vertex> path;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const DrawRecord& r = lines[i];
        if (i == 0 || fieldsOf(r) != fieldsOf(lines[i - 1])) {
            EXPECT_TRUE(path.empty() || path.back() == Vertex(r.x1, r.y1)) << "gap at " << i;
            append(path, {r.x1, r.y1});
            append(path, {r.x2, r.y2});
        }
    }
    return path;
}

// The drawn points of segments begin .. end - 1, sampled from their knots by the Single step.
std::vector<Vertex> expectedPath(HeadlessWindow& w, int begin, int end, float step) {
    const int k = static_cast<int>(w.polygoon().orde);
    std::vector<Vertex> path;
    for (int s = begin; s < end; ++s) {
        for (double t = w.knots()[k - 1 + s]; t < w.knots()[k + s]; t += step) {
            const Punt p = w.drawnPoint(t);
            append(path, {p.X, p.Y});
        }
    }
    return path;
}

TEST(TekenSpline, WidePolylineThroughTheDrawnPointsWithItsKnotsMarked) {
    std::mt19937 rng(7);
    const std::tuple<int, int, bool, double, float> cases[] = {
        // order, points, open uniform, weight of point 1, step
        {4, 6, false, 1.0, 0.2f},
        {3, 5, true, 4.0, 0.05f},
        {4, 4, false, 0.25, 0.2f},
        {2, 5, false, 3.0, 0.2f},  // order 2 samples at a twentieth of the step
    };
    for (const auto& [k, count, open, weight, step] : cases) {
        SCOPED_TRACE(k);
        HeadlessWindow w;
        w.setRandomCurve(rng, k, count, open);
        w.gewichten().zet_gewichten(1, weight);
        w.evaluator().stap = step;
        w.krommekleur = rgb(1, 2, 3);
        w.Datakleur = rgb(4, 5, 6);
        w.ControleStraal = 40;
        w.Doek().setDrawWidth(2);
        w.knooppunten = k != 4;
        w.evaluator().teken_spline();

        std::vector<Vertex> path = expectedPath(w, 0, w.segments(), k == 2 ? step / 20 : step);
        const Punt end = w.drawnPoint(w.knots()[w.knots().size() - k]);
        append(path, {end.X, end.Y});
        const std::vector<DrawRecord> lines = recordsOf(w.Doek(), DrawKind::kLine);
        EXPECT_EQ(polyline(lines), path);
        for (const DrawRecord& r : lines) {
            ASSERT_EQ(std::make_tuple(r.colour, r.drawWidth), std::make_tuple(w.krommekleur, 6));
        }
        EXPECT_EQ(w.Doek().drawWidth(), 2);
        // Discs at every knot of the real range, both ends included, only with knooppunten.
        const std::vector<DrawRecord> discs = recordsOf(w.Doek(), DrawKind::kCircle);
        ASSERT_EQ(discs.size(), w.knooppunten ? w.segments() + 1u : 0u);
        for (std::size_t i = 0; i < discs.size(); ++i) {
            const Punt p = w.drawnPoint(w.knots()[k - 1 + i]);
            EXPECT_EQ(std::make_tuple(discs[i].x1, discs[i].y1, discs[i].radius, discs[i].colour,
                                      discs[i].fillColour),
                      std::make_tuple(p.X, p.Y, 40.0, w.Datakleur, w.Datakleur));
        }
        EXPECT_TRUE(w.meng().log().empty());
    }
}

// The B-spline basis by the Cox-de Boor recursion: an independent road to the values drawn.
double basis(const std::vector<double>& u, int i, int k, double t) {
    if (k == 1) {
        return u[i] <= t && t < u[i + 1] ? 1.0 : 0.0;
    }
    double v = 0.0;
    if (u[i + k - 1] > u[i]) {
        v += (t - u[i]) / (u[i + k - 1] - u[i]) * basis(u, i, k - 1, t);
    }
    if (u[i + k] > u[i + 1]) {
        v += (u[i + k] - t) / (u[i + k] - u[i + 1]) * basis(u, i + 1, k - 1, t);
    }
    return v;
}

// The three drawers of the pane in their order: every sample is one line per control point,
// each continuing the line before it. A value written at a sample is 100 N_i(t) w_i over the
// sample's rational denominator (real range) or over the largest weight (virtual ranges);
// every other value stays level.
TEST(Mengfuncties, EveryRangeDrawsTheBasisInOneUnbrokenFan) {
    std::mt19937 rng(3);
    const std::tuple<int, int, bool, double> cases[] = {
        // order, points, open uniform, weight of point 2
        {3, 5, false, 1.0},
        {4, 7, true, 4.0},
        {2, 4, false, 0.25},
        {5, 6, false, 1.0}};
    for (const auto& [k, count, open, weight] : cases) {
        SCOPED_TRACE(k);
        HeadlessWindow w;
        w.setRandomCurve(rng, k, count, open);
        w.gewichten().zet_gewichten(2, weight);
        w.gewichten().zoek_grootste_gewicht();
        w.mengstat = true;
        w.meng().setPixelSize(200, 200);  // the fans are collected, and their promises checked
        w.meng().scale(-200000, 120, 1200000, -20);
        BlossomFunctie& f = w.evaluator();
        f.vorige_mengx = 7;
        f.teken_linker_virtuele_mengfuncties();
        f.teken_spline();
        f.teken_rechter_virtuele_mengfuncties();

        const std::vector<double> u = w.knots();
        const int L = static_cast<int>(u.size()), n = w.segments();
        const double largest = std::max(weight, 1.0);
        const auto wgt = [&](int i) { return i == 2 ? weight : 1.0; };
        // Samples: t, the first point written and whether the real range's denominator divides.
        std::vector<std::tuple<double, int, bool>> samples;
        double t = u[0];
        for (int j = 1; j < k; ++j) {
            for (; t < u[j]; t += f.stap)
                samples.emplace_back(t, j - k, false);
        }
        for (int s = 0; s < n; ++s) {
            for (t = u[k - 1 + s]; t < u[k + s]; t += k == 2 ? f.stap / 20 : f.stap) {
                samples.emplace_back(t, s, true);
            }
        }
        t = u[L - k];
        for (int j = 1; j < k; ++j) {
            for (; t < u[L - k + j]; t += f.stap)
                samples.emplace_back(t, n + j - 1, false);
        }

        const std::vector<DrawRecord>& log = w.meng().log();
        ASSERT_EQ(log.size(), samples.size() * count);
        for (std::size_t m = 0; m < samples.size(); ++m) {
            const auto [ts, first, real] = samples[m];
            double denominator = 0.0;
            for (int i = first; real && i < first + k; ++i) {
                denominator += basis(u, i, k, ts) * wgt(i);
            }
            double sum = 0.0;
            for (int i = 0; i < count; ++i) {
                const DrawRecord& r = log[m * count + i];
                const DrawRecord* before = m > 0 ? &log[(m - 1) * count + i] : nullptr;
                EXPECT_EQ(std::make_tuple(r.x1, r.y1, r.colour),
                          std::make_tuple(before ? before->x2 : 7.0, before ? before->y2 : 0.0,
                                          w.kleur(i % 8)));
                EXPECT_FLOAT_EQ(static_cast<float>(r.x2),
                                static_cast<float>((ts - u[0]) / (u[L - 1] - u[0]) * 1e6));
                if (i < first || i >= first + k) {
                    EXPECT_EQ(r.y2, r.y1);
                    continue;
                }
                const double value =
                    100 * basis(u, i, k, ts) * wgt(i) / (real ? denominator : largest);
                EXPECT_NEAR(r.y2, value, 1e-3) << m << " " << i;
                sum += r.y2;
            }
            if (real) {
                EXPECT_NEAR(sum, 100.0, 1e-3);
            }
        }
    }
}

// What sets a coloured run apart from teken_spline: the plain step even for order 2, the canvas
// width, no blending functions, and the close on knot k + 1 blended from points 3 on.
//
// The colouring views draw such a run and then mark their points. A cubic of seven points (G = 6)
// has four segments over 0 .. 4: point i acts on segments i - 3 .. i (counted from 0), clamped at 0
// below and at 4 above; a parameter in the last segment, or at the range's end, which lies in none,
// marks points 3 .. 6. Too few knots for the order draw no Bezier notation.
TEST(TekenSpline, InKleurDrawsARunInTheSegmentColourAtTheCanvasWidth) {
    std::mt19937 rng(5);
    HeadlessWindow w;
    w.setRandomCurve(rng, 2, 7);
    w.segmentkleur = rgb(4, 5, 6);
    w.mengstat = true;  // yet nothing goes to meng: its arrays are not even dimensioned
    w.Doek().setDrawWidth(2);
    w.evaluator().teken_spline_in_kleur(1, 3);

    std::vector<Vertex> path = expectedPath(w, 1, 3, w.evaluator().stap);
    const Array<double> c = w.evaluator().blossom(equalArgs(2, w.knots()[3]), 3);
    const Punt end = w.polygoon().zoek_coord(c, 3);
    append(path, {end.X, end.Y});
    const std::vector<DrawRecord> lines = recordsOf(w.Doek(), DrawKind::kLine);
    EXPECT_EQ(polyline(lines), path);
    for (const DrawRecord& r : lines) {
        ASSERT_EQ(std::make_tuple(r.colour, r.drawWidth), std::make_tuple(w.segmentkleur, 2));
    }

    w.setRandomCurve(rng, 4, 7);
    w.ControleStraal = 30;
    Beeld be(w);
    const std::tuple<std::function<void()>, float, float, std::vector<float>> views[] = {
        {[&] { be.kleur_segmenten(0); }, 0, 1, {0}},
        {[&] { be.kleur_segmenten(6); }, 3, 4, {6}},
        {[&] { be.kleur_controlepunten(3.5f); }, 3, 4, {3, 4, 5, 6}},
        {[&] { be.kleur_controlepunten(4.0f); }, 3, 4, {3, 4, 5, 6}},
    };
    for (const auto& [view, begin, eind, marked] : views) {
        w.Doek().cls();
        w.evaluator().teken_spline_in_kleur(begin, eind);
        std::vector<DrawRecord> expected = w.Doek().log();
        for (const float i : marked) {
            const Punt& p = w.polygoon().punten(i);
            expected.push_back({DrawKind::kCircle, p.X, p.Y, 0, 0, 30, w.segmentkleur, 2,
                                kFillTransparent, w.segmentkleur});
        }
        w.Doek().cls();
        view();
        EXPECT_EQ(fieldsOf(w.Doek().log()), fieldsOf(expected)) << begin << " .. " << eind;
    }
    w.setRandomCurve(rng, 4, 2);  // no segment: no Bezier notation either
    w.Doek().cls();
    be.bereken_bezier_notatie();
    EXPECT_TRUE(w.Doek().log().empty());
}

TEST(TekenSpline, FaultsRaiseRunTimeErrors) {
    std::mt19937 rng(9);
    HeadlessWindow w;
    w.setRandomCurve(rng, 4, 5);
    w.Doek().setDrawWidth(11000);  // cannot be tripled in an Integer
    EXPECT_EQ(errorOf([&] { w.evaluator().teken_spline(); }), kErrOverflow);
    // A redraw that runs out of work stops wherever its budget does, and the canvas keeps its
    // width.
    w.Doek().setDrawWidth(2);
    int fouten = 0;
    for (std::uint64_t grens = 500; grens < 60000; grens += 1700) {
        Werkbudget budget(grens);
        fouten += errorOf([&] { w.evaluator().teken_spline(); }) == kErrOutOfMemory;
        ASSERT_EQ(w.Doek().drawWidth(), 2) << grens;
    }
    EXPECT_GT(fouten, 0);
    w.Doek().setDrawWidth(1);
    w.evaluator().stap = 0;  // would sample for ever
    EXPECT_EQ(errorOf([&] { w.evaluator().teken_spline(); }), kErrOverflow);
    w.setRandomCurve(rng, 4, 2);  // fewer points than the order: only the closing piece is tried
    EXPECT_EQ(errorOf([&] { w.evaluator().teken_spline(); }), kErrSubscript);
}

}  // namespace
}  // namespace zw
