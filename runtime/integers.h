#pragma once

#include "runtime/errors.h"

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <utility>

namespace runtime {

/// A signed integer whose arithmetic raises error 6 instead of wrapping.
/// Construction from any integer and from another width is checked the same way.
template <std::signed_integral Rep>
class CheckedInteger {
  public:
    constexpr CheckedInteger() = default;

    template <std::integral T>
    constexpr CheckedInteger(T value) : value_(narrow(value)) {} // NOLINT(*-explicit-*)

    template <std::signed_integral Other>
    constexpr explicit(sizeof(Other) > sizeof(Rep)) CheckedInteger(CheckedInteger<Other> other)
        : CheckedInteger(other.value()) {}

    [[nodiscard]] constexpr Rep value() const { return value_; }

    constexpr CheckedInteger& operator+=(CheckedInteger b) { return *this = *this + b; }
    constexpr CheckedInteger& operator-=(CheckedInteger b) { return *this = *this - b; }

    friend constexpr CheckedInteger operator+(CheckedInteger a, CheckedInteger b) {
        return CheckedInteger(wide(a) + wide(b));
    }
    friend constexpr CheckedInteger operator-(CheckedInteger a, CheckedInteger b) {
        return CheckedInteger(wide(a) - wide(b));
    }
    friend constexpr CheckedInteger operator*(CheckedInteger a, CheckedInteger b) {
        return CheckedInteger(wide(a) * wide(b));
    }
    friend constexpr CheckedInteger operator-(CheckedInteger a) { return CheckedInteger(-wide(a)); }

    friend constexpr bool operator==(CheckedInteger, CheckedInteger) = default;
    friend constexpr auto operator<=>(CheckedInteger, CheckedInteger) = default;

    /// Comparing never overflows, so a plain integer of any size may stand on the other side.
    template <std::integral T>
    friend constexpr bool operator==(CheckedInteger a, T b) {
        return std::cmp_equal(a.value_, b);
    }
    template <std::integral T>
    friend constexpr std::strong_ordering operator<=>(CheckedInteger a, T b) {
        if (std::cmp_equal(a.value_, b)) return std::strong_ordering::equal;
        return std::cmp_less(a.value_, b) ? std::strong_ordering::less
                                          : std::strong_ordering::greater;
    }

  private:
    static_assert(sizeof(Rep) <= 4, "intermediate results are taken in 64 bits");

    static constexpr std::int64_t wide(CheckedInteger a) { return a.value_; }

    template <std::integral T>
    static constexpr Rep narrow(T value) {
        if constexpr (std::unsigned_integral<T>) {
            if (value > static_cast<std::uintmax_t>(std::numeric_limits<Rep>::max()))
                raise(Overflow);
        } else if (static_cast<std::intmax_t>(value) < std::numeric_limits<Rep>::min() ||
                   static_cast<std::intmax_t>(value) > std::numeric_limits<Rep>::max()) {
            raise(Overflow);
        }
        return static_cast<Rep>(value);
    }

    Rep value_ = 0;
};

using Int16 = CheckedInteger<std::int16_t>;
using Int32 = CheckedInteger<std::int32_t>;

} // namespace runtime
