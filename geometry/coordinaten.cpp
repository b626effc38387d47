#include "geometry/coordinaten.h"

#include "geometry/mat.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "platform/surface.h"
#include "weights/gewichten_form.h"

namespace zw {

coordinaten::coordinaten(MainWindow& window) : window_(window) {
    restart();
}

void coordinaten::begrens(float upperBound) {
    if (upperBound > kMaxPunten) {
        raise(kErrOutOfMemory);
    }
}

void coordinaten::splits(const PuntArray& nieuw) {
    graad = addSingle(graad, 1.0f);
    begrens(addSingle(graad, 1.0f));
    p_.redim(addSingle(graad, 1.0f));
    forSingle(0.0f, graad, 1.0f, [&](float i) {
        const std::unique_ptr<Punt>& punt = nieuw(i);
        if (!punt) {
            raise(kErrObjectNotSet);
        }
        p_(i) = std::make_unique<Punt>(punt->X, punt->Y);
    });
    window_.gewichten().dimensioneer_gewichten(addSingle(graad, 1.0f));
}

void coordinaten::dimensioneer_punten(float aantal) {
    begrens(aantal);
    graad = addSingle(aantal, -1.0f);
    p_.redim(aantal);
}

void coordinaten::teken_controlepunten_in_kleur(std::uint32_t keer) {
    Surface& doek = window_.Doek();
    doek.setFillStyle(kFillSolid);
    forSingle(0.0f, graad, 1.0f, [&](float i) {
        const Colour c = window_.kleur(i);
        doek.setFillColour(c);
        const Punt& punt = punten(i);
        doek.circle(punt.X, punt.Y, window_.ControleStraal, c, keer);
    });
    doek.setFillColour(window_.controlkleur);
}

float coordinaten::zoek_punt(float x, float y) const {
    const Punt q(x, y);
    const Mat mat;
    float best = 0.0f;
    double dmin = mat.bereken_afstand(q, punten(0.0f));
    forSingle(1.0f, graad, 1.0f, [&](float i) {
        const double d = mat.bereken_afstand(q, punten(i));
        if (d < dmin) {
            best = i;
            dmin = d;
        }
    });
    return best;
}

void coordinaten::zet_punt(float index, const Punt& p) {
    p_(index) = std::make_unique<Punt>(p.X, p.Y);
}

void coordinaten::toevoegen(const Punt& p) {
    graad = addSingle(graad, 1.0f);
    // Only an order of exactly 0 follows the point count here; every other order stays.
    if (orde == 0.0f) {
        orde = graad;
    }
    begrens(graad);
    p_.redimPreserve(graad);
    p_(graad) = std::make_unique<Punt>(p.X, p.Y);
    if (orde_gezet) {
        KnoopVector& vec = window_.vec();
        vec.dimensioneer_knopenvector(addSingle(vec.knopenlengte, 1.0f));
        vec.zet_uniform();
        const float last = addSingle(vec.knopenlengte, -1.0f);
        vec.zet_knoop(last, checkedDouble(vec.knoop(addSingle(vec.knopenlengte, -2.0f)) + 1.0));
    }
    window_.gewichten().dimensioneer_gewichten(addSingle(graad, 1.0f));
    window_.save();
    if (window_.gewichtstat) {
        window_.gewichten().herschaal();
    }
}

void coordinaten::test() {
    graad = 3.0f;
    window_.vec().knopenlengte = 8.0f;
    orde = 4.0f;
    p_.redim(4.0);
    const float xy[4][2] = {{1000, 1000}, {1000, 5000}, {7000, 5000}, {7000, 1000}};
    for (int i = 0; i < 4; ++i) {
        p_(i) = std::make_unique<Punt>(xy[i][0], xy[i][1]);
    }
    zet_orde();
}

void coordinaten::zet_orde() {
    orde_gezet = true;
    orde = addSingle(graad, 1.0f);
    KnoopVector& vec = window_.vec();
    vec.dimensioneer_knopenvector(addSingle(addSingle(graad, orde), 1.0f));
    vec.zet_knoop(addSingle(orde, -1.0f), 0.0);
    // zet_uniform overwrites both knots at once; the range they give, [0, 1], is its range too.
    vec.zet_knoop(addSingle(graad, 1.0f), addSingle(addSingle(graad, -orde), 2.0f));
    vec.zet_uniform();
    window_.save();
}

Punt coordinaten::zoek_coord(const Array<double>& tabel, float begin) const {
    GewichtenForm& gewichten = window_.gewichten();
    double sx = 0.0;
    double sy = 0.0;
    double s = 0.0;
    // Every sample of the curve comes here. Where the order and the first index are whole and
    // every coefficient, weight and point slot the loop reads is there, it runs on plain indexes,
    // in the same order; anything else takes the classic loop, whose checks raise where they always
    // have.
    const double hoogste =
        std::min(static_cast<double>(begin) + orde - 1.0, static_cast<double>(graad));
    if (isWhole(orde) && isWhole(begin) && orde >= 1.0f && begin >= 0.0f && begin < 16777216.0f &&
        orde <= static_cast<float>(tabel.size()) && hoogste < static_cast<double>(p_.size()) &&
        hoogste < static_cast<double>(gewichten.gewichten().size())) {
        const auto eerste = static_cast<std::int32_t>(begin);
        const auto k = static_cast<std::int32_t>(orde);
        const double* gewicht = gewichten.gewichten().data();
        werk(static_cast<std::uint64_t>(k) * 33);
        // Sums of their own: those the lambda below captures live in memory, and each step
        // would wait for the one before through a store and a load.
        double x = 0.0, y = 0.0, w = 0.0;
        for (std::int32_t i = 0; i < k && static_cast<float>(eerste + i) <= graad; ++i) {
            const double c = checkedDouble(gewicht[eerste + i] * tabel.data()[i]);
            const Punt* punt = p_.data()[eerste + i].get();
            if (punt == nullptr) {
                raise(kErrObjectNotSet);
            }
            x = checkedDouble(x + punt->X * c);
            y = checkedDouble(y + punt->Y * c);
            w = checkedDouble(w + c);
        }
        sx = x;
        sy = y;
        s = w;
    } else {
        forSingle(0.0f, addSingle(orde, -1.0f), 1.0f, [&](float i) {
            const float j = addSingle(begin, i);
            if (j <= graad) {
                const double c = checkedDouble(gewichten.gewicht(j) * tabel(i));
                const Punt& punt = punten(j);
                sx = checkedDouble(sx + punt.X * c);
                sy = checkedDouble(sy + punt.Y * c);
                s = checkedDouble(s + c);
            }
        });
    }
    sx = divide(sx, s);
    sy = divide(sy, s);
    // Curve points are always whole canvas units.
    return Punt(toSingle(roundHalfEven(sx)), toSingle(roundHalfEven(sy)));
}

bool coordinaten::orde_kleiner_dan_8() const {
    return addSingle(graad, 1.0f) < 8.0f;
}

void coordinaten::restart() {
    graad = -1.0f;
    orde = -1.0f;
    orde_gezet = false;
    p_.redim(0.0);
}

}  // namespace zw
