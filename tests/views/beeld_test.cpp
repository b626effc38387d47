#include "views/beeld.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <tuple>
#include <vector>

#include "headless_window.h"

namespace zw {
namespace {

// A cubic of six points has ten knots and three segments: one polygon through their twelve
// Bezier points, each joined to the one before and dotted, the first dot last. Each segment's
// first and last points are the curve's points at its knots. Too few knots draw nothing.
TEST(Beeld, BezierNotationIsOnePolygonOfKPointsPerSegment) {
    std::mt19937 rng(11);
    HeadlessWindow w;
    w.setRandomCurve(rng, 4, 6);
    ASSERT_EQ(w.vec().knopenlengte, 10.0f);
    w.Bezierkleur = rgb(7, 8, 9);
    w.ControleStraal = 45;
    Beeld(w).bereken_bezier_notatie();

    const std::vector<DrawRecord>& log = w.Doek().log();
    ASSERT_EQ(log.size(), 11u + 12u);
    std::vector<DrawRecord> dots = {log.back()};
    for (std::size_t i = 1; i < 12; ++i) {
        dots.push_back(log[2 * i - 1]);
        const DrawRecord& leg = log[2 * i - 2];
        EXPECT_EQ(std::make_tuple(leg.kind, leg.x1, leg.y1, leg.x2, leg.y2, leg.colour),
                  std::make_tuple(DrawKind::kLine, dots[i].x1, dots[i].y1, dots[i - 1].x1,
                                  dots[i - 1].y1, w.Bezierkleur));
    }
    for (const DrawRecord& d : dots) {
        EXPECT_EQ(std::make_tuple(d.kind, d.radius, d.colour, d.fillColour),
                  std::make_tuple(DrawKind::kCircle, 45.0, w.Bezierkleur, w.Bezierkleur));
    }
    for (int seg = 0; seg < 3; ++seg) {
        for (const auto& [j, knot] : {std::pair{0, 3 + seg}, std::pair{3, 4 + seg}}) {
            const Punt p = w.drawnPoint(w.knots()[knot]);  // rounded to whole units
            EXPECT_NEAR(dots[4 * seg + j].x1, p.X, 0.5) << seg << " " << j;
            EXPECT_NEAR(dots[4 * seg + j].y1, p.Y, 0.5) << seg << " " << j;
        }
    }

    for (const int points : {2, 1}) {  // no segment, and a negative number of them
        w.setRandomCurve(rng, 4, points);
        w.Doek().cls();
        EXPECT_EQ(errorOf([&] { Beeld(w).bereken_bezier_notatie(); }), 0);
        EXPECT_TRUE(w.Doek().log().empty());
    }
}

// A cubic of seven points (G = 6), knots -3 .. 7, four segments over 0 .. 4. Point i acts on the
// segments i - 3 .. i (counted from 0), clamped at 0 below and at the count above; a parameter in
// the last segment, or at the range's end, which lies in none, marks points 3 .. 6.
TEST(Beeld, ColouringsRedrawTheirRunAndMarkThePoints) {
    std::mt19937 rng(13);
    HeadlessWindow w;
    w.setRandomCurve(rng, 4, 7);
    w.segmentkleur = rgb(4, 5, 6);
    w.ControleStraal = 30;
    Beeld be(w);
    using View = std::function<void()>;
    const std::tuple<View, float, float, std::vector<float>> cases[] = {
        {[&] { be.kleur_segmenten(0); }, 0, 1, {0}},
        {[&] { be.kleur_segmenten(6); }, 3, 4, {6}},
        {[&] { be.kleur_segmenten(3); }, 0, 4, {3}},
        {[&] { be.kleur_controlepunten(3.5f); }, 3, 4, {3, 4, 5, 6}},
        {[&] { be.kleur_controlepunten(4.0f); }, 3, 4, {3, 4, 5, 6}},
        {[&] { be.kleur_controlepunten(0.0f); }, 0, 1, {0, 1, 2, 3}},
    };
    for (const auto& [view, begin, end, marked] : cases) {
        SCOPED_TRACE(testing::Message() << begin << " .. " << end);
        w.Doek().cls();
        w.evaluator().teken_spline_in_kleur(begin, end);
        const std::vector<DrawRecord> run = w.Doek().log();
        w.Doek().cls();
        view();
        const std::vector<DrawRecord>& log = w.Doek().log();
        ASSERT_EQ(log.size(), run.size() + marked.size());
        for (std::size_t i = 0; i < run.size(); ++i) {
            EXPECT_EQ(fieldsOf(log[i]), fieldsOf(run[i])) << i;
        }
        for (std::size_t m = 0; m < marked.size(); ++m) {
            const DrawRecord& d = log[run.size() + m];
            const Punt& p = w.polygoon().punten(marked[m]);
            EXPECT_EQ(
                std::make_tuple(d.kind, d.x1, d.y1, d.radius, d.colour, d.fillColour),
                std::make_tuple(DrawKind::kCircle, p.X, p.Y, 30.0, w.segmentkleur, w.segmentkleur));
        }
    }
}

}  // namespace
}  // namespace zw
