#include "runtime/text.h"

#include "runtime/characters.h"
#include "runtime/errors.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace runtime {
namespace {

/// Positions are counted in 16 bits; running past the last one is an overflow.
constexpr std::size_t lastPosition = std::numeric_limits<std::int16_t>::max();

/// Whether the first `bytes` of a text are characters up to the last position or beyond it.
bool charactersReach(std::string_view text, std::size_t bytes) {
    return bytes >= lastPosition && characterCount(text.substr(0, bytes)) >= lastPosition;
}

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

} // namespace

std::string fileTitleOf(const std::string& path) {
    const std::size_t separator = path.rfind('\\');
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

std::string nextField(std::string& line, char delimiter) {
    const std::size_t end = line.find(delimiter);
    // A line without the delimiter has its end beyond every position.
    if (end == std::string::npos || charactersReach(line, end)) raise(Overflow);
    std::string field = line.substr(0, end);
    line.erase(0, end + 1);
    return field;
}

std::string withoutTrailingBlanks(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

bool equalIgnoringCase(std::string_view first, std::string_view second) {
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](char a, char b) { return lowered(a) == lowered(b); });
}

} // namespace runtime
