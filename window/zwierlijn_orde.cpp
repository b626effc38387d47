// Choosing the order of a drawn polygon, and raising the degree without changing the curve:
// both edit the curve, so each records one version, as the knot vector's commands do.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "spline/graadverhoging.h"
#include "storage/opslag.h"
#include "views/constructie.h"
#include "weights/gewichten_form.h"
#include "window/constructie_beeld.h"
#include "window/zwierlijn.h"

namespace zw {

namespace {

constexpr int kHoogsteOrde = 16;

}  // namespace

// The order the curve has (else 4, or the points' number), and its form (else uniform).
void Zwierlijn::mntExtraOrdeKiezen_Click() {
    const float n = polygon_->graad;
    if (!(n >= 1.0f && n <= 1e7f)) {
        return;
    }
    const int punten = static_cast<int>(n) + 1;
    const int hoogste = std::min(punten, kHoogsteOrde);
    const bool kromme = constructie_->kromme().has_value();
    KeuzeVraag vraag;
    vraag.title = "Orde kiezen";
    vraag.getalLabel = "Orde k";
    vraag.minimum = 2;
    vraag.maximum = hoogste;
    vraag.getal = std::clamp(kromme ? static_cast<int>(polygon_->orde) : 4, 2, hoogste);
    vraag.keuzeLabel = "Knopen";
    vraag.keuzes = {"uniform", "open uniform"};
    vraag.keuze = kromme && knopenvorm() == "open uniform" ? 1 : 0;
    const std::optional<Keuze> keuze = dialogs_.kies(vraag);
    if (keuze && keuze->getal >= 2 && keuze->getal <= hoogste) {
        zetOrde(keuze->getal, keuze->keuze == 1);
    }
}

// The polygon as it is, order k, a knot vector of n + k + 1 knots in the chosen form made as
// ZetOrde makes its own; points added later lengthen it as they do after ZetOrde.
void Zwierlijn::zetOrde(int k, bool openUniform) {
    const auto orde = static_cast<float>(k);
    const float graad = polygon_->graad;
    vectorlengte = toSingle(doek_.scaleWidth() - breedtestap);
    polygon_->orde_gezet = true;
    polygon_->orde = orde;
    vec_->dimensioneer_knopenvector(addSingle(addSingle(graad, orde), 1.0f));
    vec_->zet_knoop(addSingle(orde, -1.0f), 0.0);
    vec_->zet_knoop(addSingle(graad, 1.0f), addSingle(addSingle(graad, -orde), 2.0f));
    if (openUniform) {
        vec_->zet_open_uniform();
    } else {
        vec_->zet_uniform();
    }
    plaats_knopenvenster();
    doek_.refresh();
    ops_->save();
}

// Order k to k + 1, the same curve over the same range: the new knots and points from the
// blossoms of the old curve (spline/graadverhoging.h).
void Zwierlijn::mntExtraGraadVerhogen_Click() {
    const std::optional<ConstructieKromme> k = constructie_->kromme();
    if (!k || k->orde >= kHoogsteOrde) {
        return;
    }
    const std::optional<Verhoogd> v = verhoog_graad(k->knopen, k->punten, k->gewichten, k->orde);
    if (!v) {
        return;
    }
    const auto punten = static_cast<float>(v->punten.size());
    gewichten().dimensioneer_gewichten(punten);
    polygon_->dimensioneer_punten(punten);
    for (std::size_t i = 0; i < v->punten.size(); ++i) {
        polygon_->zet_punt(static_cast<float>(i), v->punten[i]);
        if (i < v->gewichten.size()) {
            gewichten().zet_gewichten(static_cast<float>(i), v->gewichten[i]);
        }
    }
    polygon_->orde = static_cast<float>(v->orde);
    polygon_->orde_gezet = true;
    vec_->dimensioneer_knopenvector(static_cast<float>(v->knopen.size()));
    for (std::size_t i = 0; i < v->knopen.size(); ++i) {
        vec_->zet_knoop(static_cast<float>(i), v->knopen[i]);
    }
    gewichten().zoek_grootste_gewicht();
    plaats_knopenvenster();
    doek_.refresh();
    ops_->save();
}

}  // namespace zw
