#include "platform/system.h"

#include "platform/simulated/window_state.h"
#include "platform/simulated/world.h"
#include "runtime/characters.h"

#include <cstdint>
#include <cstring>
#include <string>

namespace platform {

using simulated::world;

bool SystemParametersInfoA(std::uint32_t request, std::uint32_t parameter, Rect* area,
                           std::uint32_t flags) {
    if (request != SPI_GETWORKAREA || parameter != 0 || area == nullptr || flags != 0) return false;
    *area = world.desktop.workArea;
    return true;
}

bool GetCursorPos(Point* point) {
    ++world.desktop.cursorsAsked;
    if (point == nullptr) return false;
    *point = world.reader.standIn.value_or(world.desktop.cursor);
    return true;
}

bool MoveWindow(WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width,
                std::int32_t height, bool repaint) {
    simulated::Window& moved = simulated::existing(window);
    moved.size = {width, height};
    if (repaint) moved.paintWanted = true;
    if (moved.position != Point{x, y}) simulated::note("move window " + std::to_string(window));
    simulated::place(window, {x, y});
    return true;
}

void Sleep(std::uint32_t milliseconds) {
    world.events.now += milliseconds;
    world.events.sleeps.push_back(milliseconds);
    simulated::note("sleep " + std::to_string(milliseconds));
    if (milliseconds > 0) world.events.idleYields = 0;
}

std::uint32_t GetShortPathNameA(const char* path, char* buffer, std::uint32_t size) {
    const std::string name = world.files.shortNameOf(path);
    const auto length = static_cast<std::uint32_t>(runtime::characterCount(name));
    if (length == 0) return 0;
    if (length + 1 > size) return length + 1;
    std::memcpy(buffer, name.c_str(), name.size() + 1);
    return length;
}

std::uint32_t GetSysColor(std::int32_t index) {
    const simulated::Colours& colours = world.desktop.colours;
    switch (index) {
    case COLOR_WINDOW:
        return colours.window;
    case COLOR_WINDOWTEXT:
        return colours.windowText;
    case COLOR_BTNFACE:
        return colours.face;
    case COLOR_BTNTEXT:
        return colours.faceText;
    default:
        return 0;
    }
}

char* lstrcatA(char* target, const char* text) {
    std::memcpy(target + std::strlen(target), text, std::strlen(text) + 1);
    return target;
}

} // namespace platform
