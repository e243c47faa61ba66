#include "runtime/rounding.h"

#include <cmath>
#include <limits>

namespace runtime {
namespace {

template <class Integer>
Integer roundChecked(double value) {
    const double whole = nearestEven(value);
    using Rep = decltype(Integer().value());
    // Written so that a value that is no number fails too.
    if (!(whole >= std::numeric_limits<Rep>::min() && whole <= std::numeric_limits<Rep>::max()))
        raise(Overflow);
    return Integer(static_cast<Rep>(whole));
}

} // namespace

double nearestEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) return below;
    if (rest > 0.5) return below + 1;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1;
}

Int16 roundToInt16(double value) { return roundChecked<Int16>(value); }
Int32 roundToInt32(double value) { return roundChecked<Int32>(value); }

double divide(double a, double b) {
    if (b == 0.0) raise(a == 0.0 ? Overflow : DivisionByZero);
    const double quotient = a / b;
    if (!std::isfinite(quotient)) raise(Overflow);
    return quotient;
}

} // namespace runtime
