// Drawing the curve on the canvas, and the blending functions over the whole knot range.
#include <algorithm>
#include <cfloat>
#include <cmath>
#include <optional>

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
KnotOrder knoopvolgorde(const KnoopVector& vec) {
    const Array<double>& knopen = vec.knopen();
    return {increasingKnots(knopen.data(), knopen.size(), vec.knopenlengte), 0};
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
          // A whole order fills the whole list, as the loop over 0 .. k - 1 does.
          vulbaar_(isWhole(k_) && static_cast<double>(argumenten_.size()) == k_),
          knoopvolgorde_(knoopvolgorde(window.vec())),
          kleur_(kleur),
          breed_(breed) {
        // Knot points are discs in the data colour.
        window_.Doek().setFillColour(window_.Datakleur);
    }

    // The drawn point at t on segment `segment` (counted from 1), its control points counted
    // from `begin`. The blossom of the diagonal (t, ..., t) is the segment's B-spline basis at
    // t; zoek_coord combines it with the points and their weights and rounds.
    Punt punt(double t, float segment, float begin) {
        if (vulbaar_) {
            werk(argumenten_.size());
            std::fill(argumenten_.data(), argumenten_.data() + argumenten_.size(), t);
        } else {
            forSingle(0.0f, addSingle(k_, -1.0f), 1.0f, [&](float i) { argumenten_(i) = t; });
        }
        functie_.blossom(argumenten_, segment, knoopvolgorde_, coefficienten_);
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
            // The segment's end, read once: nothing changes the knots while it is drawn.
            const double einde = vec.knoop(addSingle(k_, s));
            while (t < einde) {
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
        // The width is an Integer property: tripling past 32767 overflows. Tripled and divided
        // again it is whole, which is the width it had; a line that raises (its work past the
        // budget) gets it back all the same, or every later redraw would draw three times wider.
        const int breedte = doek.drawWidth();
        doek.setDrawWidth(toInteger(breedte * 3.0));
        const Breedte terug(doek, breedte);
        doek.line(vorig_.X, vorig_.Y, p.X, p.Y, kleur_);
    }

    // Gives the canvas its width back when it goes out of scope, however. The width came from
    // the canvas, so setting it again cannot raise.
    class Breedte {
      public:
        Breedte(Surface& doek, int breedte) : doek_(doek), breedte_(breedte) {}
        ~Breedte() { doek_.setDrawWidth(breedte_); }
        Breedte(const Breedte&) = delete;
        Breedte& operator=(const Breedte&) = delete;

      private:
        Surface& doek_;
        const int breedte_;
    };

    MainWindow& window_;
    const BlossomFunctie& functie_;
    const float k_;
    Array<double> argumenten_;
    const bool vulbaar_;
    KnotOrder knoopvolgorde_;
    Array<double> coefficienten_;
    const Colour kleur_;
    const bool breed_;
    Punt vorig_;
};

}  // namespace

float BlossomFunctie::Mengschaal::positie(double t) const {
    const double deel = divide(checkedDouble(t - eerste), checkedDouble(laatste - eerste));
    return toSingle(checkedDouble(deel * 1000000.0));
}

BlossomFunctie::Mengschaal BlossomFunctie::mengschaal() const {
    const KnoopVector& vec = window_.vec();
    return {vec.knoop(0.0f), vec.knoop(addSingle(vec.knopenlengte, -1.0f))};
}

float BlossomFunctie::mengpositie(double t) const {
    return mengschaal().positie(t);
}

