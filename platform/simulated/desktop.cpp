#include "platform/desktop.h"

#include "platform/simulated/world.h"

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

std::int32_t secondsSinceMidnight() {
    const std::uint64_t milliseconds = world.events.midnight + world.events.now;
    return static_cast<std::int32_t>(milliseconds / 1000 % 86400);
}

} // namespace platform
