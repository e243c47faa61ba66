#include "runtime/number_text.h"

#include "runtime/rounding.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <system_error>

namespace runtime {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

struct Digits {
    bool negative = false;
    std::string significant; ///< without trailing zeros; the first digit stands before the point
    int exponent = 0;        ///< decimal exponent of the first digit
};

/// The value rounded to at most `precision` significant digits.
Digits digitsOf(double value, int precision) {
    char buffer[40];
    char* const end = std::to_chars(buffer, std::end(buffer), std::fabs(value),
                                    std::chars_format::scientific, precision - 1)
                          .ptr;
    char* const mark = std::find(buffer, end, 'e');
    Digits digits;
    digits.negative = std::signbit(value) && value != 0.0;
    std::copy_if(buffer, mark, std::back_inserter(digits.significant), isDigit);
    // A plus sign is no part of what from_chars reads.
    std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, digits.exponent);
    while (digits.significant.size() > 1 && digits.significant.back() == '0')
        digits.significant.pop_back();
    return digits;
}

std::string scientific(const Digits& digits, char decimalSign) {
    std::string text = digits.significant.substr(0, 1);
    if (digits.significant.size() > 1) text += decimalSign + digits.significant.substr(1);
    const int size = std::abs(digits.exponent);
    return text + (digits.exponent < 0 ? "E-" : "E+") + (size < 10 ? "0" : "") +
           std::to_string(size);
}

std::string plain(const Digits& digits, char decimalSign) {
    const int count = static_cast<int>(digits.significant.size());
    if (digits.exponent < 0)
        return std::string("0") + decimalSign +
               std::string(static_cast<std::size_t>(-digits.exponent) - 1, '0') +
               digits.significant;
    const auto whole = static_cast<std::size_t>(digits.exponent) + 1;
    if (count <= digits.exponent + 1)
        return digits.significant + std::string(whole - digits.significant.size(), '0');
    return digits.significant.substr(0, whole) + decimalSign + digits.significant.substr(whole);
}

std::string realText(double value, int precision, char decimalSign) {
    if (!std::isfinite(value)) raise(Overflow);
    const Digits digits = digitsOf(value, precision);
    const bool tooLarge = digits.exponent >= precision;
    const bool tooSmall = digits.exponent < -4;
    const std::string text =
        tooLarge || tooSmall ? scientific(digits, decimalSign) : plain(digits, decimalSign);
    return digits.negative ? "-" + text : text;
}

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::size_t digitsAt(std::string_view text, std::size_t at) {
    std::size_t count = 0;
    while (at + count < text.size() && isDigit(text[at + count]))
        ++count;
    return count;
}

/// How many characters of an exponent stand there. One without digits is none: "12e" is the
/// number 12 and a letter.
std::size_t exponentAt(std::string_view text, std::size_t at) {
    if (at >= text.size() || (text[at] != 'E' && text[at] != 'e')) return 0;
    const bool isSigned = at + 1 < text.size() && (text[at + 1] == '-' || text[at + 1] == '+');
    const std::size_t lead = isSigned ? 2 : 1;
    const std::size_t digits = digitsAt(text, at + lead);
    return digits == 0 ? 0 : lead + digits;
}

/// A number at the start of a text, and the same number as std::from_chars wants it: no plus sign
/// in front, a point whatever the locale.
struct Scanned {
    std::size_t length = 0; ///< characters of the text that belong to the number; 0 for none
    std::string plain;
};

Scanned scan(std::string_view text, char decimalSign) {
    std::size_t at = 0;
    std::string plainForm;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        if (text[0] == '-') plainForm = "-";
        at = 1;
    }
    const std::size_t whole = digitsAt(text, at);
    plainForm += text.substr(at, whole);
    at += whole;
    std::size_t fraction = 0;
    if (at < text.size() && text[at] == decimalSign) {
        fraction = digitsAt(text, at + 1);
        plainForm += '.';
        plainForm += text.substr(at + 1, fraction);
        at += 1 + fraction;
    }
    if (whole + fraction == 0) return {};
    const std::size_t exponent = exponentAt(text, at);
    plainForm += text.substr(at, exponent);
    return {at + exponent, plainForm};
}

/// Whether a number that no double holds is too small rather than too large: such numbers lie far
/// from 1, so the decimal exponent of the first digit that isn't 0 tells.
bool isTooSmall(std::string_view plainForm) {
    const std::size_t mark = std::min(plainForm.find_first_of("eE"), plainForm.size());
    const std::string_view mantissa = plainForm.substr(0, mark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    double exponent = 0.0; // a real, as the text may have any number of digits
    for (const char c : plainForm.substr(mark))
        if (isDigit(c)) exponent = exponent * 10.0 + (c - '0');
    const bool negative = plainForm.find('-', mark) != std::string_view::npos;
    const double digitsBefore = static_cast<double>(point) - static_cast<double>(first);
    return digitsBefore + (negative ? -exponent : exponent) < 0.0;
}

double valueOf(const Scanned& number) {
    if (number.length == 0) return 0.0;
    const char* const start = number.plain.data();
    double value = 0.0;
    const auto result = std::from_chars(start, start + number.plain.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    if (!isTooSmall(number.plain)) raise(Overflow);
    return 0.0;
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

} // namespace

std::string textOf(Int16 value) { return std::to_string(value.value()); }
std::string textOf(Int32 value) { return std::to_string(value.value()); }

std::string textOf(double value, char decimalSign) { return realText(value, 15, decimalSign); }
std::string textOf(float value, char decimalSign) {
    return realText(static_cast<double>(value), 7, decimalSign);
}

double numberOf(std::string_view text, char decimalSign) {
    text = withoutLeadingBlanks(text);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    const Scanned number = scan(text, decimalSign);
    if (number.length == 0 || number.length != text.size()) raise(TypeMismatch);
    return valueOf(number);
}

double leadingNumber(std::string_view text) {
    return valueOf(scan(withoutLeadingBlanks(text), '.'));
}

std::string twoDigits(double value) {
    if (!std::isfinite(value)) raise(Overflow);
    const double whole = nearestEven(value);
    char buffer[320]; // the largest double has 309 digits
    char* const end =
        std::to_chars(buffer, std::end(buffer), std::fabs(whole), std::chars_format::fixed, 0).ptr;
    const std::string digits(buffer, end);
    return (whole < 0.0 ? "-" : "") + (digits.size() < 2 ? "0" + digits : digits);
}

} // namespace runtime
