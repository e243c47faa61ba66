#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The name under which the media layer gets a file: the system's own short name where that is
/// short, plain and without a blank, as many volumes have none; else an alias.
std::string mediaNameOf(const std::wstring& systemName);

/// A media command as the system takes it: where it opens one of those aliases, with the path in
/// quotes in its place. Empty for every other command, which can be sent as it stands.
std::wstring commandWithPath(std::string_view command);

} // namespace platform
