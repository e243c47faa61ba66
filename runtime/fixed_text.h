#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace runtime {

/// A fixed character buffer: a text put into it is cut at its size or padded with blanks up to it.
template <std::size_t Size>
class FixedText {
  public:
    static constexpr std::uint32_t size = Size;

    void set(std::string_view text) {
        const std::size_t kept = std::min(text.size(), Size);
        std::copy_n(text.begin(), kept, characters_.begin());
        std::fill(characters_.begin() + kept, characters_.begin() + Size, ' ');
    }

    /// All characters, ended by a nul that is not counted.
    [[nodiscard]] const char* c_str() const { return characters_.data(); }

    /// For a call that fills in up to `size` characters, its own nul included.
    [[nodiscard]] char* data() { return characters_.data(); }

    [[nodiscard]] std::string first(std::size_t count) const {
        return std::string(characters_.data(), std::min(count, Size));
    }

  private:
    std::array<char, Size + 1> characters_{};
};

} // namespace runtime
