#pragma once

#include "platform/windows/win32.h"

namespace platform {

/// Loads a library of the system's by its full path: the loader would take one that lies beside the
/// program. Null if there is none.
HMODULE loadSystemLibrary(const wchar_t* name);

/// A function of a library by its name, for a pointer of its type; false if there is none.
template <class Call>
bool findCall(Call& call, HMODULE library, const char* name) {
    const FARPROC found = library == nullptr ? nullptr : GetProcAddress(library, name);
    call = reinterpret_cast<Call>(reinterpret_cast<void*>(found));
    return found != nullptr;
}

} // namespace platform