// The rational basis: each polynomial basis value times its weight, over the sum of these, so
// that the values of every sample add up to 100. Each weight is fetched once; with the indexes
// whole and inside the array the values are written straight, else by the checked loops.
void BlossomFunctie::echte_mengwaarden(float s, float k, const Array<double>& c) {
    const GewichtenForm& gewichten = window_.gewichten();
    constexpr float kRecht = 64.0f;
    if (isWhole(s) && isWhole(k) && s >= 0.0f && k >= 1.0f && k <= kRecht &&
        static_cast<double>(s) + k <= static_cast<double>(mengwaarden.size()) &&
        static_cast<double>(s) + k <= static_cast<double>(gewichten.gewichten().size()) &&
        k <= static_cast<float>(c.size())) {
        const auto eerste = static_cast<std::int32_t>(s), aantal = static_cast<std::int32_t>(k);
        const double* gewicht = gewichten.gewichten().data();
        double g[static_cast<int>(kRecht)];
        double w = 0.0;
        for (std::int32_t i = 0; i < aantal; ++i) {
            g[i] = gewicht[eerste + i];
            w = checkedDouble(w + g[i] * c.data()[i]);
        }
        werk(static_cast<std::uint64_t>(aantal) * 4);
        for (std::int32_t i = 0; i < aantal; ++i) {
            mengwaarden.data()[eerste + i] =
                toSingle(divide(checkedDouble(c.data()[i] * 100.0 * g[i]), w));
        }
        return;
    }
    const float laatste = addSingle(k, -1.0f);
    double w = 0.0;
    forSingle(0.0f, laatste, 1.0f,
              [&](float i) { w = checkedDouble(w + gewichten.gewicht(addSingle(s, i)) * c(i)); });
    forSingle(0.0f, laatste, 1.0f, [&](float i) {
        const float j = addSingle(s, i);
        mengwaarden(j) = toSingle(divide(checkedDouble(c(i) * 100.0 * gewichten.gewicht(j)), w));
    });
}

