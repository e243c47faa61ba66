#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The host path of a name that `GetShortPathNameA` gave; any other text counts as a path in the
/// player's form. Interface thread only.
std::string hostPathOfShortName(std::string_view name);

} // namespace platform
