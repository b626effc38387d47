// A point of the plane in canvas units.
#pragma once

#include "platform/dialogs.h"

namespace zw {

class Punt {
  public:
    Punt() = default;
    Punt(float x, float y) : X(x), Y(y) {}

    float X = 0.0f;
    float Y = 0.0f;

    // A new point, the sum taken in Double and stored as Singles without rounding to whole
    // units.
    Punt som(const Punt& p) const;
    // Overwrites this point with p scaled by factor, each coordinate rounded to a whole number
    // with halves to even.
    void produkt(const Punt& p, double factor);
    double produktX(double factor) const;
    double produktY(double factor) const;
    void vulpunt(float x, float y);
    // A diagnostic: shows "Punt: (X,Y)" in a message box.
    void printpunt(Dialogs& dialogs) const;
    // Exact equality of both coordinates, no tolerance.
    bool isgelijkaan(const Punt& p) const;
};

}  // namespace zw
