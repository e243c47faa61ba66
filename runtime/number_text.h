#pragma once

#include "runtime/integers.h"

#include <string>
#include <string_view>

/// Numbers to text and back. `decimalSign` is that of the user's locale.
namespace runtime {

/// Whole numbers in plain decimal, "-" in front of negative ones.
std::string textOf(Int16 value);
std::string textOf(Int32 value);

/// At most 15 (double) or 7 (single) significant digits, without zeros at the end: "0,5" under a
/// comma, "1E+20" where there would be more digits before the sign, "1E-05" below 0.0001.
/// Error 6 for a value that is no finite number.
std::string textOf(double value, char decimalSign);
std::string textOf(float value, char decimalSign);

/// Reads a whole text as a number by the locale's rule: blanks around it, a sign, digits, a
/// decimal sign, an exponent. Error 13 for anything else, error 6 for a number too large.
double numberOf(std::string_view text, char decimalSign);

/// Reads a number from the start of a text, leading blanks skipped, up to the first character that
/// isn't part of one; "." is the decimal sign in every locale. 0 for a text without a number,
/// error 6 for a number too large.
double leadingNumber(std::string_view text);

/// The pattern "00": rounded to a whole number, ties to the even one, with at least two digits and
/// "-" in front of negative ones. Error 6 for a value that is no finite number.
std::string twoDigits(double value);

} // namespace runtime
