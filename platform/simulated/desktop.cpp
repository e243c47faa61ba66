#include "platform/desktop.h"

#include "platform/simulated/world.h"
#include "platform/system.h"

#include <cstring>

namespace platform {

using simulated::world;

bool start(int /*argumentCount*/, char** /*arguments*/) { return world.desktop.display; }

bool previousInstance() { return world.desktop.previousInstance; }

std::string commandLineTail() { return world.desktop.commandLine; }

std::string applicationFolder() { return world.desktop.applicationFolder; }

char decimalSign() { return world.desktop.decimalSign; }

float twipsPerPixelX() { return world.desktop.twipsPerPixelX; }
float twipsPerPixelY() { return world.desktop.twipsPerPixelY; }

Size screenSize() { return world.desktop.screen; }

bool SystemParametersInfoA(std::uint32_t request, std::uint32_t /*parameter*/, Rect* area,
                           std::uint32_t /*flags*/) {
    if (request != SPI_GETWORKAREA || area == nullptr) return false;
    *area = world.desktop.workArea;
    return true;
}

bool GetCursorPos(Point* point) {
    if (point == nullptr) return false;
    *point = world.desktop.cursor;
    return true;
}

std::uint32_t GetSysColor(std::int32_t index) {
    switch (index) {
    case COLOR_WINDOW:
        return 0xFFFFFF;
    case COLOR_BTNFACE:
        return 0xC8D0D4;
    default:
        return 0;
    }
}

char* lstrcatA(char* target, const char* text) {
    std::memcpy(target + std::strlen(target), text, std::strlen(text) + 1);
    return target;
}

} // namespace platform
