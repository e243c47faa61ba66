#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// Length of the well-formed UTF-8 character that `text` begins with, 1 to 4 bytes; 0 when its
/// first byte begins none. Overlong forms, surrogates and numbers past U+10FFFF are not
/// well-formed.
std::size_t leadingCharacterLength(std::string_view text);

} // namespace platform
