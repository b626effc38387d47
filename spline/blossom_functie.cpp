#include "spline/blossom_functie.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>

#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "spline/blossom_engine.h"
#include "spline/parameter_search.h"
#include "spline/point_blossom.h"

namespace zw {

namespace {

// The few coefficients of a curve point, copied in pairs of fixed size: a copy of a length known
// only at run time is a call to the library, which costs more than the copy itself.
void kopieer(const double* van, std::size_t aantal, double* naar) {
    std::size_t i = 0;
    for (; i + 2 <= aantal; i += 2) {
        std::memcpy(naar + i, van + i, 2 * sizeof(double));
    }
    if (i < aantal) {
        naar[i] = van[i];
    }
}

}  // namespace

std::int32_t wholeOrder(float orde) {
    if (!isWhole(orde)) {
        raise(kErrInvalidCall);
    }
    return toIndex(orde);
}

BlossomFunctie::BlossomFunctie(MainWindow& window)
    : window_(window), zoekfractie(divideSingle(1.0f, 9.0f)), zoekgrens(500.0f) {}

Array<double> BlossomFunctie::blossom(const Array<double>& argumentenlijst, float segment) const {
    Array<double> c;
    KnotOrder onbekend;
    blossom(argumentenlijst, segment, onbekend, c);
    return c;
}

void BlossomFunctie::blossom(const Array<double>& argumentenlijst, float segment,
                             KnotOrder& knoopvolgorde, Array<double>& c) const {
    const std::int32_t k = wholeOrder(window_.polygoon().orde);
    if (!(k >= 0 && c.size() == static_cast<std::size_t>(k) + 1)) {
        c.redim(k);
    }
    checkRecursionSize(k);
    // The recursion reads the first k - 1 arguments, and at least the first.
    const std::size_t needed = k > 1 ? static_cast<std::size_t>(k - 1) : 1;
    if (argumentenlijst.size() < needed) {
        raise(kErrSubscript);
    }
    const KnoopVector& vec = window_.vec();
    const Array<double>& knopen = vec.knopen();
    // Curve points take the direct walk; every other list, and every curve point the walk does
    // not cover, the general recursion. Both give the recursion's vector bit for bit.
    PointBlossom point(knopen.data(), knopen.size(), vec.knopenlengte, k, segment, &knoopvolgorde);
    if (const double* result = point.evaluate(argumentenlijst.data())) {
        kopieer(result, static_cast<std::size_t>(k) + 1, c.data());
        return;
    }
    BlossomEngine engine(knopen.data(), knopen.size(), vec.knopenlengte, k, segment,
                         &knoopvolgorde.geordend);
    const double* result = engine.evaluate(argumentenlijst.data());
    std::copy(result, result + k + 1, c.data());
}

SegmentBlossom::SegmentBlossom(MainWindow& window, float segment, std::int32_t* geordend)
    : k_(wholeOrder(window.polygoon().orde)) {
    const KnoopVector& vec = window.vec();
    const Array<double>& knopen = vec.knopen();
    engine_ = std::make_unique<BlossomEngine>(knopen.data(), knopen.size(), vec.knopenlengte, k_,
                                              segment, geordend);
}

SegmentBlossom::~SegmentBlossom() = default;

void SegmentBlossom::blossom(const Array<double>& argumentenlijst, Array<double>& c) {
    if (c.size() != static_cast<std::size_t>(k_) + 1) {
        c.redim(k_);
    }
    const std::size_t needed = k_ > 1 ? static_cast<std::size_t>(k_ - 1) : 1;
    if (argumentenlijst.size() < needed) {
        raise(kErrSubscript);
    }
    const double* result = engine_->evaluate(argumentenlijst.data());
    std::copy(result, result + k_ + 1, c.data());
}

float BlossomFunctie::zoek_controlepunt(double t) const {
    const KnoopVector& vec = window_.vec();
    for (float i = 1.0f; i < vec.knopenlengte; i = addSingle(i, 1.0f)) {
        if (vec.knoop(i) == t) {
            return addSingle(i, 1.0f);
        }
    }
    return 0.0f;
}

Punt BlossomFunctie::zoek_punt(const Array<double>& argumentenlijst) const {
    const float k = window_.polygoon().orde;
    const KnoopVector& vec = window_.vec();
    float s = 0.0f;
    while (s < k && vec.knoop(s) <= argumentenlijst(0.0)) {
        s = addSingle(s, 1.0f);
    }
    return bereken_punt(blossom(argumentenlijst, s), s);
}

Punt BlossomFunctie::bereken_punt(const Array<double>& coefficienten, float begin) const {
    const coordinaten& polygon = window_.polygoon();
    double x = 0.0;
    double y = 0.0;
    const float last = addSingle(polygon.orde, -1.0f);
    for (float i = 0.0f; i <= last; i = addSingle(i, 1.0f)) {
        const float index = addSingle(begin, i);
        if (index <= polygon.graad) {
            const Punt& p = polygon.punten(index);
            const double c = coefficienten(i);
            x = checkedDouble(x + c * p.X);
            y = checkedDouble(y + c * p.Y);
        }
    }
    Punt punt;
    punt.vulpunt(toSingle(x), toSingle(y));
    return punt;
}

void BlossomFunctie::maak_spline(double& t) {
    coordinaten& polygon = window_.polygoon();
    KnoopVector& vec = window_.vec();
    const float k = polygon.orde;
    const float n = polygon.graad;
    PuntArray nieuw(addSingle(n, 2.0f));

    // The points before the new knot's influence stay. A t equal to a knot stops here too, so
    // inserting an existing value raises its multiplicity.
    float r = 0.0f;
    while (vec.knoop(addSingle(addSingle(k, r), -1.0f)) < t) {
        const Punt& p = polygon.punten(r);
        nieuw(r) = std::make_unique<Punt>(p.X, p.Y);
        r = addSingle(r, 1.0f);
    }
    // Boehm's insertion by blossoming: new point r + j is the polar value of its k - 1 knots in
    // the refined vector, the k - 2 old knots after knot r + j followed by t.
    Array<double> argumenten(addSingle(k, -1.0f));
    forSingle(0.0f, addSingle(k, -2.0f), 1.0f, [&](float j) {
        forSingle(0.0f, addSingle(k, -3.0f), 1.0f, [&](float m) {
            argumenten(m) = vec.knoop(addSingle(addSingle(addSingle(r, j), 1.0f), m));
        });
        argumenten(addSingle(k, -2.0f)) = t;
        const float segment = addSingle(r, j);
        const Punt p = bereken_punt(blossom(argumenten, segment), addSingle(segment, -1.0f));
        nieuw(segment) = std::make_unique<Punt>(p.X, p.Y);
    });
    // The rest moves up one index.
    forSingle(addSingle(addSingle(k, r), -1.0f), addSingle(n, 1.0f), 1.0f, [&](float i) {
        const Punt& p = polygon.punten(addSingle(i, -1.0f));
        nieuw(i) = std::make_unique<Punt>(p.X, p.Y);
    });
    vec.voeg_knooppunt_toe(t);
    polygon.splits(nieuw);
}

void BlossomFunctie::zoek_twaarde(const Punt& punt, double& t) const {
    ParameterSearch search(window_, zoekfractie, zoekgrens);
    search.run(punt, t);
}

void BlossomFunctie::splits_in_helft() {
    // After a split the new knots are what the user looks at: show them on the curve.
    window_.knooppunten = true;
    const float k = window_.polygoon().orde;
    KnoopVector& vec = window_.vec();
    const float m =
        addSingle(addSingle(vec.knopenlengte, -multiplySingle(2.0f, addSingle(k, -1.0f))), -1.0f);
    // Every midpoint is taken before the first insertion.
    Array<double> midden(m);
    forSingle(0.0f, addSingle(m, -1.0f), 1.0f, [&](float i) {
        const double a = vec.knoop(addSingle(addSingle(k, -1.0f), i));
        const double b = vec.knoop(addSingle(k, i));
        midden(i) = checkedDouble((b - a) / 2.0 + a);
    });
    forSingle(0.0f, addSingle(m, -1.0f), 1.0f, [&](float i) { maak_spline(midden(i)); });
}

}  // namespace zw
