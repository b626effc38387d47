// The overlays over the canvas and the panes (Surface::overlay): the construction, the numbers
// and what the pointer lights up, drawn again together whenever one of them changes, over the
// pictures the editor keeps below.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/surface.h"
#include "platform/werk.h"
#include "views/knoopclusters.h"
#include "weights/gewichten_form.h"
#include "window/constructie_beeld.h"
#include "window/verbanden.h"
#include "window/zwierlijn.h"

namespace zw {

namespace {

constexpr double kNummerPunten = 8.0;
// A label's width in pixels, roughly, at that size: enough to keep labels apart.
constexpr double kTekenBreedte = 6.5;
constexpr double kTussenruimte = 6.0;

}  // namespace

void Zwierlijn::tekenLagen() {
    const bool iets = constructie_->aan() || nummers || verbanden_->aan();
    for (Surface* s : {&doek_, &meng_, &knopen_}) {
        if (iets || s->overlayIfAny() != nullptr) {
            s->overlay().cls();
        }
    }
    if (gewichten_ && (iets || gewichten_->Doek().overlayIfAny() != nullptr)) {
        gewichten_->Doek().overlay().cls();
    }
    if (!polygon_ || !vec_) {
        return;
    }
    constructie_->teken();
    if (nummers) {
        tekenNummers();
    }
    verbanden_->teken();
}

// Every control point's number beside it; under each knot cluster its value and multiplicity,
// above each interior one the continuity there. Where labels would meet, every second (or third,
// ...) is written.
void Zwierlijn::tekenNummers() {
    const std::optional<ConstructieKromme> k = constructie_->kromme();
    Surface& doek = doek_.overlay();
    const double straal = std::max(ControleStraal, 30);
    const float n = polygon_->graad;
    werk(static_cast<std::uint64_t>(std::max(0.0f, n + 1.0f)) * 100);
    for (float i = 0.0f; i <= n && i <= 1e7f; i += 1.0f) {
        const Punt p = polygon_->punten(i);
        doek.text(p.X + straal * 1.5, p.Y - straal * 1.5, std::to_string(static_cast<long>(i)),
                  lijnkleur, kNummerPunten);
    }
    if (!k || !knopen_zichtbaar || knopen_.pixelWidth() <= 0) {
        return;
    }
    const std::vector<KnoopCluster> clusters = knoopclusters(k->knopen, k->orde);
    std::vector<std::string> onder;
    std::vector<double> x;
    for (const KnoopCluster& c : clusters) {
        onder.push_back(cluster_tekst(c));
        x.push_back(knopen_.mapper().toPixelX(vec_->paneelX(c.waarde)));
    }
    // The smallest stride at which no two written labels meet.
    std::size_t stap = 1;
    const auto breedte = [&](std::size_t i) { return onder[i].size() * kTekenBreedte; };
    for (bool past = false; !past && stap < clusters.size(); ) {
        past = true;
        for (std::size_t i = stap; i < clusters.size() && past; i += stap) {
            past = x[i] - x[i - stap] >= (breedte(i) + breedte(i - stap)) / 2 + kTussenruimte;
        }
        stap += past ? 0 : 1;
    }
    Surface& laag = knopen_.overlay();
    for (std::size_t i = 0; i < clusters.size(); i += stap) {
        const double ux = vec_->paneelX(clusters[i].waarde);
        laag.text(ux, hoogte * 1.3, onder[i], kBlack, kNummerPunten, TextAnchor::kCentre);
        if (clusters[i].inwendig) {
            laag.text(ux, hoogte * 0.55, continuiteit_tekst(clusters[i].continuiteit), kBlack,
                      kNummerPunten, TextAnchor::kCentre);
        }
    }
}

}  // namespace zw
