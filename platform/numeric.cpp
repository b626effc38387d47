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

float toSingle(double x) {
    // Halfway between FLT_MAX and the next power of two a double rounds to infinity; below it,
    // to FLT_MAX. Converting anything at or above that bound is undefined in C++.
    constexpr double kFirstOverflow = 0x1.ffffffp127;
    if (!(std::fabs(x) < kFirstOverflow)) {  // NaN fails the test as well
        raise(kErrOverflow);
    }
    return static_cast<float>(x);
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
