#pragma once

#include "platform/windows/win32.h"

#include <string>

namespace platform {

/// What tells a folder from every other, whatever path leads to it: its volume and its number
/// there, or its place with all links followed where the file system numbers nothing.
std::wstring identityFrom(const BY_HANDLE_FILE_INFORMATION& about, const std::wstring& place);

} // namespace platform
