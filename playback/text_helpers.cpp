#include "playback/text_helpers.h"

#include "runtime/errors.h"

#include <limits>

namespace {

/// Positions are counted in 16 bits; running past the last one is an overflow.
constexpr std::size_t lastPosition = std::numeric_limits<std::int16_t>::max();

} // namespace

std::string fileTitleOf(const std::string& path) {
    const std::size_t separator = path.rfind('\\');
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

std::string nextField(std::string& line, char delimiter) {
    const std::size_t end = line.find(delimiter);
    // A line without the delimiter has its end beyond every position.
    if (end >= lastPosition) runtime::raise(runtime::Overflow);
    std::string field = line.substr(0, end);
    line.erase(0, end + 1);
    return field;
}
