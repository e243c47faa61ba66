#pragma once

#include "platform/types.h"

#include <cstdint>
#include <string>
#include <string_view>

/// What the process and the desktop tell about themselves. Interface thread only.
namespace platform {

/// Connects to the window system. False, with the reason on standard error, when there is none.
/// Called once, before anything else of the seam but `commandLineTail` and `expectFile`.
bool start(int argumentCount, char** arguments);

/// True when another copy of the program runs for this user on this display.
bool previousInstance();

/// What stands behind the program's name, in the player's path form: on Windows as it was typed; on
/// Linux the arguments joined by one blank, or, where that names an existing file by a relative
/// path, its absolute form.
std::string commandLineTail();

/// The folder of the settings file, without a trailing separator except at a root.
std::string applicationFolder();

/// The decimal sign of the user's locale, "." or ",".
char decimalSign();

/// Orders two texts as the user's language does, case ignored: below 0, 0 or above 0. Texts that
/// differ in no other way than case are equal.
std::int32_t compareInUsersLanguage(std::string_view first, std::string_view second);

/// Twips in one pixel; 15 on a standard display.
float twipsPerPixelX();
float twipsPerPixelY();

/// The main screen's size in pixels.
Size screenSize();

/// Local time of day in whole seconds, 0 to 86399.
std::int32_t secondsSinceMidnight();

} // namespace platform
