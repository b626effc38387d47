// Drawing the curve on the canvas, and the blending functions of its real range.
#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "platform/surface.h"
#include "spline/blossom_functie.h"
#include "spline/point_blossom.h"
#include "weights/gewichten_form.h"

namespace zw {

namespace {

// The knots do not change while a curve is drawn: their order is looked at once.
std::int32_t oplopendeKnopen(const KnoopVector& vec) {
    const Array<double>& knopen = vec.knopen();
    return increasingKnots(knopen.data(), knopen.size(), vec.knopenlengte);
}

// t advanced by the step. A step that leaves t where it is (none, a negative one, or one lost
// below the precision of a far-off knot) would sample for ever; like a For counter that stops
// advancing, it raises the overflow error.
double volgende(double t, float stap) {
    const double next = checkedDouble(t + stap);
    if (!(next > t)) {
        raise(kErrOverflow);
    }
    return next;
}

// A run of curve segments on the canvas. Each segment is sampled from its first knot on and its
// samples are joined by lines; the knot point that starts a segment is joined to the last sample
// of the segment before, so the run is one unbroken polyline.
class Kromme {
  public:
    Kromme(MainWindow& window, const BlossomFunctie& functie, Colour kleur, bool breed)
        : window_(window),
          functie_(functie),
          k_(window.polygoon().orde),
          argumenten_(addSingle(k_, -1.0f)),
          oplopend_(oplopendeKnopen(window.vec())),
          kleur_(kleur),
          breed_(breed) {
        // Knot points are discs in the data colour.
        window_.Doek().setFillColour(window_.Datakleur);
    }

    // The drawn point at t on segment `segment` (counted from 1), its control points counted
    // from `begin`. The blossom of the diagonal (t, ..., t) is the segment's B-spline basis at
    // t; zoek_coord combines it with the points and their weights and rounds.
    Punt punt(double t, float segment, float begin) {
        forSingle(0.0f, addSingle(k_, -1.0f), 1.0f, [&](float i) { argumenten_(i) = t; });
        functie_.blossom(argumenten_, segment, oplopend_, coefficienten_);
        return window_.polygoon().zoek_coord(coefficienten_, begin);
    }

    // Segments begin .. eind - 1 (counted from 0), sampled with the step; `naSample` (s, the
    // blossom's coefficients, t) follows the line of every sample.
    template <typename NaSample>
    void segmenten(float begin, float eind, float stap, NaSample&& naSample) {
        const KnoopVector& vec = window_.vec();
        const float eersteKnoop = addSingle(k_, -1.0f);
        forSingle(begin, addSingle(eind, -1.0f), 1.0f, [&](float s) {
            const float segment = addSingle(s, 1.0f);
            double t = vec.knoop(addSingle(eersteKnoop, s));
            const Punt knooppunt = punt(t, segment, s);
            markeer(knooppunt);
            if (s > begin) {
                lijn(knooppunt);
            } else {
                vorig_ = knooppunt;  // the run starts at its first knot point
            }
            while (t < vec.knoop(addSingle(k_, s))) {
                const Punt nieuw = punt(t, segment, s);
                lijn(nieuw);
                vorig_.vulpunt(nieuw.X, nieuw.Y);
                naSample(s, coefficienten_, t);
                t = volgende(t, stap);
            }
        });
    }

    // The closing piece: from the last sample to the point at t, marked like a knot point.
    void sluit(double t, float segment, float begin) {
        const Punt eind = punt(t, segment, begin);
        lijn(eind);
        markeer(eind);
    }

  private:
    void markeer(const Punt& p) {
        if (window_.knooppunten) {
            window_.Doek().circle(p.X, p.Y, window_.ControleStraal, window_.Datakleur);
        }
    }

    // A line from the previous point to p; a wide one is three times the canvas width, which is
    // the same again afterwards.
    void lijn(const Punt& p) {
        Surface& doek = window_.Doek();
        if (!breed_) {
            doek.line(vorig_.X, vorig_.Y, p.X, p.Y, kleur_);
            return;
        }
        // The width is an Integer property: tripling past 32767 overflows.
        doek.setDrawWidth(toInteger(doek.drawWidth() * 3.0));
        doek.line(vorig_.X, vorig_.Y, p.X, p.Y, kleur_);
        doek.setDrawWidth(toInteger(doek.drawWidth() / 3.0));
    }

    MainWindow& window_;
    const BlossomFunctie& functie_;
    const float k_;
    Array<double> argumenten_;
    const std::int32_t oplopend_;
    Array<double> coefficienten_;
    const Colour kleur_;
    const bool breed_;
    Punt vorig_;
};

}  // namespace

float BlossomFunctie::mengpositie(double t) const {
    const KnoopVector& vec = window_.vec();
    const double eerste = vec.knoop(0.0f);
    const double laatste = vec.knoop(addSingle(vec.knopenlengte, -1.0f));
    const double deel = divide(checkedDouble(t - eerste), checkedDouble(laatste - eerste));
    return toSingle(checkedDouble(deel * 1000000.0));
}

void BlossomFunctie::teken_spline() {
    const float k = window_.polygoon().orde;
    const float L = window_.vec().knopenlengte;
    const float n = addSingle(addSingle(L, -multiplySingle(2.0f, k)), 1.0f);
    Kromme kromme(window_, *this, window_.krommekleur, true);
    // A curve of order 2 is the polygon itself and costs one linear blend per sample; it is
    // sampled twenty times finer.
    const float stapgrootte = k == 2.0f ? divideSingle(stap, 20.0f) : stap;
    kromme.segmenten(0.0f, n, stapgrootte, [&](float s, const Array<double>& c, double t) {
        if (!window_.mengstat) {
            return;
        }
        mengx = mengpositie(t);
        // The rational basis: each polynomial basis value times its weight, over the sum of
        // these, so that the values of every sample add up to 100.
        const GewichtenForm& gewichten = window_.gewichten();
        const float laatste = addSingle(k, -1.0f);
        double w = 0.0;
        forSingle(0.0f, laatste, 1.0f, [&](float i) {
            w = checkedDouble(w + gewichten.gewicht(addSingle(s, i)) * c(i));
        });
        forSingle(0.0f, laatste, 1.0f, [&](float i) {
            const float j = addSingle(s, i);
            mengwaarden(j) =
                toSingle(divide(checkedDouble(c(i) * 100.0 * gewichten.gewicht(j)), w));
        });
        Surface& meng = window_.meng();
        forSingle(0.0f, window_.polygoon().graad, 1.0f, [&](float i) {
            meng.line(vorige_mengx, vorige_mengwaarden(i), mengx, mengwaarden(i),
                      window_.kleur(toLong(i) % 8));
            vorige_mengwaarden(i) = mengwaarden(i);
        });
        vorige_mengx = mengx;
    });
    // The end of the real range belongs to no segment; it is the last segment's end point.
    kromme.sluit(window_.vec().knoop(addSingle(L, -k)), n, addSingle(n, -1.0f));
}

void BlossomFunctie::teken_spline_in_kleur(float beginsegment, float eindsegment) {
    const float k = window_.polygoon().orde;
    Kromme kromme(window_, *this, window_.segmentkleur, false);
    kromme.segmenten(beginsegment, eindsegment, stap, [](float, const Array<double>&, double) {});
    // The colouring views have always ended their run here: knot k + eindsegment - 2 blended
    // from the control points eindsegment on, wherever the last sample lies.
    kromme.sluit(window_.vec().knoop(addSingle(addSingle(k, eindsegment), -2.0f)), eindsegment,
                 eindsegment);
}

}  // namespace zw
