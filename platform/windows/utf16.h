#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The player's texts are UTF-8, the system's calls take UTF-16. What is no well-formed text on one
/// side becomes a replacement character on the other.
namespace platform {

std::wstring toWide(std::string_view text);
std::string fromWide(std::wstring_view text);

/// The most UTF-16 units that a character takes.
inline constexpr std::size_t unitsOfCharacter = 2;

} // namespace platform
