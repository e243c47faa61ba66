#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The command-line tail, in the player's path form, of a process whose arguments, the program's
/// name first, each end in a nul, and that was started in `currentFolder` (a host path).
std::string tailOf(std::string_view arguments, const std::string& currentFolder);

} // namespace platform
