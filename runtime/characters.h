#pragma once

#include <cstddef>
#include <string_view>

/// Texts are UTF-8 (RFC 3629) and are counted in characters, which are code points. A byte that is
/// no part of one counts as a character. All are pure; any thread.
namespace runtime {

/// The most bytes that a character takes: a buffer of N characters has room for 4 * N bytes.
inline constexpr std::size_t BytesOfCharacter = 4;

/// How many bytes the character at `at` takes, 1 to 4; `at` lies inside the text.
std::size_t lengthOfCharacter(std::string_view text, std::size_t at);

std::size_t characterCount(std::string_view text);

/// The text's first `count` characters; all of it if it has no more.
std::string_view firstCharacters(std::string_view text, std::size_t count);

} // namespace runtime
