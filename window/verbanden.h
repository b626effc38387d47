// The views point at each other: what the pointer rests on (no button held) lights up in every
// pane. A control point: its basis function thick in the blending pane, its handle ringed in the
// weights window, its tick marked in the knot pane, the segments it acts on tinted on the canvas.
// A basis function in the blending pane: the same, from its point. A knot cluster in the knot
// pane: the segments it bounds, its parameter in the blending pane, a tooltip with its indexes,
// value, multiplicity and the continuity there. The curve: the segment's control points ringed
// and its knot interval marked in both panes.
//
// Drawn on the overlays (Surface::overlay) and only when what is lit changes; it changes nothing
// in the model and records nothing.
#pragma once

#include <optional>
#include <string>

#include "views/constructie.h"

namespace zw {

class Zwierlijn;

class Verbanden {
  public:
    explicit Verbanden(Zwierlijn& venster) : venster_(venster) {}

    bool aan() const { return aan_; }
    void zetAan(bool aan);

    // The pointer rests at (X, Y), in the surface's scale units.
    void opDoek(float X, float Y);
    void opMeng(float X, float Y);
    void opKnopen(float X, float Y);
    // The pointer left, or a button went down: nothing is lit.
    void weg();
    // What is lit, onto the overlays the window cleared (Zwierlijn::tekenLagen).
    void teken();

  private:
    enum class Soort { kGeen, kPunt, kSegment, kKnoop };
    struct Keuze {
        Soort soort = Soort::kGeen;
        int index = 0;  // control point, span (knot index l) or cluster
        bool operator==(const Keuze& o) const { return soort == o.soort && index == o.index; }
    };
    void kies(Keuze keuze);
    std::optional<ConstructieKromme> kromme() const;
    std::string tip(const ConstructieKromme& kromme, int cluster) const;

    void tekenPunt(const ConstructieKromme& kromme, int i);
    void tekenSegment(const ConstructieKromme& kromme, int l);
    void tekenKnoop(const ConstructieKromme& kromme, int cluster);
    // The curve over span l, tinted, on the canvas' overlay.
    void tint(const ConstructieKromme& kromme, int l);
    void basisDik(const ConstructieKromme& kromme, int i);
    void mengStreep(const ConstructieKromme& kromme, double u);
    void knopenStreep(const ConstructieKromme& kromme, double van, double tot);

    Zwierlijn& venster_;
    bool aan_ = false;
    Keuze keuze_;
};

}  // namespace zw
