#pragma once

#include <cstdint>

/// What the desktop is told by: numbers only. Pure; any thread.
namespace remote {

/// Whether "next" starts a track: a single one starts again, the last one leads on by repeat only.
constexpr bool hasNext(std::int32_t index, std::int32_t count, bool repeat) {
    if (count == 1) return index == 0;
    return index + 1 < count || (index != -1 && repeat);
}

/// Whether "previous" starts one: it wraps, so any selection will do.
constexpr bool hasPrevious(std::int32_t index) { return index != -1; }

} // namespace remote
