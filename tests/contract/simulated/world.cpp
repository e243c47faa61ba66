#include "platform/simulated/world.h"

#include "tests/contract/world.h"

#include <cstdint>
#include <functional>
#include <string>

namespace contract {
namespace {

bool closing = false;

void stayOpen() {
    closing = false;
    simulated::runUntil([] { return closing; }, "what is open");
}

} // namespace

void startWorld() { simulated::reset(); }

std::string scratchFolder() {
    simulated::world.files.addFolder("C:\\Scratch");
    return "C:\\Scratch";
}

std::string makeFile(const std::string& name, const std::string& text) {
    std::string path = scratchFolder() + '\\' + name;
    simulated::world.files.addFile(path, text);
    return path;
}

std::string makeHiddenFile(const std::string& name) {
    std::string path = scratchFolder() + '\\' + name;
    simulated::world.files.addHiddenFile(path);
    return path;
}

std::string makeFolder(const std::string& name) {
    std::string path = scratchFolder() + '\\' + name;
    simulated::world.files.addFolder(path);
    return path;
}

std::string makeHiddenFolder(const std::string& name) {
    std::string path = scratchFolder() + '\\' + name;
    simulated::world.files.addHiddenFolder(path);
    return path;
}

std::string makeWave(const std::string& name, int milliseconds) {
    std::string path = scratchFolder() + '\\' + name;
    simulated::world.media.addFile(path, milliseconds);
    return path;
}

bool waitUntil(const std::function<bool()>& condition) {
    for (int step = 0; step < 10'000; ++step) {
        if (condition()) return true;
        simulated::advance(1);
    }
    return condition();
}

void letPass(int milliseconds) { simulated::advance(static_cast<std::uint64_t>(milliseconds)); }

std::uint64_t clock() { return simulated::now(); }

void keepNextMenuOpen() { simulated::world.menus.dismiss(stayOpen); }

void keepNextMessageOpen() { simulated::world.messages.whileOpen(stayOpen); }

void closeWhatIsOpen() { closing = true; }

void click(platform::WindowHandle window, std::int32_t x, std::int32_t y) {
    simulated::click(window, x, y);
}

platform::Rect outerArea(platform::WindowHandle window) {
    const simulated::Window& shown = simulated::window(window);
    const platform::Size frame = platform::frameSize(shown.options.frame);
    const platform::Point corner = shown.position;
    return {corner.x, corner.y, corner.x + shown.size.width + frame.width,
            corner.y + shown.size.height + frame.height};
}

bool isShown(platform::WindowHandle window) { return simulated::window(window).visible; }

void minimise(platform::WindowHandle window) { simulated::minimiseByWindowManager(window); }

bool isMinimised(platform::WindowHandle window) { return simulated::window(window).minimised; }

bool inShape(platform::WindowHandle window, std::int32_t x, std::int32_t y) {
    return simulated::inShape(window, x, y);
}

} // namespace contract
