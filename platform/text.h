// Conversions between numbers and text with the classic run time's rules: Val, the default
// number-to-text conversion (string concatenation, CStr) and Str. None of them depend on the
// process locale: the decimal separator is always '.'.
#pragma once

#include <string>

namespace zw {

// Val: blanks, tabs and line feeds are skipped anywhere in the text; then an optional sign,
// digits with at most one decimal point and an optional exponent (E or D, optional sign) are
// read up to the first character that does not fit. Text without a number gives 0.
// &H and &O introduce hexadecimal and octal: up to &HFFFF the value is a 16-bit Integer
// (&HFFFF = -1), up to &HFFFFFFFF a 32-bit Long (a trailing '&' forces Long: &HFFFF& = 65535).
// Error 6 for larger &H/&O values and for decimal values beyond the Double range.
double val(const std::string& text);

// A Single as text: rounded to 7 significant digits, trailing zeros dropped, no leading blank.
// Fixed notation unless it would need more than 7 digits before the point, or more than 7
// places after it for a value below 1; then E notation with a signed exponent of at least two
// digits (12345678 -> "1.234568E+07", 0.0000001 -> "0.0000001", 1E-08 -> "1E-08").
std::string singleToText(float x);

// A Double as text: the rules of singleToText with 15 significant digits ("1E+15",
// "100000000000000", "1E+100").
std::string doubleToText(double x);

// Str: the text form with a leading blank for non-negative numbers and without the zero before
// the point of a magnitude below 1 (Str(0.5) = " .5", Str(-0.5) = "-.5", Str(0) = " 0").
std::string singleToStr(float x);
std::string doubleToStr(double x);

}  // namespace zw
