// The editor's Extra menu beyond the classic one: the construction, the links, numbers and
// status line, the chosen order and the raised degree.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "geometry/coordinaten.h"
#include "headless_window.h"
#include "knots/knoop_vector.h"
#include "platform/draw_log.h"
#include "platform/surface.h"
#include "storage/opslag.h"
#include "views/constructie.h"
#include "window/constructie_beeld.h"
#include "window/editor_fixture.h"

namespace zw {
namespace {

// The construction: enabled with a curve, on in the middle of the range with every level, drawn
// on the canvas' overlay (rings, discs and legs of the levels, the curve point, labels);
// "Invoegen" makes level 1 the polygon in one version; the blending pane's left button moves t;
// Undo to before ZetOrde turns it off without an error.
TEST(HeadlessEditor, TheConstructionIsDrawnOverTheCanvasAndInsertsItsParameter) {
    Editor e;
    HeadlessEditor& w = e.w;
    for (int i = 0; i < 7; ++i) {
        w.Doek_MouseDown(1, 0, 1000.0f + 1200.0f * i, i % 2 == 0 ? 2000.0f : 6000.0f);
    }
    EXPECT_FALSE(w.menus().aan("mntExtraConstructie"));
    w.klik("mntBewerkenKnopenZetOrde");
    w.klik("mntBewerkenKnopenZetuniform");
    w.klik("mntExtraConstructie");
    ConstructieBeeld& c = w.constructie();
    ASSERT_TRUE(c.aan() && w.menus().vinkje("mntExtraConstructie"));
    EXPECT_EQ(std::make_pair(c.t(), c.niveau()), std::make_pair(0.5, 6));
    Surface& laag = w.Doek().overlay();
    laag.setLogging(true);
    c.zetLabels(true);
    const auto aantal = [&](DrawKind soort) {
        return std::count_if(laag.log().begin(), laag.log().end(),
                             [&](const DrawRecord& r) { return r.kind == soort; });
    };
    EXPECT_EQ(std::make_tuple(aantal(DrawKind::kCircle), aantal(DrawKind::kLine),
                              aantal(DrawKind::kText)),
              std::make_tuple(7 + 28 + 1, 21, 28));
    const std::optional<Constructie> voor = bouw_constructie(kromme_van(w), c.t());
    const float versie = w.ops().versie;
    c.invoegen();
    EXPECT_EQ(w.ops().versie, versie + 1);
    ASSERT_EQ(w.polygoon().graad, 7.0f);
    for (int j = 0; j < 6; ++j) {
        const Punt p = w.polygoon().punten(static_cast<float>(voor->eersteIndex + 1 + j));
        EXPECT_NEAR(p.X, voor->niveaus[1].punten[j].X, 1.0f);
        EXPECT_NEAR(p.Y, voor->niveaus[1].punten[j].Y, 1.0f);
    }
    w.klik("mntBeeldMengFuncties");
    Surface& mengLaag = w.meng().overlay();
    mengLaag.setLogging(true);
    c.zetT(c.t());
    double procenten = 0.0;
    for (const DrawRecord& r : mengLaag.log()) {
        procenten += r.kind == DrawKind::kText ? std::stod(r.text) : 0.0;
    }
    EXPECT_NEAR(procenten, 100.0, 0.01);  // the rational basis functions at t, in percent
    w.meng().deliverMouseDown(1, 0, 1, w.meng().pixelHeight() / 2.0);
    EXPECT_EQ(c.t(), c.bereik()->begin);
    w.klik("mntBeeldMengFuncties");  // the pane of no curve is the editor's own error 9
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(errorOf([&] { w.klik("mntBewerkenUndo"); }), 0);
    }
    EXPECT_FALSE(c.aan() || w.menus().vinkje("mntExtraConstructie"));
}

// The links: off, a resting pointer does nothing; on, control point 3 lights its basis function,
// its tick and its segments, a double knot (one dragged onto its neighbour) its two segments and
// a tooltip; the pointer leaving clears all. The numbers write the knots' values and the
// continuity; the status line follows the curve and the mode of a click.
TEST(HeadlessEditor, TheLinksNumbersAndStatusFollowThePointerAndTheCurve) {
    Editor e;
    HeadlessEditor& w = e.w;
    const float punten[7][2] = {{1500, 7000}, {3000, 2000}, {5000, 7500}, {7000, 1500},
                                {9000, 7000}, {10000, 2500}, {11500, 7500}};
    for (int i = 0; i < 7; ++i) {
        w.Doek_MouseDown(1, 0, punten[i][0], punten[i][1]);
        if (i == 3) {
            w.klik("mntBewerkenKnopenZetOrde");
        }
    }
    w.klik("mntBeeldKnopenVector");
    w.klik("mntBeeldMengFuncties");
    EXPECT_EQ(w.waarBenIk(), "orde 4 · 7 punten · 4 segmenten · uniform");
    std::vector<Surface*> lagen{&w.Doek().overlay(), &w.meng().overlay(), &w.Knopen().overlay()};
    for (Surface* s : lagen) {
        s->setLogging(true);
    }
    const auto soorten = [&](Surface* s, DrawKind soort) {
        return std::count_if(s->log().begin(), s->log().end(),
                             [&](const DrawRecord& r) { return r.kind == soort; });
    };
    const ScaleMapper& m = w.Doek().mapper();
    const auto rust = [&](Surface& s, double x, double y) {
        s.deliverMouseMove(0, 0, s.mapper().toPixelX(x), s.mapper().toPixelY(y));
    };
    rust(w.Doek(), punten[3][0], punten[3][1]);
    EXPECT_TRUE(lagen[0]->log().empty());
    w.klik("mntExtraVerbanden");
    rust(w.Doek(), punten[3][0] + 3 * (m.toScaleX(1) - m.toScaleX(0)), punten[3][1]);
    EXPECT_GT(soorten(lagen[1], DrawKind::kLine), 20);  // its basis function, thick
    EXPECT_EQ(lagen[1]->log().front().drawWidth, 3);
    EXPECT_EQ(soorten(lagen[2], DrawKind::kLine), 1);  // its tick
    EXPECT_GT(soorten(lagen[0], DrawKind::kLine), 50);  // its segments, tinted
    w.Doek().deliverMouseLeave();
    EXPECT_TRUE(lagen[0]->log().empty() && lagen[1]->log().empty());

    // Knot 5 onto knot 4: value 1 twice, the curve C1 there.
    Surface& knopen = w.Knopen();
    w.Knopen_MouseDown(2, 0, static_cast<float>(w.vec().paneelX(2)), w.hoogte);
    w.Knopen_MouseUp(2, 0, static_cast<float>(w.vec().paneelX(1)), w.hoogte);
    EXPECT_EQ(w.waarBenIk(), "orde 4 · 7 punten · 3 segmenten · vrij");  // one interval empty
    rust(knopen, w.vec().paneelX(1), w.hoogte);
    EXPECT_NE(w.tip.find("multipliciteit 2"), std::string::npos) << w.tip;
    EXPECT_NE(w.tip.find("C1"), std::string::npos) << w.tip;
    w.klik("mntExtraNummers");
    std::vector<std::string> teksten;
    for (const DrawRecord& r : lagen[2]->log()) {
        if (r.kind == DrawKind::kText) {
            teksten.push_back(r.text);
        }
    }
    EXPECT_NE(std::find(teksten.begin(), teksten.end(), "2x 1"), teksten.end());
    EXPECT_EQ(std::count(teksten.begin(), teksten.end(), "C1"), 1);
    w.Tb_ButtonClick("Spline");
    EXPECT_NE(w.waarBenIk().find("· Spline Punt"), std::string::npos);
}

// Eight points, "Orde kiezen..." 4 with open-uniform knots: a clamped cubic of five segments in
// one version; "Graad verhogen": a quartic of 13 points whose curve is the cubic's within half a
// unit; Undo twice: the eight points without a curve.
TEST(HeadlessEditor, AChosenOrderAndARaisedDegreeKeepThePolygonAndTheCurve) {
    Editor e;
    HeadlessEditor& w = e.w;
    for (int i = 0; i < 8; ++i) {
        w.Doek_MouseDown(1, 0, 1000.0f + 1300.0f * i, i % 2 == 0 ? 2000.0f : 7000.0f);
    }
    const float versie = w.ops().versie;
    e.dialogs.queueKeuze(Keuze{4, 1});
    w.klik("mntExtraOrdeKiezen");
    EXPECT_EQ(w.waarBenIk(), "orde 4 · 8 punten · 5 segmenten · open uniform");
    EXPECT_EQ(w.ops().versie, versie + 1);
    const ConstructieKromme kubisch = *w.constructie().kromme();
    const Bereik bereik = *echt_bereik(kubisch);
    w.Doek().setLogging(true);
    w.klik("mntExtraGraadVerhogen");
    EXPECT_EQ(w.waarBenIk(), "orde 5 · 13 punten · 5 segmenten · vrij");
    for (const DrawRecord& r : recordsOf(w.Doek(), DrawKind::kLine, w.krommekleur)) {
        ASSERT_TRUE(std::max({r.x1, r.x2}) < 11000 && std::min({r.y1, r.y2}) > 1000 &&
                    std::max({r.y1, r.y2}) < 8000);  // drawn inside the polygon's box
    }
    const ConstructieKromme kwartisch = *w.constructie().kromme();
    EXPECT_EQ(echt_bereik(kwartisch)->begin, bereik.begin);
    EXPECT_EQ(echt_bereik(kwartisch)->eind, bereik.eind);
    for (int i = 0; i <= 200; ++i) {
        const double t = bereik.begin + (bereik.eind - bereik.begin) * i / 200;
        const Punt a = bouw_constructie(kubisch, t)->krommepunt;
        const Punt b = bouw_constructie(kwartisch, t)->krommepunt;
        ASSERT_LE(std::hypot(a.X - b.X, a.Y - b.Y), 0.5) << t;
    }
    w.klik("mntBewerkenUndo");
    w.klik("mntBewerkenUndo");
    EXPECT_EQ(w.waarBenIk(), "geen orde · 8 punten");
}

}  // namespace
}  // namespace zw
