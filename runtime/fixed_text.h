#pragma once

#include "runtime/characters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace runtime {

/// A buffer of a fixed number of characters: a text put into it is cut at its size or padded with
/// blanks up to it.
template <std::size_t Size>
class FixedText {
  public:
    static constexpr std::uint32_t size = Size;

    void set(std::string_view text) {
        const std::string_view kept = firstCharacters(text, Size);
        const auto end = std::copy(kept.begin(), kept.end(), bytes_.begin());
        *std::fill_n(end, Size - characterCount(kept), ' ') = '\0';
    }

    /// All characters, ended by a nul that is not counted.
    [[nodiscard]] const char* c_str() const { return bytes_.data(); }

    /// For a call that fills in up to `size` characters, its own nul included.
    [[nodiscard]] char* data() { return bytes_.data(); }

    /// The first `count` characters, nuls among them.
    [[nodiscard]] std::string first(std::size_t count) const {
        const std::string_view all(bytes_.data(), bytes_.size());
        return std::string(firstCharacters(all, std::min(count, Size)));
    }

  private:
    std::array<char, Size * BytesOfCharacter + 1> bytes_{};
};

} // namespace runtime
