#pragma once

#include <cstdint>

namespace runtime {

/// A boolean of 16 bits: -1 true, 0 false, which are also its texts in the settings line.
class Bool16 {
  public:
    constexpr Bool16() = default;
    constexpr Bool16(bool on) : value_(on ? -1 : 0) {} // NOLINT(*-explicit-*)

    constexpr operator bool() const { return value_ != 0; } // NOLINT(*-explicit-*)
    /// -1 or 0.
    [[nodiscard]] constexpr std::int16_t value() const { return value_; }

  private:
    std::int16_t value_ = 0;
};

} // namespace runtime