void BlossomFunctie::teken_spline() {
    const float k = window_.polygoon().orde;
    const float L = window_.vec().knopenlengte;
    const float n = addSingle(addSingle(L, -multiplySingle(2.0f, k)), 1.0f);
    Kromme kromme(window_, *this, window_.krommekleur, true);
    // A curve of order 2 is the polygon itself and costs one linear blend per sample; it is
    // sampled twenty times finer.
    const float stapgrootte = k == 2.0f ? divideSingle(stap, 20.0f) : stap;
    const std::array<Colour, 8> kleuren =
        window_.mengstat ? mengkleuren() : std::array<Colour, 8>();
    std::optional<Mengschaal> schaal;
    menglijnen_volledig_ = true;
    kromme.segmenten(0.0f, n, stapgrootte, [&](float s, const Array<double>& c, double t) {
        if (!window_.mengstat) {
            return;
        }
        if (!schaal) {
            schaal = mengschaal();
        }
        mengx = schaal->positie(t);
        echte_mengwaarden(s, k, c);
        trek_menglijnen(kleuren, s, addSingle(s, k));
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

std::array<Colour, 8> BlossomFunctie::mengkleuren() const {
    std::array<Colour, 8> kleuren{};
    for (std::size_t i = 0; i < kleuren.size(); ++i) {
        kleuren[i] = window_.kleur(static_cast<double>(i));
    }
    return kleuren;
}

// For i = 0 to graad a line from (vorige_mengx, vorige_mengwaarden(i)) to (mengx,
// mengwaarden(i)) in kleur(i mod 8), then vorige_mengwaarden(i) := mengwaarden(i): one fan of
// lines, and one copy. As in the loop, the lines of the indexes that exist are drawn before an
// index beyond the arrays raises the subscript error.
void BlossomFunctie::trek_menglijnen(const std::array<Colour, 8>& kleuren, float van, float tot) {
    // The number of lines is a drawer's: its first sample finds it, and whether the arrays fall
    // short of it.
    if (menglijnen_volledig_) {
        const double graad = window_.polygoon().graad;
        const double gevraagd = graad >= 0.0 ? std::floor(graad) + 1.0 : 0.0;
        const std::size_t bestaand = std::min(mengwaarden.size(), vorige_mengwaarden.size());
        menglijnen_ = gevraagd < static_cast<double>(bestaand) ? static_cast<std::size_t>(gevraagd)
                                                               : bestaand;
        menglijnen_te_weinig_ = gevraagd > static_cast<double>(menglijnen_);
    }
    const std::size_t n = menglijnen_;
    // Every other entry was copied at the sample before and has not been written since: its
    // line stays level, which the surface need not be shown again.
    const auto binnen = [n](double i) {
        return static_cast<std::size_t>(std::clamp(i, 0.0, static_cast<double>(n)));
    };
    const std::size_t a = menglijnen_volledig_ ? 0 : binnen(van);
    const std::size_t e = menglijnen_volledig_ ? n : std::max(a, binnen(tot));
    menglijnen_volledig_ = false;
    window_.meng().lineFan(vorige_mengx, vorige_mengwaarden.data(), mengx, mengwaarden.data(), n,
                           kleuren.data(), kleuren.size(), a, e);
    for (std::size_t i = a; i < e; ++i) {
        vorige_mengwaarden.data()[i] = mengwaarden.data()[i];
    }
    if (menglijnen_te_weinig_) {
        raise(kErrSubscript);
    }
    vorige_mengx = mengx;
}

// Samples from the current t on, with the plain step also for order 2, each scaled by the
// largest weight rather than the rational denominator of the real range: the two scalings are
// the editor's, and differ on purpose.
void BlossomFunctie::teken_virtueel_bereik(double t, const VirtueelBereik& bereik) {
    const float k = window_.polygoon().orde;
    const KnoopVector& vec = window_.vec();
    const GewichtenForm& gewichten = window_.gewichten();
    const std::array<Colour, 8> kleuren = mengkleuren();
    menglijnen_volledig_ = true;
    Array<double> argumenten(addSingle(k, -1.0f));
    Array<double> coefficienten(k);
    KnotOrder volgorde = knoopvolgorde(vec);
    std::optional<Mengschaal> schaal;
    forSingle(1.0f, addSingle(k, -1.0f), 1.0f, [&](float j) {
        const float segment = addSingle(bereik.segment, j);
        const double einde = vec.knoop(addSingle(bereik.eindknoop, j));
        while (t < einde) {
            forSingle(0.0f, addSingle(k, -1.0f), 1.0f, [&](float i) { argumenten(i) = t; });
            blossom(argumenten, segment, volgorde, coefficienten);
            if (!schaal) {
                schaal = mengschaal();
            }
            mengx = schaal->positie(t);
            forSingle(0.0f, addSingle(k, -1.0f), 1.0f, [&](float i) {
                const float punt = addSingle(addSingle(segment, bereik.punt), i);
                if (punt >= bereik.onder && punt <= bereik.boven) {
                    mengwaarden(punt) = toSingle(
                        divide(checkedDouble(coefficienten(i) * 100.0 * gewichten.gewicht(punt)),
                               gewichten.get_grootste_gewicht()));
                }
            });
            const float eerste = addSingle(segment, bereik.punt);
            trek_menglijnen(kleuren, eerste, addSingle(eerste, k));
            t = volgende(t, stap);
        }
    });
}

// From the first knot to knot k - 1, where the real range starts. The segment numbers run
// -(k - 1) .. -1, one below those of the intervals' own numbering (interval j is segment
// j - k + 1 when counted as the real segments are); the blossom gives a negative segment
// number's coefficients one entry lower, so coefficient i belongs to control point
// segment + i, and those below 0 do not exist.
void BlossomFunctie::teken_linker_virtuele_mengfuncties() {
    const float k = window_.polygoon().orde;
    const float graad = window_.polygoon().graad;
    mengwaarden.redim(addSingle(graad, 1.0f));
    vorige_mengwaarden.redim(addSingle(graad, 1.0f));
    const double t = window_.vec().knoop(0.0f);
    forSingle(0.0f, graad, 1.0f, [&](float i) { vorige_mengwaarden(i) = 0.0f; });
    teken_virtueel_bereik(t, {0.0f, -k, 0.0f, 0.0f, FLT_MAX});
}

// The mirror image at the right end: from knot L - k, where the real range ends, to the last
// knot. Its k - 1 intervals are the segments that would follow the n real ones, numbered on
// from n + 1 .. n + k - 1, so that the blossom takes them as it takes the real segments: a
// positive number shifts nothing, and coefficient i belongs to control point segment - 1 + i,
// as on the canvas. Those past graad do not exist.
void BlossomFunctie::teken_rechter_virtuele_mengfuncties() {
    const float k = window_.polygoon().orde;
    const float L = window_.vec().knopenlengte;
    const float n = addSingle(addSingle(L, -multiplySingle(2.0f, k)), 1.0f);
    const double t = window_.vec().knoop(addSingle(L, -k));
    teken_virtueel_bereik(t, {addSingle(L, -k), n, -1.0f, -FLT_MAX, window_.polygoon().graad});
}

}  // namespace zw
