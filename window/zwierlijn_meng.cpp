// The blending pane `meng`: every blending function over the whole knot range, the knots marked
// below its axis, and the command that shows and hides it.
#include "window/zwierlijn.h"

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "spline/blossom_functie.h"

namespace zw {

namespace {
// The knot range runs from 0 to this across the pane, and the values from 0 to 100 up it.
constexpr double kBreedte = 1000000.0;
constexpr double kHoogte = 100.0;
constexpr double kStreep = -10.0;
}  // namespace

// The pane is placed and refreshed whichever way the view goes; its paint draws it or hides it.
// The canvas is not redrawn: turning the view on draws the control points in colour over it.
void Zwierlijn::mntBeeldMengFuncties_Click() {
    mengstat = !mengstat;
    if (mengstat) {
        polygon_->teken_controlepunten_in_kleur();
    }
    menus_.zetVinkje("mntBeeldMengFuncties", mengstat);
    knoppen_.zetVinkje("Mengfuncties", mengstat);
    meng_.move(doek_.scaleWidth() - berngrootte, 0, berngrootte, berngrootte);
    meng_.setBackColour(doekkleur);
    meng_.refresh();
}

// The real range's drawer, teken_spline, draws the curve on the canvas as it always does: with
// the pane shown, this is where the curve comes from.
void Zwierlijn::meng_Paint() {
    if (!mengstat) {
        meng_.move(0, 0, 0, 0);
        return;
    }
    meng_.scale(-200000, 120, 1200000, -20);
    teken_knoopmerken();
    evaluator_->teken_linker_virtuele_mengfuncties();
    evaluator_->teken_spline();
    evaluator_->teken_rechter_virtuele_mengfuncties();
    teken_mengkader();
}

// The domain's ends as lines up the frame; below the axis a tick per knot, the virtual ones
// (outside the domain) in their own colour.
void Zwierlijn::teken_knoopmerken() {
    const float L = vec_->knopenlengte;
    const float k = polygon_->orde;
    const double eerste = vec_->knoop(0.0f);
    const double s = divide(checkedDouble(vec_->knoop(addSingle(L, -1.0f)) - eerste), kBreedte);
    const auto x = [&](float i) { return divide(checkedDouble(vec_->knoop(i) - eerste), s); };
    for (const float grens : {addSingle(k, -1.0f), addSingle(L, -k)}) {
        meng_.line(x(grens), 0, x(grens), kHoogte, lijnkleur);
    }
    const auto streep = [&](float i, Colour kleur) { meng_.line(x(i), 0, x(i), kStreep, kleur); };
    forSingle(0.0f, addSingle(k, -2.0f), 1.0f, [&](float i) { streep(i, virtueel); });
    forSingle(addSingle(addSingle(L, -k), 1.0f), addSingle(L, -1.0f), 1.0f,
              [&](float i) { streep(i, virtueel); });
    forSingle(addSingle(k, -1.0f), addSingle(L, -k), 1.0f, [&](float i) { streep(i, Reeel); });
}

// The stub from (0, 0) to (100, 0) is the pane's as it has always been: no base line.
void Zwierlijn::teken_mengkader() {
    meng_.line(0, 0, 0, kHoogte, lijnkleur);
    meng_.line(kBreedte, 0, kBreedte, kHoogte, lijnkleur);
    meng_.line(0, 0, 100, 0, lijnkleur);
}

}  // namespace zw
