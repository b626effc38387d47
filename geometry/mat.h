// The few numeric routines the editor needs. Stateless: callers make an instance where they
// need one.
#pragma once

#include <cstdint>

#include "geometry/punt.h"

namespace zw {

class Mat {
  public:
    // Euclidean distance, in Double.
    double bereken_afstand(const Punt& P1, const Punt& P2) const;
    // grondtal to a whole power by repeated multiplication: the Single counter runs from 1 while
    // it does not pass exp, so exp below 1 gives 1 and a fractional exp is rounded down.
    double machtdouble(double grondtal, float exp) const;
    // As machtdouble, but the running result is an Integer, rounded at every step: a product
    // outside -32768..32767 raises the overflow error.
    std::int16_t macht(float grondtal, float exp) const;
    // n over i as n! / i! / (n - i)!, in Single. For i > n the loops do nothing and the result
    // is 1, not 0: callers rely on it.
    float binom(float i, float n) const;
    // p lies in the rectangle spanned by P1 and P2 (corners in either order), widened by 20
    // units; each sum "a + 20" is a Single before it is compared.
    bool inrechthoek(const Punt& p, const Punt& P1, const Punt& P2) const;
    // ln(sqrt(getal^2) + getal): ln(2 getal) for positive getal, the true logarithm plus ln 2,
    // which is what its callers expect. getal <= 0 raises the invalid-argument error (5).
    double ln(double getal) const;
};

}  // namespace zw
