#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A path of the player's as the system's file calls take it, however long it is.
std::wstring toSystem(std::string_view path);

/// The same for a path that is UTF-16 already: in the form without a limit if it is too long.
std::wstring withinReach(const std::wstring& path);

/// That form of a full path without blemishes, and the way back; other texts stay as they are.
std::wstring withoutLimit(const std::wstring& path);
std::wstring withLimit(const std::wstring& path);

} // namespace platform
