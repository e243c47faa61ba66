#pragma once

#include "platform/windows/win32.h"

#include <cstdint>

/// The system's handles as the seam's numbers and back: their upper halves carry nothing, in
/// programs of 64 bits too.
namespace platform {

template <class Handle>
Handle handleOf(std::int32_t number) {
    return reinterpret_cast<Handle>(static_cast<std::intptr_t>(number));
}

inline HWND windowOf(std::int32_t number) { return handleOf<HWND>(number); }

inline std::int32_t numberOf(const void* handle) {
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(handle));
}

} // namespace platform
