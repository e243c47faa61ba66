#pragma once

#include <string>
#include <string_view>

/// The player's texts are in the process's code page, which is UTF-8 where the system knows the
/// manifest's entry. Bytes and characters that have no counterpart become a replacement.
namespace platform {

std::wstring toWide(std::string_view text);
std::string fromWide(std::wstring_view text);

} // namespace platform
