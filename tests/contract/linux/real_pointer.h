#pragma once

#include "platform/picture.h"
#include "platform/types.h"

#include <string>

/// The display as a user has it: a real pointer, real keys, real pixels.
namespace contract {

/// Runs xdotool with these arguments and waits for it, while no event of ours is handled.
/// False if it failed.
bool xdotool(const std::string& arguments);

/// Moves the pointer away from every window that the tests show.
void parkPointer();

/// The colour at a place of the screen, opaque.
platform::Pixel screenPixel(platform::Point place);

} // namespace contract
