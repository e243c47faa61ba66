#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace assets {

/// The bytes of an asset by its file name ("key.bmp", "2x/key.png"), as they lie in this folder;
/// empty if there is none of that name. The bytes live as long as the program. Any thread.
std::span<const std::byte> file(std::string_view name);

} // namespace assets
