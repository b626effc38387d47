// The construction of a curve point, drawn over the canvas: de Boor's algorithm (de Casteljau's
// for a Bezier curve) level by level at a parameter t the user moves, each point with its blossom,
// the tangent, and in the panes where t lies and what each basis function weighs there.
//
// Everything is drawn on the overlays of the canvas, the blending pane and the knot pane
// (Surface::overlay), over the pictures the editor keeps below: moving t redraws the overlays
// alone. The view edits nothing; "Invoegen" inserts t as a knot, as "Spline Punt" does.
#pragma once

#include <optional>
#include <string>

#include "views/constructie.h"

namespace zw {

class Zwierlijn;

class ConstructieBeeld {
  public:
    explicit ConstructieBeeld(Zwierlijn& venster) : venster_(venster) {}

    bool aan() const { return aan_; }
    // On: t in the middle of the real range and the whole construction shown; off: the overlays
    // cleared. There is nothing to show without a curve: it stays off.
    void zetAan(bool aan);

    double t() const { return t_; }
    // Clamped into the real range; redraws the overlays.
    void zetT(double t);
    // A hundredth of the range forward (+1) or back (-1).
    void stap(int richting);
    // The level shown, 0 (the segment's control points) to k - 1 (the curve point).
    int niveau() const { return niveau_; }
    int hoogsteNiveau() const;
    void zetNiveau(int niveau);
    bool labels() const { return labels_; }
    void zetLabels(bool aan);
    bool raaklijn() const { return raaklijn_; }
    void zetRaaklijn(bool aan);

    std::optional<Bereik> bereik() const;
    // "de Casteljau" or "de Boor".
    std::string naam() const;
    // The editor's number of the segment that holds t (from 1), 0 without a curve.
    int segment() const;

    // After the curve changed (a redraw of the canvas): t kept in the new range, the level at
    // most the new order's, or the view off when there is no curve left.
    void volg();
    // Onto the overlays, cleared by the window (Zwierlijn::tekenLagen), which every change here
    // asks for.
    void teken();
    // t into the knot vector (Boehm), recorded as a version, as a click in "Spline Punt" mode.
    void invoegen();
    // The blending pane's x (its scale units) as t.
    void zetTUitMeng(float x);

    // The curve as the construction reads it, or nothing while the polygon has no curve.
    std::optional<ConstructieKromme> kromme() const;

  private:
    void tekenDoek(const Constructie& c);
    void tekenNiveaus(const Constructie& c);
    void tekenRaaklijn(const Constructie& c);
    void tekenMeng(const ConstructieKromme& kromme, const Constructie& c);
    void tekenKnopen(const ConstructieKromme& kromme);

    Zwierlijn& venster_;
    bool aan_ = false;
    double t_ = 0.0;
    int niveau_ = 0;
    bool labels_ = false;
    bool raaklijn_ = false;
};

}  // namespace zw
