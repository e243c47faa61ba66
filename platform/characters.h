#pragma once

#include <cstddef>
#include <string_view>

/// Texts are UTF-8 and are counted in characters, which are code points. A byte that is no part of
/// well-formed UTF-8 counts as one or none; a buffer of N characters has room for 4 * N bytes.
namespace platform {

/// The most bytes that a character takes.
inline constexpr std::size_t bytesOfCharacter = 4;

constexpr bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

constexpr std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (const char byte : text)
        if (!continuesCharacter(byte)) ++count;
    return count;
}

/// The text's first `count` characters; all of it if it has no more.
constexpr std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; end < text.size(); ++end)
        if (!continuesCharacter(text[end]) && count-- == 0) break;
    return text.substr(0, end);
}

} // namespace platform
