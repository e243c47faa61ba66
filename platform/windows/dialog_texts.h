#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// How the dialogs' records and the system's wide ones say the same things. Pure functions.
namespace platform {

/// Texts that each end in a nul, the last of them followed by one more, which is kept; null is
/// none.
std::wstring wideTexts(const char* texts);

/// A dialog's selection as it stands in a buffer that was filled with nuls: a path and a nul, or a
/// folder and names with a nul behind each and one more behind the last. Without what follows.
std::wstring_view selectionIn(std::wstring_view buffer);

/// Writes a text, nuls and all, into a buffer of `size` characters of up to four bytes, and leaves
/// what lies behind it. False with the buffer as it was when the text has more characters.
bool writeCharacters(std::wstring_view text, char* buffer, std::uint32_t size);

} // namespace platform
