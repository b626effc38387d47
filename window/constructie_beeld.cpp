#include "window/constructie_beeld.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "knots/knoop_vector.h"
#include "platform/draw_log.h"
#include "platform/surface.h"
#include "platform/werk.h"
#include "spline/blossom_functie.h"
#include "storage/opslag.h"
#include "window/zwierlijn.h"

namespace zw {

namespace {

// The levels' colours: the view's own, not settings, so that a lecture's pictures look alike.
constexpr Colour kNiveaukleuren[] = {rgb(90, 90, 90),  rgb(0, 130, 200), rgb(0, 160, 80),
                                     rgb(220, 120, 0), rgb(200, 0, 120), rgb(110, 60, 200),
                                     rgb(0, 150, 150), rgb(160, 110, 0)};
constexpr Colour kPuntkleur = rgb(220, 0, 0);
constexpr Colour kRaakkleur = rgb(220, 0, 0);
constexpr double kLabelPunten = 8.0;
// The blending pane's scale, as the pane draws itself (window/zwierlijn_meng.cpp).
constexpr double kMengBreedte = 1000000.0;

Colour niveaukleur(std::size_t r) {
    return kNiveaukleuren[r % (sizeof kNiveaukleuren / sizeof kNiveaukleuren[0])];
}

}  // namespace

// The curve as the construction reads it, or nothing while the polygon has no curve: an order
// and as many knots as points and order together (between ZetOrde's versions and before it, the
// knot vector and the polygon need not agree).
std::optional<ConstructieKromme> ConstructieBeeld::kromme() const {
    // A file may hold any order and count: only those that can be whole numbers are read.
    constexpr double kGrens = 1e8;
    const double orde = venster_.polygoon().orde, punten = venster_.polygoon().graad + 1.0;
    if (!(orde >= 1.0 && orde <= kGrens && punten >= orde && punten <= kGrens) ||
        static_cast<double>(venster_.vec().knopenlengte) != punten + orde) {
        return std::nullopt;
    }
    return kromme_van(venster_);
}

std::optional<Bereik> ConstructieBeeld::bereik() const {
    const std::optional<ConstructieKromme> k = kromme();
    return k ? echt_bereik(*k) : std::nullopt;
}

std::string ConstructieBeeld::naam() const {
    const std::optional<ConstructieKromme> k = kromme();
    return k ? algoritme_naam(*k) : std::string();
}

int ConstructieBeeld::segment() const {
    const std::optional<ConstructieKromme> k = kromme();
    const std::optional<Constructie> c = k ? bouw_constructie(*k, t_) : std::nullopt;
    return c ? c->segment : 0;
}

int ConstructieBeeld::hoogsteNiveau() const {
    const double orde = venster_.polygoon().orde;
    return orde >= 1.0 && orde <= 1e8 ? static_cast<int>(orde) - 1 : 0;
}

void ConstructieBeeld::zetAan(bool aan) {
    const std::optional<Bereik> b = aan ? bereik() : std::nullopt;
    aan_ = b.has_value();
    if (aan_) {
        t_ = (b->begin + b->eind) / 2;
        niveau_ = hoogsteNiveau();
    }
    venster_.tekenLagen();
}

void ConstructieBeeld::zetT(double t) {
    if (const std::optional<Bereik> b = bereik()) {
        t_ = b->klem(t);
        venster_.tekenLagen();
    }
}

void ConstructieBeeld::stap(int richting) {
    if (const std::optional<Bereik> b = bereik()) {
        zetT(t_ + richting * (b->eind - b->begin) / 100);
    }
}

void ConstructieBeeld::zetNiveau(int niveau) {
    niveau_ = std::clamp(niveau, 0, hoogsteNiveau());
    venster_.tekenLagen();
}

void ConstructieBeeld::zetLabels(bool aan) {
    labels_ = aan;
    venster_.tekenLagen();
}

void ConstructieBeeld::zetRaaklijn(bool aan) {
    raaklijn_ = aan;
    venster_.tekenLagen();
}

void ConstructieBeeld::volg() {
    if (!aan_) {
        return;
    }
    const std::optional<Bereik> b = bereik();
    if (!b) {
        aan_ = false;
        return;
    }
    t_ = b->klem(t_);
    niveau_ = std::clamp(niveau_, 0, hoogsteNiveau());
}

void ConstructieBeeld::invoegen() {
    if (!aan_ || !bereik()) {
        return;
    }
    venster_.evaluator().maak_spline(t_);
    venster_.ops().save();
    venster_.Doek().refresh();
    venster_.plaats_knopenvenster();
}

void ConstructieBeeld::zetTUitMeng(float x) {
    const std::optional<ConstructieKromme> kromme = this->kromme();
    if (!kromme || kromme->knopen.size() < 2) {
        return;
    }
    const double eerste = kromme->knopen.front(), laatste = kromme->knopen.back();
    zetT(eerste + (laatste - eerste) * static_cast<double>(x) / kMengBreedte);
}

void ConstructieBeeld::teken() {
    if (!aan_) {
        return;
    }
    const std::optional<ConstructieKromme> kromme = this->kromme();
    const std::optional<Constructie> c = kromme ? bouw_constructie(*kromme, t_) : std::nullopt;
    if (!c) {
        return;
    }
    tekenDoek(*c);
    if (venster_.mengstat) {
        tekenMeng(*kromme, *c);
    }
    if (venster_.knopen_zichtbaar) {
        tekenKnopen(*kromme);
    }
}

// The segment's control points ringed, the levels up to the one shown, the curve point larger.
void ConstructieBeeld::tekenDoek(const Constructie& c) {
    Surface& doek = venster_.Doek().overlay();
    const double straal = std::max(venster_.ControleStraal, 30);
    doek.setFillStyle(kFillTransparent);
    doek.setDrawWidth(2);
    for (const Punt& p : c.niveaus.front().punten) {
        doek.circle(p.X, p.Y, straal * 2.2, niveaukleur(0));
    }
    doek.setDrawWidth(1);
    tekenNiveaus(c);
    if (raaklijn_ && c.heeftRaaklijn) {
        tekenRaaklijn(c);
    }
    if (static_cast<std::size_t>(niveau_) + 1 == c.niveaus.size()) {
        doek.setFillStyle(kFillSolid);
        doek.setFillColour(kPuntkleur);
        doek.circle(c.krommepunt.X, c.krommepunt.Y, straal * 1.6, kPuntkleur);
    }
    doek.setFillStyle(kFillTransparent);
}

void ConstructieBeeld::tekenNiveaus(const Constructie& c) {
    Surface& doek = venster_.Doek().overlay();
    const double straal = std::max(venster_.ControleStraal, 30);
    const std::size_t tot = std::min(c.niveaus.size(), static_cast<std::size_t>(niveau_) + 1);
    for (std::size_t r = 0; r < tot; ++r) {
        const ConstructieNiveau& n = c.niveaus[r];
        const Colour kleur = niveaukleur(r);
        for (std::size_t j = 1; j < n.punten.size(); ++j) {
            doek.line(n.punten[j - 1].X, n.punten[j - 1].Y, n.punten[j].X, n.punten[j].Y, kleur);
        }
        doek.setFillStyle(kFillSolid);
        doek.setFillColour(kleur);
        for (std::size_t j = 0; j < n.punten.size(); ++j) {
            doek.circle(n.punten[j].X, n.punten[j].Y, straal * 0.8, kleur);
            if (labels_ && j < n.labels.size()) {
                doek.text(n.punten[j].X + straal * 2.5, n.punten[j].Y, n.labels[j], kleur,
                          kLabelPunten);
            }
        }
        doek.setFillStyle(kFillTransparent);
    }
}

// The line through the last level but one's two points, drawn as far again beyond each.
void ConstructieBeeld::tekenRaaklijn(const Constructie& c) {
    Surface& doek = venster_.Doek().overlay();
    const double dx = static_cast<double>(c.raakB.X) - c.raakA.X;
    const double dy = static_cast<double>(c.raakB.Y) - c.raakA.Y;
    doek.line(c.raakA.X - dx, c.raakA.Y - dy, c.raakB.X + dx, c.raakB.Y + dy, kRaakkleur);
}

// A line at t up the pane, and on every basis function of t's segment a dot at its value.
void ConstructieBeeld::tekenMeng(const ConstructieKromme& kromme, const Constructie& c) {
    if (kromme.knopen.size() < 2 || !(kromme.knopen.back() > kromme.knopen.front())) {
        return;
    }
    Surface& meng = venster_.meng().overlay();
    const double x = (t_ - kromme.knopen.front()) / (kromme.knopen.back() - kromme.knopen.front()) *
                     kMengBreedte;
    meng.line(x, 0, x, 100, kPuntkleur);
    const std::vector<double> waarden = basiswaarden(kromme, c.eersteIndex, t_);
    // Three pixels, in the pane's horizontal units.
    const double straal = 3 * std::fabs(meng.scaleWidth()) / std::max(1, meng.pixelWidth());
    meng.setFillStyle(kFillSolid);
    for (std::size_t j = 0; j < waarden.size(); ++j) {
        const Colour kleur = venster_.kleur(c.eersteIndex + static_cast<double>(j));
        meng.setFillColour(kleur);
        meng.circle(x, waarden[j] * 100, straal, kleur);
        if (labels_) {
            meng.text(x + kMengBreedte / 60, waarden[j] * 100, kort_getal(waarden[j] * 100),
                      kleur, kLabelPunten - 1);
        }
    }
    meng.setFillStyle(kFillTransparent);
}

// A marker at t under the knot pane's number line.
void ConstructieBeeld::tekenKnopen(const ConstructieKromme& kromme) {
    if (kromme.knopen.size() < 2 || !(kromme.knopen.back() > kromme.knopen.front())) {
        return;
    }
    Surface& knopen = venster_.Knopen().overlay();
    const double x = venster_.vec().paneelX(t_);
    const double h = venster_.hoogte;
    knopen.setDrawWidth(2);
    knopen.line(x, h * 1.15, x, h * 1.6, kPuntkleur);
    knopen.setDrawWidth(1);
}

}  // namespace zw
