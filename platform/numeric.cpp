#include "platform/numeric.h"

#include <cmath>

namespace zw {

double roundHalfEven(double x) {
    if (!std::isfinite(x)) {
        return x;
    }
    const double lower = std::floor(x);
    const double fraction = x - lower;  // exact for every double
    if (fraction > 0.5) {
        return lower + 1.0;
    }
    if (fraction < 0.5) {
        return lower;
    }
    return std::fmod(lower, 2.0) == 0.0 ? lower : lower + 1.0;
}

std::int16_t toInteger(double x) {
    const double r = roundHalfEven(x);
    if (!(r >= -32768.0 && r <= 32767.0)) {
        raise(kErrOverflow);
    }
    return static_cast<std::int16_t>(r);
}

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
