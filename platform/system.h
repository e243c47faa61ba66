#pragma once

#include "platform/types.h"

#include <cstdint>

/// System operations that keep the system's own names. Interface thread only.
namespace platform {

/// Request of `SystemParametersInfoA` for the desktop's work area.
inline constexpr std::uint32_t SPI_GETWORKAREA = 48;

/// Request 48, with 0 for parameter and flags, fills `area` with the desktop's work area in screen
/// pixels. Other requests fail.
bool SystemParametersInfoA(std::uint32_t request, std::uint32_t parameter, Rect* area,
                           std::uint32_t flags);

/// Fills in the pointer's place in screen pixels.
bool GetCursorPos(Point* point);

/// Places a top-level window, in screen pixels. Its `moved` event runs before the call returns.
bool MoveWindow(WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width,
                std::int32_t height, bool repaint);

/// Blocks the thread, painting included, for a number of milliseconds.
void Sleep(std::uint32_t milliseconds);

/// Writes a blank-free alias of an existing file's path, under 64 characters, that the media layer
/// resolves, into a buffer of `size` characters of up to four bytes. Returns its length in
/// characters without the nul; 0 when the file doesn't exist; when `size` is too small, the size
/// needed.
std::uint32_t GetShortPathNameA(const char* path, char* buffer, std::uint32_t size);

/// The colours that `GetSysColor` knows here.
inline constexpr std::int32_t COLOR_WINDOW = 5;     ///< the back of a window that holds text
inline constexpr std::int32_t COLOR_WINDOWTEXT = 8; ///< text on it
inline constexpr std::int32_t COLOR_BTNFACE = 15;   ///< the back of dialogs and buttons
inline constexpr std::int32_t COLOR_BTNTEXT = 18;   ///< text on it

/// A colour of the desktop as 0x00BBGGRR; 0 for other numbers.
std::uint32_t GetSysColor(std::int32_t index);

/// Appends `text` to `target` and returns `target`.
char* lstrcatA(char* target, const char* text);

} // namespace platform
