// Classic numeric semantics: rounding with halves to even, checked conversions that raise the
// overflow error, and the arithmetic faults (overflow, division by zero) that the classic run
// time raises where IEEE arithmetic would quietly give an infinity or a NaN.
#pragma once

#include <cmath>
#include <cstdint>

#include "platform/runtime_error.h"
#include "platform/werk.h"

namespace zw {

// Rounds to a whole number, halves to the even neighbour (2.5 -> 2, 3.5 -> 4, -2.5 -> -2).
// Infinities and NaN come back unchanged. Every curve point is rounded so, twice per sample:
// below 2^52, adding 2^52 leaves no bits below the units, so the addition itself rounds in the
// floating-point unit's own mode, to nearest with halves to even, and subtracting it again is
// exact. (The build never relaxes IEEE arithmetic, which would fold the two away.)
inline double roundHalfEven(double x) {
    constexpr double kTwo52 = 4503599627370496.0;
    if (!(std::fabs(x) < kTwo52)) {
        return x;  // already whole, or not a number at all
    }
    return x >= 0.0 ? (x + kTwo52) - kTwo52 : (x - kTwo52) + kTwo52;
}

// Whether x is a whole number, as x == floor(x) answers it (infinities are, NaN is not), without
// the library's floor: the evaluator asks it several times per curve point.
inline bool isWhole(double x) {
    if (std::isnan(x)) {
        return false;
    }
    if (!(std::fabs(x) < 4503599627370496.0)) {  // from 2^52 on every double is whole
        return true;
    }
    return x == static_cast<double>(static_cast<std::int64_t>(x));
}

// CInt: rounded halves to even, error 6 outside -32768..32767 and for NaN.
inline std::int16_t toInteger(double x) {
    const double r = roundHalfEven(x);
    if (!(r >= -32768.0 && r <= 32767.0)) {
        raise(kErrOverflow);
    }
    return static_cast<std::int16_t>(r);
}

// The general case of toLong: a value that is not already a whole number in range.
std::int32_t roundToLong(double x);

// CLng: rounded halves to even, error 6 outside the 32-bit range and for NaN. Whole numbers,
// every array index in practice, take the inline road.
inline std::int32_t toLong(double x) {
    if (x >= -2147483648.0 && x <= 2147483647.0) {
        const auto whole = static_cast<std::int32_t>(x);
        if (static_cast<double>(whole) == x) {
            return whole;
        }
    }
    return roundToLong(x);
}

// CSng: the nearest Single; error 6 when the value does not fit a Single or is NaN.
inline float toSingle(double x) {
    // Halfway between FLT_MAX and the next power of two a double rounds to infinity; below it,
    // to FLT_MAX. Converting anything at or above that bound is undefined in C++.
    constexpr double kFirstOverflow = 0x1.ffffffp127;
    if (!(std::fabs(x) < kFirstOverflow)) {  // NaN fails the test as well
        raise(kErrOverflow);
    }
    return static_cast<float>(x);
}

// An array index or record number from a Single (or any number): rounded halves to even, with
// the overflow error of the conversion to a Long.
inline std::int32_t toIndex(double x) {
    return toLong(x);
}

// The result of a Double computation: error 6 when it overflowed or became NaN.
inline double checkedDouble(double x) {
    if (!std::isfinite(x)) {
        raise(kErrOverflow);
    }
    return x;
}

// a / b with the classic faults: 0 / 0 overflows (6), x / 0 is division by zero (11).
inline double divide(double a, double b) {
    if (b == 0.0) {
        raise(a == 0.0 ? kErrOverflow : kErrDivisionByZero);
    }
    return checkedDouble(a / b);
}

// A Single result: error 6 when it overflowed or became NaN.
inline float checkedSingle(float x) {
    if (!std::isfinite(x)) {
        raise(kErrOverflow);
    }
    return x;
}

// Single arithmetic (Single op Single gives a Single), raising 6 when the result overflows.
inline float addSingle(float a, float b) {
    return checkedSingle(a + b);
}
inline float multiplySingle(float a, float b) {
    return checkedSingle(a * b);
}
float divideSingle(float a, float b);
// Log: the natural logarithm; 0, a negative number or NaN raise error 5.
double logarithm(double x);

// A For loop whose counter is a Single, as `For i = first To last Step step`: the limit and step
// are fixed at the start, the counter advances in Single precision. A counter that no longer
// advances (beyond 2^24 with step 1) would loop for ever; that raises error 6 instead.
template <typename Body>
void forSingle(float first, float last, float step, Body&& body) {
    for (float i = first; step >= 0 ? i <= last : i >= last;) {
        werk(1);
        body(i);
        const float next = addSingle(i, step);
        if (next == i) {
            raise(kErrOverflow);
        }
        i = next;
    }
}

}  // namespace zw
