#include "window/verbanden.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/draw_log.h"
#include "platform/surface.h"
#include "platform/werk.h"
#include "views/knoopclusters.h"
#include "weights/gewichten_form.h"
#include "window/constructie_beeld.h"
#include "window/zwierlijn.h"

namespace zw {

namespace {

// How near the pointer must be, in pixels.
constexpr double kBijna = 8.0;
constexpr Colour kTint = rgb(255, 205, 120);
constexpr Colour kMerk = rgb(230, 90, 0);
constexpr double kMengBreedte = 1000000.0;
constexpr int kStappen = 24;

double pixelAfstand(const Surface& s, double x1, double y1, double x2, double y2) {
    const ScaleMapper& m = s.mapper();
    return std::hypot(m.toPixelX(x1) - m.toPixelX(x2), m.toPixelY(y1) - m.toPixelY(y2));
}

int orde(const ConstructieKromme& k) {
    return k.orde;
}
int knopen(const ConstructieKromme& k) {
    return static_cast<int>(k.knopen.size());
}

// The curve's point at t of span l (knot l <= t <= knot l + 1).
Punt krommepunt(const ConstructieKromme& k, int l, double t) {
    const int eerste = l - orde(k) + 1;
    const std::vector<double> b = basiswaarden(k, eerste, t);
    double x = 0.0, y = 0.0;
    for (std::size_t j = 0; j < b.size(); ++j) {
        const Punt& p = k.punten[static_cast<std::size_t>(eerste) + j];
        x += b[j] * p.X;
        y += b[j] * p.Y;
    }
    return Punt(static_cast<float>(x), static_cast<float>(y));
}

double u(const ConstructieKromme& k, int i) {
    return k.knopen[static_cast<std::size_t>(std::clamp(i, 0, knopen(k) - 1))];
}

// Spans k - 1 .. L - k - 1 carry the curve.
bool echteSpan(const ConstructieKromme& k, int l) {
    return l >= orde(k) - 1 && l <= knopen(k) - orde(k) - 1 && u(k, l + 1) > u(k, l);
}

}  // namespace

std::optional<ConstructieKromme> Verbanden::kromme() const {
    return venster_.constructie().kromme();
}

void Verbanden::zetAan(bool aan) {
    aan_ = aan;
    keuze_ = Keuze{};
    venster_.tekenLagen();
}

void Verbanden::weg() {
    kies(Keuze{});
}

void Verbanden::kies(Keuze keuze) {
    if (!aan_ || keuze == keuze_) {
        return;
    }
    keuze_ = keuze;
    venster_.tekenLagen();
    const std::optional<ConstructieKromme> k = kromme();
    venster_.toonTip(keuze.soort == Soort::kKnoop && k ? tip(*k, keuze.index) : std::string());
}

// The nearest control point within reach, else the curve's nearest span.
void Verbanden::opDoek(float X, float Y) {
    const std::optional<ConstructieKromme> k = kromme();
    if (!aan_ || !k) {
        return;
    }
    const Surface& doek = venster_.Doek();
    const double bereik = std::max(kBijna, doek.mapper().widthToPixels(venster_.ControleStraal));
    Keuze beste;
    double dichtst = bereik;
    werk(k->punten.size() * 20);
    for (std::size_t i = 0; i < k->punten.size(); ++i) {
        const double d = pixelAfstand(doek, k->punten[i].X, k->punten[i].Y, X, Y);
        if (d <= dichtst) {
            dichtst = d;
            beste = {Soort::kPunt, static_cast<int>(i)};
        }
    }
    dichtst = kBijna;
    for (int l = orde(*k) - 1; beste.soort == Soort::kGeen && l < knopen(*k) - orde(*k); ++l) {
        if (!echteSpan(*k, l)) {
            continue;
        }
        werk(static_cast<std::uint64_t>(kStappen) * orde(*k) * orde(*k) * 4);
        for (int s = 0; s <= kStappen; ++s) {
            const Punt p = krommepunt(*k, l, u(*k, l) + (u(*k, l + 1) - u(*k, l)) * s / kStappen);
            const double d = pixelAfstand(doek, p.X, p.Y, X, Y);
            if (d <= dichtst) {
                dichtst = d;
                beste = {Soort::kSegment, l};
            }
        }
    }
    kies(beste);
}

// The basis function whose graph passes nearest, where it is above zero.
void Verbanden::opMeng(float X, float Y) {
    const std::optional<ConstructieKromme> k = kromme();
    if (!aan_ || !k || !(u(*k, knopen(*k) - 1) > u(*k, 0))) {
        return;
    }
    const double t = u(*k, 0) + (u(*k, knopen(*k) - 1) - u(*k, 0)) * X / kMengBreedte;
    int l = orde(*k) - 1;
    while (l < knopen(*k) - orde(*k) - 1 && u(*k, l + 1) <= t) {
        ++l;
    }
    const std::vector<double> b = basiswaarden(*k, l - orde(*k) + 1, t);
    Keuze beste;
    double dichtst = kBijna;
    for (std::size_t j = 0; j < b.size(); ++j) {
        const double d = pixelAfstand(venster_.meng(), X, b[j] * 100, X, Y);
        if (b[j] > 0.0 && d <= dichtst) {
            dichtst = d;
            beste = {Soort::kPunt, l - orde(*k) + 1 + static_cast<int>(j)};
        }
    }
    kies(beste);
}

// The cluster whose disc lies nearest.
void Verbanden::opKnopen(float X, float Y) {
    const std::optional<ConstructieKromme> k = kromme();
    if (!aan_ || !k) {
        return;
    }
    const std::vector<KnoopCluster> clusters = knoopclusters(k->knopen, k->orde);
    Keuze beste;
    double dichtst = kBijna;
    for (std::size_t c = 0; c < clusters.size(); ++c) {
        const double d = pixelAfstand(venster_.Knopen(), venster_.vec().paneelX(clusters[c].waarde),
                                      venster_.hoogte, X, Y);
        if (d <= dichtst) {
            dichtst = d;
            beste = {Soort::kKnoop, static_cast<int>(c)};
        }
    }
    kies(beste);
}

std::string Verbanden::tip(const ConstructieKromme& k, int cluster) const {
    const std::vector<KnoopCluster> clusters = knoopclusters(k.knopen, k.orde);
    if (cluster < 0 || static_cast<std::size_t>(cluster) >= clusters.size()) {
        return "";
    }
    const KnoopCluster& c = clusters[static_cast<std::size_t>(cluster)];
    std::ostringstream tekst;
    tekst << (c.eerste == c.laatste ? "Knoop " : "Knopen ") << c.eerste;
    if (c.laatste != c.eerste) {
        tekst << " tot en met " << c.laatste;
    }
    tekst << "\nwaarde " << kort_getal(c.waarde) << ", multipliciteit " << c.multipliciteit;
    if (c.inwendig) {
        tekst << "\ncontinuïteit " << continuiteit_tekst(c.continuiteit);
    } else {
        tekst << (c.reeel ? "\neinde van het bereik" : "\nvirtueel");
    }
    return tekst.str();
}

void Verbanden::teken() {
    const std::optional<ConstructieKromme> k = kromme();
    if (!aan_ || !k || keuze_.soort == Soort::kGeen) {
        return;
    }
    switch (keuze_.soort) {
        case Soort::kPunt:
            tekenPunt(*k, keuze_.index);
            break;
        case Soort::kSegment:
            tekenSegment(*k, keuze_.index);
            break;
        case Soort::kKnoop:
            tekenKnoop(*k, keuze_.index);
            break;
        case Soort::kGeen:
            break;
    }
}

// Its basis function, its handle, its tick and the segments it acts on: spans i .. i + k - 1.
void Verbanden::tekenPunt(const ConstructieKromme& k, int i) {
    if (i < 0 || static_cast<std::size_t>(i) >= k.punten.size()) {
        return;
    }
    for (int l = i; l < i + orde(k); ++l) {
        tint(k, l);
    }
    if (venster_.mengstat) {
        basisDik(k, i);
    }
    if (venster_.knopen_zichtbaar && orde(k) > 1) {
        double som = 0.0;
        for (int j = i + 1; j < i + orde(k); ++j) {
            som += u(k, j);
        }
        const double x = venster_.vec().paneelX(som / (orde(k) - 1));
        Surface& laag = venster_.Knopen().overlay();
        laag.setDrawWidth(3);
        laag.line(x, 0, x, venster_.hoogte * 0.7, kMerk);
        laag.setDrawWidth(1);
    }
    if (venster_.gewichtstat) {
        GewichtenForm& g = venster_.gewichten();
        const Punt h = g.gewicht_naar_punt(static_cast<float>(i));
        Surface& laag = g.Doek().overlay();
        laag.setDrawWidth(2);
        laag.circle(h.X, h.Y, g.Doek().mapper().widthToPixels(1) > 0
                                  ? 9.0 / g.Doek().mapper().widthToPixels(1)
                                  : 0.0,
                    kMerk);
        laag.setDrawWidth(1);
    }
}

// The segment's k control points ringed, its interval marked in both panes.
void Verbanden::tekenSegment(const ConstructieKromme& k, int l) {
    Surface& doek = venster_.Doek().overlay();
    const double straal = 2.5 * std::max(venster_.ControleStraal, 30);
    doek.setDrawWidth(2);
    doek.setFillStyle(kFillTransparent);
    for (int i = l - orde(k) + 1; i <= l; ++i) {
        if (i >= 0 && static_cast<std::size_t>(i) < k.punten.size()) {
            const Punt& p = k.punten[static_cast<std::size_t>(i)];
            doek.circle(p.X, p.Y, straal, kMerk);
        }
    }
    doek.setDrawWidth(1);
    tint(k, l);
    if (venster_.mengstat) {
        mengStreep(k, u(k, l));
        mengStreep(k, u(k, l + 1));
    }
    if (venster_.knopen_zichtbaar) {
        knopenStreep(k, u(k, l), u(k, l + 1));
    }
}

// The one or two segments the cluster bounds, its parameter in the blending pane.
void Verbanden::tekenKnoop(const ConstructieKromme& k, int cluster) {
    const std::vector<KnoopCluster> clusters = knoopclusters(k.knopen, k.orde);
    if (cluster < 0 || static_cast<std::size_t>(cluster) >= clusters.size()) {
        return;
    }
    const KnoopCluster& c = clusters[static_cast<std::size_t>(cluster)];
    tint(k, c.eerste - 1);
    tint(k, c.laatste);
    if (venster_.mengstat) {
        mengStreep(k, c.waarde);
    }
}

// A pale band under the curve of span l, and the curve again over it.
void Verbanden::tint(const ConstructieKromme& k, int l) {
    if (!echteSpan(k, l)) {
        return;
    }
    Surface& doek = venster_.Doek().overlay();
    werk(static_cast<std::uint64_t>(kStappen) * orde(k) * orde(k) * 8);
    for (const auto& [breedte, kleur] : {std::make_pair(11, kTint), std::make_pair(3, venster_.krommekleur)}) {
        doek.setDrawWidth(breedte);
        Punt vorig = krommepunt(k, l, u(k, l));
        for (int s = 1; s <= kStappen; ++s) {
            const Punt p = krommepunt(k, l, u(k, l) + (u(k, l + 1) - u(k, l)) * s / kStappen);
            doek.line(vorig.X, vorig.Y, p.X, p.Y, kleur);
            vorig = p;
        }
    }
    doek.setDrawWidth(1);
}

// Basis function i over its support, knots i .. i + k, thick in its colour.
void Verbanden::basisDik(const ConstructieKromme& k, int i) {
    Surface& meng = venster_.meng().overlay();
    const double eerste = u(k, 0), breed = u(k, knopen(k) - 1) - eerste;
    if (!(breed > 0.0)) {
        return;
    }
    meng.setDrawWidth(3);
    const Colour kleur = venster_.kleur(i);
    for (int l = std::max(i, 0); l < std::min(i + orde(k), knopen(k) - 1); ++l) {
        if (!(u(k, l + 1) > u(k, l)) || l - orde(k) + 1 < 0 ||
            l >= static_cast<int>(k.punten.size())) {
            continue;
        }
        werk(static_cast<std::uint64_t>(kStappen) * orde(k) * orde(k) * 4);
        double vx = 0.0, vy = 0.0;
        for (int s = 0; s <= kStappen; ++s) {
            const double t = u(k, l) + (u(k, l + 1) - u(k, l)) * s / kStappen;
            const std::vector<double> b = basiswaarden(k, l - orde(k) + 1, t);
            const double x = (t - eerste) / breed * kMengBreedte;
            const double y = b[static_cast<std::size_t>(i - (l - orde(k) + 1))] * 100;
            if (s > 0) {
                meng.line(vx, vy, x, y, kleur);
            }
            vx = x;
            vy = y;
        }
    }
    meng.setDrawWidth(1);
}

void Verbanden::mengStreep(const ConstructieKromme& k, double waarde) {
    const double eerste = u(k, 0), breed = u(k, knopen(k) - 1) - eerste;
    if (breed > 0.0) {
        const double x = (waarde - eerste) / breed * kMengBreedte;
        Surface& meng = venster_.meng().overlay();
        meng.setDrawWidth(2);
        meng.line(x, 0, x, 100, kMerk);
        meng.setDrawWidth(1);
    }
}

void Verbanden::knopenStreep(const ConstructieKromme&, double van, double tot) {
    Surface& laag = venster_.Knopen().overlay();
    laag.setDrawWidth(6);
    laag.line(venster_.vec().paneelX(van), venster_.hoogte, venster_.vec().paneelX(tot), venster_.hoogte,
              kMerk);
    laag.setDrawWidth(1);
}

}  // namespace zw
