#include "runtime/fixed.h"

#include "runtime/rounding.h"

#include <cmath>

namespace runtime {
namespace {

/// The value in ten-thousandths, ties to even. The product of doubles is itself rounded, so a half
/// that it shows may be a little less or more: what the product lost decides.
std::int64_t nearestUnits(double value) {
    constexpr double scale = 10000.0;
    constexpr double limit = 9223372036854775808.0; // 2 to the 63rd
    const double product = value * scale;
    if (!(product >= -limit && product < limit)) raise(Overflow);
    const double lost = std::fma(value, scale, -product);
    const double below = std::floor(product);
    const double rest = product - below;
    const auto whole = static_cast<std::int64_t>(below);
    // Above 2 to the 53rd products are even whole numbers, and the loss may be several units.
    if (rest == 0.0) return whole + static_cast<std::int64_t>(nearestEven(lost));
    if (rest == 0.5 && lost != 0.0) return lost > 0.0 ? whole + 1 : whole;
    return static_cast<std::int64_t>(nearestEven(product));
}

} // namespace

Fixed::Fixed(double value) : units_(nearestUnits(value)) {}

Fixed operator+(Fixed a, Fixed b) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a.units_, b.units_, &sum)) raise(Overflow);
    return Fixed::fromUnits(sum);
}

Fixed operator-(Fixed a, Fixed b) {
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(a.units_, b.units_, &difference)) raise(Overflow);
    return Fixed::fromUnits(difference);
}

Fixed operator*(Fixed a, std::int32_t b) {
    std::int64_t product = 0;
    if (__builtin_mul_overflow(a.units_, std::int64_t{b}, &product)) raise(Overflow);
    return Fixed::fromUnits(product);
}

Int32 roundToInt32(Fixed value) {
    constexpr std::int64_t scale = 10000;
    std::int64_t whole = value.units() / scale;
    std::int64_t rest = value.units() % scale;
    if (rest < 0) {
        rest += scale;
        --whole;
    }
    const bool up = rest > scale / 2 || (rest == scale / 2 && whole % 2 != 0);
    return Int32(up ? whole + 1 : whole);
}

} // namespace runtime
