#pragma once

#include <string>
#include <string_view>

/// Texts as the player takes them apart. All are pure; any thread.
namespace runtime {

/// The last piece of a path: what stands behind its last "\". A path that ends in "\" gives the
/// empty text, a text without "\" comes back unchanged.
std::string fileTitleOf(const std::string& path);

/// Cuts the text in front of the first `delimiter` off `line`; `line` keeps what stands behind it.
/// Error 6 when the first 32767 characters hold no delimiter: every field must be ended by one.
std::string nextField(std::string& line, char delimiter);

/// A text without the blanks at its end.
std::string withoutTrailingBlanks(std::string text);

/// Whether two texts are the same but for the case of the letters A to Z.
bool equalIgnoringCase(std::string_view first, std::string_view second);

} // namespace runtime
