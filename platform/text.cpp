#include "platform/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <system_error>

#include "platform/runtime_error.h"

namespace zw {

namespace {

// ---------------------------------------------------------------------------------------------
// Val

std::string withoutBlanks(const std::string& text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\n') {
            result += c;
        }
    }
    return result;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// The value of `c` as a digit of `radix` (at most 16), or -1.
int digitValue(char c, int radix) {
    int value = radix;
    if (isDigit(c)) {
        value = c - '0';
    } else if (c >= 'a' && c <= 'f') {
        value = c - 'a' + 10;
    } else if (c >= 'A' && c <= 'F') {
        value = c - 'A' + 10;
    }
    return value < radix ? value : -1;
}

// The digits of an &H or &O literal starting at `pos`, typed as the classic lexer types them:
// Integer when the value fits 16 bits and no '&' suffix asks for a Long.
double radixValue(const std::string& s, std::size_t pos, int radix) {
    constexpr std::uint64_t kLongBits = 0xFFFFFFFFu;
    std::uint64_t value = 0;
    for (; pos < s.size() && digitValue(s[pos], radix) >= 0; ++pos) {
        // value <= kLongBits here, so the product cannot wrap.
        value = value * static_cast<std::uint64_t>(radix) +
                static_cast<std::uint64_t>(digitValue(s[pos], radix));
        if (value > kLongBits) {
            raise(kErrOverflow);
        }
    }
    const bool forcedLong = pos < s.size() && s[pos] == '&';
    const auto bits = static_cast<std::int64_t>(value);
    if (!forcedLong && value <= 0xFFFFu) {
        return static_cast<double>(value >= 0x8000u ? bits - 0x10000 : bits);
    }
    return static_cast<double>(value >= 0x80000000u ? bits - 0x100000000 : bits);
}

// Appends the digits from `pos` on to `digits`; returns the position after them.
std::size_t readDigits(const std::string& s, std::size_t pos, std::string& digits) {
    for (; pos < s.size() && isDigit(s[pos]); ++pos) {
        digits += s[pos];
    }
    return pos;
}

// An exponent (E or D, optional sign, digits) at `pos`; 0 when there is none or it has no digits.
// Saturates far beyond any Double exponent so that absurd exponents cannot overflow.
std::int64_t readExponent(const std::string& s, std::size_t pos) {
    constexpr std::int64_t kSaturated = 1'000'000'000'000;
    if (pos >= s.size() || (s[pos] != 'E' && s[pos] != 'e' && s[pos] != 'D' && s[pos] != 'd')) {
        return 0;
    }
    ++pos;
    const bool negative = pos < s.size() && s[pos] == '-';
    if (pos < s.size() && (s[pos] == '+' || s[pos] == '-')) {
        ++pos;
    }
    std::int64_t exponent = 0;
    for (; pos < s.size() && isDigit(s[pos]); ++pos) {
        exponent = std::min(exponent * 10 + (s[pos] - '0'), kSaturated);
    }
    return negative ? -exponent : exponent;
}

// 0.significant * 10^scale, where `significant` has no leading zero.
double scaledValue(const std::string& significant, std::int64_t scale) {
    // Below 0.1E-323 everything rounds to zero; from 0.1E310 on nothing fits a Double. Deciding
    // these here keeps absurd exponents away from the library parser.
    if (scale > 309) {
        raise(kErrOverflow);
    }
    if (scale < -323) {
        return 0.0;
    }
    const std::string text = "0." + significant + "e" + std::to_string(scale);
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (scale > 0) {
            raise(kErrOverflow);
        }
        return 0.0;
    }
    if (result.ec != std::errc() || !std::isfinite(value)) {
        raise(kErrOverflow);
    }
    return value;
}

double decimalValue(const std::string& s) {
    std::size_t pos = 0;
    const bool negative = !s.empty() && s[0] == '-';
    if (!s.empty() && (s[0] == '+' || s[0] == '-')) {
        ++pos;
    }
    std::string digits;
    pos = readDigits(s, pos, digits);
    const auto integerDigits = static_cast<std::int64_t>(digits.size());
    if (pos < s.size() && s[pos] == '.') {
        pos = readDigits(s, pos + 1, digits);
    }
    const std::size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos) {
        return 0.0;  // also "-0": the classic run time has no negative zero to show
    }
    const std::size_t last = digits.find_last_not_of('0');
    const std::int64_t scale =
        integerDigits - static_cast<std::int64_t>(first) + readExponent(s, pos);
    const double value = scaledValue(digits.substr(first, last - first + 1), scale);
    return negative ? -value : value;
}

