#pragma once

#include <cstdint>
#include <string>

/// The application object.
namespace toolkit::App {

/// What message boxes without a title of their own carry.
inline constexpr const char* Title = "Orvan Music Player";

/// The folder of the settings file, without a trailing separator except at a root.
std::string Path();

/// True when another copy of the program is already running.
bool PrevInstance();

/// The raw command-line tail, without the program's own name.
std::string Command();

/// The decimal sign of the user's locale.
char DecimalSign();

/// Local time of day in whole seconds, 0 to 86399.
std::int32_t SecondsSinceMidnight();

} // namespace toolkit::App
