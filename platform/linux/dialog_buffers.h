#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// How the open dialog's record and the desktop's dialog say the same things. Pure functions.
namespace platform {

/// One entry of the list of file types.
struct NameFilter {
    std::string label;
    std::vector<std::string> patterns;
    friend bool operator==(const NameFilter&, const NameFilter&) = default;
};

/// Reads pairs of label and patterns, each ended by a nul, the last followed by one more. Patterns
/// stand between semicolons; empty ones don't count. Null gives no filters.
std::vector<NameFilter> parseNameFilters(const char* pairs);

/// A pattern that matches any case where names tell capitals from small letters: "*.Mp3" as
/// "*.[mM][pP]3". A pattern for any name and any extension takes names without one too.
std::string anyCase(const std::string& pattern);

/// The filter as the desktop's dialog takes it, its patterns written so that they match any case
/// where names tell capitals from small letters.
std::string dialogFilter(const NameFilter& filter);

/// Where the parts of the selection stand in the buffer, in characters.
struct SelectionOffsets {
    std::uint16_t name = 0;      ///< of the first bare name
    std::uint16_t extension = 0; ///< behind the dot of a single name; 0 without one
};

/// Writes chosen files, full paths in the player's form, into a buffer of `size` characters, which
/// has room for four bytes each. One: its path and a nul. Several: their folder, without a
/// separator behind it except at the root, and the bare names, each ended by a nul, and one nul
/// more. False with all as it was when that doesn't fit, when nothing is chosen, or when the files
/// lie in different folders, which the form can't say.
bool writeSelection(const std::vector<std::string>& paths, char* buffer, std::uint32_t size,
                    SelectionOffsets& offsets);

/// Writes a text and a nul into a buffer of `size` characters of up to four bytes. False with the
/// buffer as it was when that doesn't fit.
bool writeText(const std::string& text, char* buffer, std::uint32_t size);

/// What stands behind the last separator.
std::string bareName(const std::string& path);

} // namespace platform
