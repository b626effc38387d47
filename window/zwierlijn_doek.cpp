// The canvas and the knot pane: mouse handling and the canvas' redraw.
#include "window/zwierlijn.h"

#include <cmath>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "spline/blossom_functie.h"
#include "storage/opslag.h"
#include "views/beeld.h"

namespace zw {

namespace {
constexpr int kLinks = 1;
constexpr int kRechts = 2;
}  // namespace

void Zwierlijn::teken_lijn(const Punt& P1, const Punt& P2, Colour kleur) {
    doek_.line(P1.X, P1.Y, P2.X, P2.Y, kleur);
}

void Zwierlijn::teken_punt(float index, bool gemarkeerd) {
    doek_.setFillStyle(kFillSolid);
    const Colour kleur = gemarkeerd ? Datakleur : controlkleur;
    doek_.setFillColour(kleur);
    const Punt& p = polygon_->punten(index);
    doek_.circle(p.X, p.Y, ControleStraal, kleur);
}

void Zwierlijn::Doek_MouseDown(int Button, int, float X, float Y) {
    if (Button == kLinks) {
        linkerklik(X, Y);
        doek_.refresh();
        plaats_knopenvenster();
        return;
    }
    // The start of a drag: the curve is sampled more coarsely while the point moves.
    oude_stap = evaluator_->stap;
    if (vec_->openuniform) {
        evaluator_->stap = sleep_detail ? toSingle(oude_stap * 3.0) : 1.0f;
    } else if (!sleep_detail) {
        evaluator_->stap = 0.25f;
    }
    // An empty polygon has no point to pick; the drag then moves nothing.
    if (polygon_->graad >= 0.0f) {
        index = toLong(polygon_->zoek_punt(X, Y));
    }
}

void Zwierlijn::linkerklik(float X, float Y) {
    Punt punt;
    punt.vulpunt(X, Y);
    if (segmenten_per_controlepunt) {
        kies_segment(X, Y);
    } else if (controlepunten_per_segment) {
        double t = 0.0;
        evaluator_->zoek_twaarde(punt, t);
        kies_twaarde(t);
    } else if (!segment) {
        polygon_->toevoegen(punt);
    } else {
        // Spline Punt mode: a knot goes in where the click meets the curve, which gives the
        // polygon one point more and leaves the curve as it was (Boehm's insertion).
        double t = 0.0;
        evaluator_->zoek_twaarde(punt, t);
        evaluator_->maak_spline(t);
        ops_->save();
    }
}

void Zwierlijn::kies_segment(float X, float Y) {
    gekozen_index = toLong(polygon_->zoek_punt(X, Y));
    be_->kleur_segmenten(static_cast<float>(gekozen_index));
}

void Zwierlijn::kies_twaarde(double t) {
    gekozen_twaarde = t;
    be_->kleur_controlepunten(toSingle(gekozen_twaarde));
}

// An empty polygon has no point to move.
void Zwierlijn::sleepPunt(float X, float Y) {
    if (polygon_->graad >= 0.0f) {
        Punt punt;
        punt.vulpunt(X, Y);
        polygon_->zet_punt(static_cast<float>(index), punt);
    }
}

void Zwierlijn::Doek_MouseMove(int Button, int, float X, float Y) {
    if (Button != kRechts) {
        return;
    }
    sleepPunt(X, Y);
    doek_.refresh();
}

void Zwierlijn::Doek_MouseUp(int Button, int, float X, float Y) {
    if (Button != kRechts) {
        return;
    }
    sleepPunt(X, Y);
    ops_->save();
    evaluator_->stap = toSingle(oude_stap);
    doek_.refresh();
}

// Background, control points and polygon, the curve (or the blending pane), the derived views
// over it, the knot pane.
void Zwierlijn::Doek_Paint() {
    doek_.setBackColour(doekkleur);
    if (!mengstat && !gewichtstat) {
        forSingle(0.0f, polygon_->graad, 1.0f, [&](float i) {
            teken_punt(i, false);
            if (i > 0.0f) {
                teken_been(i);
            }
        });
    } else {
        tekenPolygoonInKleur();
    }
    zet_menus();
    zet_knoppen();
    if (!mengstat) {
        if (polygon_->orde > 0.0f) {
            evaluator_->teken_spline();
        }
    } else {
        meng_.move(doek_.scaleWidth() - berngrootte, 0, berngrootte, berngrootte);
        meng_.setBackColour(doekkleur);
        meng_.refresh();
    }
    vergeetVerlopenKeuzes();
    if (polygon_->orde > 0.0f) {
        tekenAfgeleid();
    }
    plaats_knopenvenster();
    volgConstructie();
    meldStatus();
}

// The leg from point i - 1 to point i.
void Zwierlijn::teken_been(float i) {
    teken_lijn(polygon_->punten(addSingle(i, -1.0f)), polygon_->punten(i), lijnkleur);
}

// The classic program draws every point in its colour once per point: pass i draws all the
// discs, then the leg to point i. Each leg thus lies under the discs of every later pass, and the
// discs of the last pass lie over every disc before them. Drawn so, a curve of a thousand points
// would ask for a million discs. The passes but the last are folded into one disc per point
// drawn n times over itself (Surface::circle), with the legs they cover under it and the leg of
// pass n - 1 over it; the last pass is drawn as the loop draws it. The picture is the loop's but
// on the antialiased rims, where n passes build up the coverage by its formula rather than in
// 8-bit steps, and where a leg lies under more passes than the loop gave it.
void Zwierlijn::tekenPolygoonInKleur() {
    std::uint32_t gangen = 0;
    float laatste = -1.0f;
    forSingle(0.0f, polygon_->graad, 1.0f, [&](float i) {
        ++gangen;
        laatste = i;
    });
    if (gangen == 0) {
        return;
    }
    const float voorlaatste = addSingle(laatste, -1.0f);
    forSingle(1.0f, addSingle(voorlaatste, -1.0f), 1.0f, [&](float i) { teken_been(i); });
    if (gangen > 1) {
        polygon_->teken_controlepunten_in_kleur(gangen - 1);
    }
    if (voorlaatste > 0.0f) {
        teken_been(voorlaatste);
    }
    polygon_->teken_controlepunten_in_kleur();
    if (laatste > 0.0f) {
        teken_been(laatste);
    }
}

// The colourings show the last pick, as the click drew it.
void Zwierlijn::tekenAfgeleid() {
    if (bezier) {
        be_->bereken_bezier_notatie();
    }
    if (segmenten_per_controlepunt && gekozen_index >= 0) {
        be_->kleur_segmenten(static_cast<float>(gekozen_index));
    }
    if (controlepunten_per_segment && !std::isnan(gekozen_twaarde)) {
        be_->kleur_controlepunten(toSingle(gekozen_twaarde));
    }
}

// Undo, Redo, Openen and the wavelet step replace the curve under a pick. A point index past the
// last point, or a parameter outside the real range (knot k - 1 to knot L - k), no longer names
// anything on the canvas, and neither does a parameter while there is no curve. The redraw of
// its mode forgets it, so it colours nothing now nor after a Redo brings the curve back, and the
// next click picks afresh. The range is read only where the curve just drawn has read it.
void Zwierlijn::vergeetVerlopenKeuzes() {
    if (segmenten_per_controlepunt && gekozen_index > polygon_->graad) {
        gekozen_index = kGeenKeuze;
    }
    if (controlepunten_per_segment && !std::isnan(gekozen_twaarde) &&
        !opDeKromme(gekozen_twaarde)) {
        gekozen_twaarde = std::nan("");
    }
}

bool Zwierlijn::opDeKromme(double t) const {
    const float k = polygon_->orde;
    if (!(k > 0.0f)) {
        return false;
    }
    const float eerste = addSingle(k, -1.0f);
    const float laatste = addSingle(vec_->knopenlengte, -k);
    return t >= vec_->knoop(eerste) && t <= vec_->knoop(laatste);
}

void Zwierlijn::Knopen_MouseDown(int, int, float X, float) {
    index = toLong(vec_->zoek_knooppunt(X));
}

void Zwierlijn::Knopen_MouseMove(int Button, int, float X, float) {
    if (Button != kRechts) {
        return;
    }
    vec_->plaats_knooppunt(X, static_cast<float>(index));
    plaats_knopenvenster();
}

// A dragged knot vector is no longer one of the standard forms.
void Zwierlijn::Knopen_MouseUp(int Button, int, float X, float) {
    if (Button != kRechts) {
        return;
    }
    vec_->plaats_knooppunt(X, static_cast<float>(index));
    vec_->openuniform = false;
    doek_.refresh();
    ops_->save();
}

}  // namespace zw
