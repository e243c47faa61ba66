#include "platform/desktop.h"

#include "platform/simulated/world.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace simulated {
namespace {

// Of the letters from U+00C0 and from U+00E0 on, which are two bytes each, and capital and small.
constexpr std::string_view withoutAccent = "aaaaaa.ceeeeiiii.nooooo.ouuuuy..";
constexpr char leadOfAccented = '\xC3';
constexpr unsigned char letterBits = 0x1F;
constexpr unsigned char smallBit = 0x20;

std::string withoutCase(std::string_view text) {
    std::string result(text);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool capital = c >= 'A' && c <= 'Z';
        const bool accented = i > 0 && text[i - 1] == leadOfAccented;
        if (capital || accented)
            result[i] = static_cast<char>(static_cast<unsigned char>(c) | smallBit);
    }
    return result;
}

std::string withoutCaseAndAccents(std::string_view text) {
    std::string result;
    for (const char c : withoutCase(text)) {
        const bool accented = result.ends_with(leadOfAccented);
        const char letter = withoutAccent[static_cast<unsigned char>(c) & letterBits];
        if (accented && letter != '.') result.pop_back();
        result += accented && letter != '.' ? letter : c;
    }
    return result;
}

} // namespace
} // namespace simulated

namespace platform {

using simulated::world;

bool start(int /*argumentCount*/, char** /*arguments*/) { return world.desktop.display; }

bool previousInstance() { return world.desktop.previousInstance; }

std::string commandLineTail() { return world.desktop.commandLine; }

std::string applicationFolder() { return world.desktop.applicationFolder; }

char decimalSign() { return world.desktop.decimalSign; }

/// The order of ASCII; letters of western languages stand with those without their accents.
std::int32_t compareInUsersLanguage(std::string_view first, std::string_view second) {
    const int bare =
        simulated::withoutCaseAndAccents(first).compare(simulated::withoutCaseAndAccents(second));
    return bare != 0 ? bare : simulated::withoutCase(first).compare(simulated::withoutCase(second));
}

float twipsPerPixelX() { return world.desktop.twipsPerPixelX; }
float twipsPerPixelY() { return world.desktop.twipsPerPixelY; }

Size screenSize() { return world.desktop.screen; }

std::int32_t secondsSinceMidnight() {
    const std::uint64_t milliseconds = world.events.midnight + world.events.now;
    return static_cast<std::int32_t>(milliseconds / 1000 % 86400);
}

} // namespace platform
