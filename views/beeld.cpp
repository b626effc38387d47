#include "views/beeld.h"

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "platform/surface.h"
#include "spline/blossom_functie.h"

namespace zw {

// The Bezier control points of a segment [a, b] of degree m = k - 1 are the blossom's values
// b(a^(m - j), b^j), j = 0 .. m: point 0 is the segment's start, point m its end. The list holds
// k entries, the left knot k - 1 - j times and the right one j + 1 times; the blossom reads the
// first k - 1 of them, so the last copy of the right knot is a spare.
void Beeld::bereken_bezier_notatie() {
    const float k = window_.polygoon().orde;
    const KnoopVector& vec = window_.vec();
    const float S = addSingle(addSingle(vec.knopenlengte, -multiplySingle(2.0f, k)), 1.0f);
    if (S <= 0.0f) {
        return;
    }
    const BlossomFunctie& functie = window_.evaluator();
    Array<double> argumenten(k);
    Array<Punt> bezierpunten(multiplySingle(S, k));
    Array<double> coefficienten;
    // How far the knots run in order, found once for all segments rather than once for each.
    std::int32_t geordend = -1;
    forSingle(0.0f, addSingle(S, -1.0f), 1.0f, [&](float seg) {
        const double links = vec.knoop(addSingle(addSingle(k, -1.0f), seg));
        const double rechts = vec.knoop(addSingle(k, seg));
        // The k lists of a segment are all made of its knots and share most of their sub-lists.
        SegmentBlossom blossom(window_, addSingle(seg, 1.0f), &geordend);
        forSingle(0.0f, addSingle(k, -1.0f), 1.0f, [&](float j) {
            const float grens = addSingle(addSingle(k, -1.0f), -j);
            forSingle(0.0f, addSingle(grens, -1.0f), 1.0f, [&](float a) { argumenten(a) = links; });
            forSingle(grens, addSingle(k, -1.0f), 1.0f, [&](float a) { argumenten(a) = rechts; });
            blossom.blossom(argumenten, coefficienten);
            bezierpunten(addSingle(multiplySingle(seg, k), j)) =
                functie.bereken_punt(coefficienten, seg);
        });
    });
    teken_bezierpunten(bezierpunten, multiplySingle(k, S));
}

// Each point is joined to the one before it, so the last point of a segment is joined to the
// first of the next: for a continuous curve the two coincide.
void Beeld::teken_bezierpunten(const Array<Punt>& punten, float aantal) {
    Surface& doek = window_.Doek();
    const Colour kleur = window_.Bezierkleur;
    const double straal = window_.ControleStraal;
    doek.setFillColour(kleur);
    forSingle(1.0f, addSingle(aantal, -1.0f), 1.0f, [&](float i) {
        const Punt p = punten(i);
        const Punt vorig = punten(addSingle(i, -1.0f));
        doek.line(p.X, p.Y, vorig.X, vorig.Y, kleur);
        doek.circle(p.X, p.Y, straal, kleur);
    });
    const Punt eerste = punten(0.0f);
    doek.circle(eerste.X, eerste.Y, straal, kleur);
}

// Point i acts on the segments i - k + 1 .. i (counted from 0), as far as they exist. The two
// ends are clamped differently, and are kept so: the first at 0, the last at the number of
// segments, and an end at or below 0 is raised to 1.
void Beeld::kleur_segmenten(float index) {
    const coordinaten& polygon = window_.polygoon();
    const float k = polygon.orde;
    const float aantal = addSingle(addSingle(polygon.graad, -k), 2.0f);
    float beginsegment = addSingle(addSingle(index, -k), 1.0f);
    if (beginsegment < 0.0f) {
        beginsegment = 0.0f;
    }
    float eindsegment = addSingle(index, 1.0f);
    if (eindsegment > aantal) {
        eindsegment = aantal;
    } else if (eindsegment <= 0.0f) {
        eindsegment = 1.0f;
    }
    window_.evaluator().teken_spline_in_kleur(beginsegment, eindsegment);
    Surface& doek = window_.Doek();
    doek.setFillColour(window_.segmentkleur);
    const Punt p = polygon.punten(index);
    doek.circle(p.X, p.Y, window_.ControleStraal, window_.segmentkleur);
}

// Segment s (counted from 1) is shaped by points s - 1 .. s + k - 2. A parameter at the very end
// of the range lies in no segment: the first point is held back so that the last stays at G.
// Points outside 0 .. G are skipped, not clamped.
void Beeld::kleur_controlepunten(float t) {
    const coordinaten& polygon = window_.polygoon();
    const float k = polygon.orde;
    float begin = addSingle(window_.vec().geef_segment(t), -1.0f);
    const float laatste = addSingle(addSingle(polygon.graad, 1.0f), -k);
    if (laatste < begin) {
        begin = laatste;
    }
    window_.evaluator().teken_spline_in_kleur(begin, addSingle(begin, 1.0f));
    Surface& doek = window_.Doek();
    doek.setFillColour(window_.segmentkleur);
    forSingle(0.0f, addSingle(k, -1.0f), 1.0f, [&](float i) {
        const float j = addSingle(begin, i);
        if (j >= 0.0f && j <= polygon.graad) {
            const Punt p = polygon.punten(j);
            doek.circle(p.X, p.Y, window_.ControleStraal, window_.segmentkleur);
        }
    });
}

}  // namespace zw
