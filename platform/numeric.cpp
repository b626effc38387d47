#include "platform/numeric.h"

#include <cmath>

namespace zw {

std::int32_t roundToLong(double x) {
    const double r = roundHalfEven(x);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) {
        raise(kErrOverflow);
    }
    return static_cast<std::int32_t>(r);
}

float divideSingle(float a, float b) {
    if (b == 0.0f) {
        raise(a == 0.0f ? kErrOverflow : kErrDivisionByZero);
    }
    return checkedSingle(a / b);
}

double logarithm(double x) {
    if (!(x > 0.0)) {
        raise(kErrInvalidCall);
    }
    return std::log(x);
}

}  // namespace zw
