#pragma once

#include <string>

/// The last piece of a path: what stands behind its last "\". A path that ends in "\" gives the
/// empty text, a text without "\" comes back unchanged.
std::string fileTitleOf(const std::string& path);

/// Cuts the text in front of the first `delimiter` off `line`; `line` keeps what stands behind it.
/// Error 6 when the first 32767 characters hold no delimiter: every field must be ended by one.
std::string nextField(std::string& line, char delimiter);
