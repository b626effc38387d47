#include "geometry/punt.h"

#include "platform/numeric.h"
#include "platform/text.h"

namespace zw {

Punt Punt::som(const Punt& p) const {
    const double x = static_cast<double>(X) + p.X;
    const double y = static_cast<double>(Y) + p.Y;
    return Punt(toSingle(x), toSingle(y));
}

void Punt::produkt(const Punt& p, double factor) {
    const float x = toSingle(roundHalfEven(checkedDouble(p.X * factor)));
    const float y = toSingle(roundHalfEven(checkedDouble(p.Y * factor)));
    X = x;
    Y = y;
}

double Punt::produktX(double factor) const {
    return checkedDouble(X * factor);
}

double Punt::produktY(double factor) const {
    return checkedDouble(Y * factor);
}

void Punt::vulpunt(float x, float y) {
    X = x;
    Y = y;
}

void Punt::printpunt(Dialogs& dialogs) const {
    dialogs.message("Punt: (" + singleToText(X) + "," + singleToText(Y) + ")", "Zwierlijn");
}

bool Punt::isgelijkaan(const Punt& p) const {
    return p.X == X && p.Y == Y;
}

}  // namespace zw
