#pragma once

#include "platform/types.h"

#include <cstdint>
#include <string>
#include <vector>

/// A screen reader that asks by the system's own means; each platform has its own source.
namespace contract {

/// A thing of a window, or a row, as a reader gets it.
struct Read {
    std::string name;
    std::string value; ///< a text
    double number = 0; ///< of a slider, where the system tells it as a number
    std::string description;
    platform::Rect area; ///< client pixels
    bool usable = true;
    bool pressed = false;
    bool checked = false;
    bool selected = false;
    std::int32_t rows = 0;
};

/// What the window is called.
std::string readName(platform::WindowHandle window);

/// What shows in a window, its push buttons included.
std::vector<Read> readThings(platform::WindowHandle window);

/// The rows of a thing, which is named by its place in `readThings`.
std::vector<Read> readRows(platform::WindowHandle window, int thing);

/// The place of the thing at a client pixel; -1 for none.
int thingAt(platform::WindowHandle window, std::int32_t x, std::int32_t y);

// What a reader has done. A row is counted from 0, -1 stands for the thing itself.

void act(platform::WindowHandle window, int thing, int row = -1);
void select(platform::WindowHandle window, int list, int row);
void setNumber(platform::WindowHandle window, int slider, double number);

} // namespace contract
