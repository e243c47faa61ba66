#pragma once

#include "platform/windows/win32.h"

// It needs what the other one defines.
#include <oleacc.h>

namespace platform {

/// The system's calls for readers. They are looked for when a reader first asks: nobody else has
/// their libraries loaded.
struct ReaderCalls {
    decltype(&::LresultFromObject) resultOf;
    decltype(&::CreateStdAccessibleObject) createStandard;
    decltype(&::AccessibleObjectFromWindow) objectOf;
    decltype(&::SysAllocStringLen) allocate;
};

/// Null on a system that lacks one of them.
const ReaderCalls* readerCalls();

} // namespace platform
