#pragma once

#include "runtime/integers.h"

#include <compare>
#include <concepts>
#include <cstdint>

namespace runtime {

/// A number of 64 bits with 4 decimal places. Every store of a real rounds to the nearest
/// ten-thousandth, ties to the even one; what doesn't fit raises error 6.
class Fixed {
  public:
    constexpr Fixed() = default;
    /// Rounds a real.
    explicit Fixed(double value);
    template <std::integral T>
    constexpr Fixed(T value) : units_(scaled(Int32(value).value())) {} // NOLINT(*-explicit-*)

    /// The number that is `units` ten-thousandths.
    static constexpr Fixed fromUnits(std::int64_t units) {
        Fixed result;
        result.units_ = units;
        return result;
    }

    /// The number in ten-thousandths.
    [[nodiscard]] constexpr std::int64_t units() const { return units_; }
    [[nodiscard]] double toDouble() const { return static_cast<double>(units_) / Scale; }

    friend Fixed operator+(Fixed a, Fixed b);
    friend Fixed operator-(Fixed a, Fixed b);
    /// An exact product with a whole number.
    friend Fixed operator*(Fixed a, std::int32_t b);

    /// Reals are rounded to 4 places before they are compared with a fixed-point number.
    friend constexpr bool operator==(Fixed, Fixed) = default;
    friend constexpr auto operator<=>(Fixed, Fixed) = default;

  private:
    static constexpr std::int64_t Scale = 10000;
    static constexpr std::int64_t scaled(std::int64_t whole) { return whole * Scale; }

    std::int64_t units_ = 0;
};

/// The nearest whole number, ties to the even one; error 6 outside 32 bits.
Int32 roundToInt32(Fixed value);

} // namespace runtime
