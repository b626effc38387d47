#include "geometry/mat.h"

#include <cmath>

#include "platform/numeric.h"

namespace zw {

double Mat::bereken_afstand(const Punt& P1, const Punt& P2) const {
    const double dy = static_cast<double>(P1.Y) - P2.Y;
    const double dx = static_cast<double>(P1.X) - P2.X;
    return std::sqrt(machtdouble(dy, 2) + machtdouble(dx, 2));
}

double Mat::machtdouble(double grondtal, float exp) const {
    double result = 1.0;
    forSingle(1.0f, exp, 1.0f, [&](float) { result = checkedDouble(result * grondtal); });
    return result;
}

std::int16_t Mat::macht(float grondtal, float exp) const {
    std::int16_t result = 1;
    forSingle(1.0f, exp, 1.0f, [&](float) {
        // Integer times Single is Single arithmetic; the product is then rounded to an Integer.
        result = toInteger(multiplySingle(static_cast<float>(result), grondtal));
    });
    return result;
}

float Mat::binom(float i, float n) const {
    float r = 1.0f;
    forSingle(addSingle(i, 1.0f), n, 1.0f, [&](float j) { r = multiplySingle(r, j); });
    forSingle(addSingle(n, -i), 1.0f, -1.0f, [&](float j) { r = divideSingle(r, j); });
    return r;
}

namespace {

// One axis of inrechthoek: v between a and b, in either order, with 20 units to spare.
bool between(float v, float a, float b) {
    constexpr float kMarge = 20.0f;
    return (addSingle(v, kMarge) >= a && addSingle(b, kMarge) >= v) ||
           (addSingle(a, kMarge) >= v && addSingle(v, kMarge) >= b);
}

}  // namespace

bool Mat::inrechthoek(const Punt& p, const Punt& P1, const Punt& P2) const {
    if (!between(p.X, P1.X, P2.X)) {
        return false;
    }
    return between(p.Y, P1.Y, P2.Y);
}

double Mat::ln(double getal) const {
    const double square = checkedDouble(getal * getal);
    return logarithm(std::sqrt(square) + getal);
}

}  // namespace zw
