// The knot pane: the knot vector drawn as a number line, and the picking and dragging of knots.
#include <cmath>

#include "geometry/coordinaten.h"
#include "knots/knoop_vector.h"
#include "platform/numeric.h"
#include "platform/surface.h"

namespace zw {

namespace {

constexpr double kKnotGap = 1e-6;

// The number line stretches the whole knot range, first knot to last, over `vectorlengte` from
// a margin of half `breedtestap`, whatever the knot values: the pane always shows every knot.
struct Getallenlijn {
    float begin;
    float lengte;
    double eerste;
    double laatste;

    // Pane x of the knot value u. Equal first and last knots leave no range to stretch: 0 / 0,
    // the overflow error.
    float x(double u) const {
        const double deel =
            divide(checkedDouble((u - eerste) * lengte), checkedDouble(laatste - eerste));
        return toSingle(checkedDouble(begin + deel));
    }

    // The knot value under pane x.
    double waarde(float x) const {
        const double deel = checkedDouble(addSingle(x, -begin) * checkedDouble(laatste - eerste));
        return checkedDouble(divide(deel, lengte) + eerste);
    }
};

Getallenlijn getallenlijn(const MainWindow& window, double eerste, double laatste) {
    return {divideSingle(window.breedtestap, 2.0f), window.vectorlengte, eerste, laatste};
}

}  // namespace

double KnoopVector::paneelX(double u) const {
    const float L = knopenlengte;
    const double eerste = L >= 2.0f ? knoop(0.0f) : 0.0;
    const double laatste = L >= 2.0f ? knoop(addSingle(L, -1.0f)) : 0.0;
    if (!(laatste > eerste) || !std::isfinite(u)) {
        return divideSingle(window_.breedtestap, 2.0f);
    }
    return getallenlijn(window_, eerste, laatste).x(u);
}

void KnoopVector::teken_lijn() {
    Surface& pane = window_.Knopen();
    pane.cls();
    pane.setDrawWidth(4);
    const float begin = divideSingle(window_.breedtestap, 2.0f);
    pane.line(begin, window_.hoogte, addSingle(begin, window_.vectorlengte), window_.hoogte,
              kBlack);
}

void KnoopVector::teken_vector() {
    const float L = knopenlengte;
    if (L <= 0.0f) {
        return;
    }
    teken_lijn();
    Surface& pane = window_.Knopen();
    const Getallenlijn lijn = getallenlijn(window_, knoop(0.0f), knoop(addSingle(L, -1.0f)));
    const float k = window_.polygoon().orde;
    const float hoogte = window_.hoogte;
    const auto straal = static_cast<float>(window_.BollenStraal);

    // Knots k - 1 .. L - k bound the curve's segments; the others only shape the end segments.
    // Virtual discs go first: where a clamped end puts virtual knots within 1e-6 of a real one,
    // the disc that shows is the real one, the end of the curve's range.
    const float eersteReeel = addSingle(k, -1.0f);
    const float laatsteReeel = addSingle(L, -k);
    for (const bool reeel : {false, true}) {
        forSingle(0.0f, addSingle(L, -1.0f), 1.0f, [&](float i) {
            if ((i >= eersteReeel && i <= laatsteReeel) == reeel) {
                pane.circle(lijn.x(knoop(i)), hoogte, straal,
                            reeel ? window_.Reeel : window_.virtueel);
            }
        });
    }

    // Control point i - 1 stands at its Greville abscissa, the average of knots i .. i + k - 2.
    // These averages are the coefficients of the identity t in the B-spline basis, so each tick
    // shows where along the range its point acts.
    forSingle(1.0f, laatsteReeel, 1.0f, [&](float i) {
        double som = 0.0;
        forSingle(i, addSingle(addSingle(i, k), -2.0f), 1.0f,
                  [&](float j) { som = checkedDouble(som + knoop(j)); });
        const float x = lijn.x(divide(som, eersteReeel));
        pane.line(x, divideSingle(hoogte, 10.0f), x, 0.0, kBlack);
    });
}

float KnoopVector::zoek_knooppunt(float x) const {
    const float L = knopenlengte;
    const double u = getallenlijn(window_, knoop(0.0f), knoop(addSingle(L, -1.0f))).waarde(x);
    float i = 0.0f;
    while (i < L && knoop(i) < u) {
        i = addSingle(i, 1.0f);
    }
    if (i > 0.0f && i < L) {
        // The editor has always weighed magnitudes, | |knot| - |u| |, not the distance
        // |knot - u|: across zero it can pick the farther knot. A tie goes to the right.
        const double rechts = std::fabs(std::fabs(knoop(i)) - std::fabs(u));
        const double links = std::fabs(std::fabs(knoop(addSingle(i, -1.0f))) - std::fabs(u));
        return links < rechts ? addSingle(i, -1.0f) : i;
    }
    return i == L ? addSingle(L, -1.0f) : 0.0f;
}

void KnoopVector::plaats_knooppunt(float x, float index) {
    const float L = knopenlengte;
    double u = getallenlijn(window_, knoop(0.0f), knoop(addSingle(L, -1.0f))).waarde(x);
    // The ends of the vector fix the pane's scale and stay put.
    if (!(index > 0.0f && index < addSingle(L, -1.0f))) {
        return;
    }
    // A knot never passes a neighbour: the order of the knots is what makes them a knot vector.
    const double rechts = knoop(addSingle(index, 1.0f));
    if (u > rechts) {
        u = checkedDouble(rechts - kKnotGap);
    } else {
        const double links = knoop(addSingle(index, -1.0f));
        if (u < links) {
            u = checkedDouble(links + kKnotGap);
        }
    }
    window_.vec().zet_knoop(index, u);
}

}  // namespace zw