// ---------------------------------------------------------------------------------------------
// Number to text

// A positive number rounded to a number of significant digits: digits[0].digits[1..] * 10^exp,
// without trailing zeros.
struct Rounded {
    std::string digits;
    int exponent = 0;
};

// Rounds the exact binary value, halves away from zero. Every double has a finite decimal
// expansion of at most 767 significant digits; asking for all of them means the digit after
// the last kept one is exact, never itself the product of an earlier rounding.
Rounded roundSignificant(double magnitude, int precision) {
    constexpr int kExactDigits = 767;
    std::array<char, kExactDigits + 16> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                      std::chars_format::scientific, kExactDigits);
    if (result.ec != std::errc()) {
        raise(kErrInternal);
    }
    // buffer holds "d.ddd...e+xx".
    const std::string_view text(buffer.data(),
                                static_cast<std::size_t>(result.ptr - buffer.data()));
    std::size_t e = text.find('e') + 1;
    if (text[e] == '+') {
        ++e;  // from_chars reads a minus sign only
    }
    Rounded r;
    std::from_chars(text.data() + e, text.data() + text.size(), r.exponent);
    r.digits = std::string(1, text[0]) + std::string(text.substr(2, precision - 1));
    if (text[precision + 1] >= '5') {
        std::size_t i = r.digits.size();
        while (i > 0 && r.digits[i - 1] == '9') {
            r.digits[--i] = '0';
        }
        if (i == 0) {  // 9.99...95 becomes 10.0...0
            r.digits.insert(r.digits.begin(), '1');
            r.digits.pop_back();
            ++r.exponent;
        } else {
            ++r.digits[i - 1];
        }
    }
    r.digits.erase(r.digits.find_last_not_of('0') + 1);
    return r;
}

std::string exponentText(int exponent) {
    std::string digits = std::to_string(exponent < 0 ? -exponent : exponent);
    if (digits.size() < 2) {
        digits.insert(0, "0");
    }
    return (exponent < 0 ? "E-" : "E+") + digits;
}

std::string formatted(const Rounded& r, int precision) {
    const int n = static_cast<int>(r.digits.size());
    const int before = r.exponent + 1;  // digits before the point in fixed notation
    if (before > precision || (before <= 0 && n - before > precision)) {
        const std::string fraction = n > 1 ? "." + r.digits.substr(1) : "";
        return r.digits.substr(0, 1) + fraction + exponentText(r.exponent);
    }
    if (before <= 0) {
        return "0." + std::string(static_cast<std::size_t>(-before), '0') + r.digits;
    }
    if (n <= before) {
        return r.digits + std::string(static_cast<std::size_t>(before - n), '0');
    }
    const auto split = static_cast<std::size_t>(before);
    return r.digits.substr(0, split) + "." + r.digits.substr(split);
}

std::string numberToText(double x, int precision) {
    if (std::isnan(x)) {
        return "NaN";
    }
    if (std::isinf(x)) {
        return x < 0 ? "-inf" : "inf";
    }
    if (x == 0.0) {
        return "0";
    }
    const std::string text = formatted(roundSignificant(std::fabs(x), precision), precision);
    return x < 0 ? "-" + text : text;
}

// The Str form of a number's text: the sign position holds a blank for non-negative numbers,
// and "0.5" loses its leading zero.
std::string strForm(const std::string& text) {
    const bool negative = !text.empty() && text[0] == '-';
    std::string_view body(text);
    if (negative) {
        body.remove_prefix(1);
    }
    if (body.size() > 1 && body[0] == '0' && body[1] == '.') {
        body.remove_prefix(1);
    }
    return (negative ? "-" : " ") + std::string(body);
}

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

}  // namespace

double val(const std::string& text) {
    const std::string s = withoutBlanks(text);
    if (s.empty() || s[0] != '&') {
        return decimalValue(s);
    }
    const char kind = s.size() > 1 ? s[1] : '\0';
    if (kind == 'H' || kind == 'h') {
        return radixValue(s, 2, 16);
    }
    if (kind == 'O' || kind == 'o') {
        return radixValue(s, 2, 8);
    }
    return 0.0;
}

std::string singleToText(float x) {
    return numberToText(static_cast<double>(x), kSingleDigits);
}

std::string doubleToText(double x) {
    return numberToText(x, kDoubleDigits);
}

std::string singleToStr(float x) {
    return strForm(singleToText(x));
}

std::string doubleToStr(double x) {
    return strForm(doubleToText(x));
}

}  // namespace zw
