#include <gtest/gtest.h>

#include <random>
#include <tuple>
#include <vector>

#include "headless_window.h"

namespace zw {
namespace {

using Vertex = std::pair<double, double>;

std::vector<DrawRecord> recordsOf(const Surface& surface, DrawKind kind) {
    std::vector<DrawRecord> records;
    for (const DrawRecord& r : surface.log()) {
        if (r.kind == kind) {
            records.push_back(r);
        }
    }
    return records;
}

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

TEST(TekenSpline, BlendingValuesOfEverySampleAddUpTo100) {
    std::mt19937 rng(3);
    HeadlessWindow w;
    w.setRandomCurve(rng, 3, 5);
    w.gewichten().zet_gewichten(2, 5.0);  // the rational denominator must normalise it away
    w.mengstat = true;
    BlossomFunctie& f = w.evaluator();
    f.mengwaarden.redim(4);
    f.vorige_mengwaarden.redim(4);
    f.vorige_mengx = -5;
    f.teken_spline();

    // Per sample one line per control point, continuing the line of the sample before.
    const std::vector<DrawRecord>& log = w.meng().log();
    std::size_t at = 0;
    for (int s = 0; s < w.segments(); ++s) {
        for (double t = w.knots()[2 + s]; t < w.knots()[3 + s]; t += f.stap, at += 5) {
            ASSERT_LE(at + 5, log.size());
            const auto x = static_cast<float>((t + 2) / 7 * 1000000);  // knots -2 .. 5
            double sum = 0.0;
            for (std::size_t i = 0; i < 5; ++i) {
                const DrawRecord& r = log[at + i];
                EXPECT_EQ(std::make_tuple(r.x1, r.y1, r.x2, r.colour),
                          std::make_tuple(at ? log[at - 5 + i].x2 : -5.0,
                                          at ? log[at - 5 + i].y2 : 0.0, x, w.kleur(i)));
                sum += i >= static_cast<std::size_t>(s) && i < s + 3u ? r.y2 : 0.0;
            }
            EXPECT_NEAR(sum, 100.0, 1e-4) << t;
        }
    }
    EXPECT_EQ(log.size(), at);
    EXPECT_EQ(std::make_pair(f.mengx, f.vorige_mengx),
              std::make_pair(static_cast<float>(log.back().x2), f.mengx));
}

// Nothing in the editor draws a coloured run yet; what sets it apart from teken_spline stays
// checked: the plain step even for order 2, the canvas width, no blending functions, and the close
// on knot k + 1 blended from points 3 on.
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
}

TEST(TekenSpline, FaultsRaiseRunTimeErrors) {
    std::mt19937 rng(9);
    HeadlessWindow w;
    w.setRandomCurve(rng, 4, 5);
    w.Doek().setDrawWidth(11000);  // cannot be tripled in an Integer
    EXPECT_EQ(errorOf([&] { w.evaluator().teken_spline(); }), kErrOverflow);
    w.Doek().setDrawWidth(1);
    w.evaluator().stap = 0;  // would sample for ever
    EXPECT_EQ(errorOf([&] { w.evaluator().teken_spline(); }), kErrOverflow);
    w.setRandomCurve(rng, 4, 2);  // fewer points than the order: only the closing piece is tried
    EXPECT_EQ(errorOf([&] { w.evaluator().teken_spline(); }), kErrSubscript);
}

}  // namespace
}  // namespace zw
