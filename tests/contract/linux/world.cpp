#include "tests/contract/world.h"

#include "platform/desktop.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/linux/x_server.h"
#include "tests/contract/linux/real_pointer.h"
#include "tests/contract/linux/shown_dialog.h"
#include "tests/contract/tone.h"

#include <QApplication>
#include <QWidget>

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <thread>

#include <unistd.h>

namespace contract {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

const fs::path& hostFolder() {
    static const fs::path folder =
        fs::temp_directory_path() / ("orvan-contract-" + std::to_string(getpid()));
    return folder;
}

void removeHostFolder() {
    std::error_code ignored;
    fs::remove_all(hostFolder(), ignored);
}

void startPlatformOnce() {
    static const bool started = [] {
        static char name[] = "contract-linux";
        static char* arguments[] = {name, nullptr};
        hostFolder(); // what is made before it is registered lives until after it has run
        std::atexit(removeHostFolder);
        return platform::start(1, arguments);
    }();
    if (!started) {
        std::fputs("these tests need a display\n", stderr);
        std::exit(1);
    }
}

std::string playerPath(const fs::path& host) {
    std::string path = host.string();
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

fs::path hostPath(const std::string& name) {
    std::string relative = name;
    std::replace(relative.begin(), relative.end(), '\\', '/');
    fs::path path = hostFolder() / relative;
    fs::create_directories(path.parent_path());
    return path;
}

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

xcb_connection_t* server() {
    return qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

bool isOnScreen(xcb_window_t window) {
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        server(), xcb_get_window_attributes(server(), window), nullptr));
    return reply != nullptr && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_window_t parentOf(xcb_window_t window) {
    const Reply<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(server(), xcb_query_tree(server(), window), nullptr));
    return reply == nullptr ? xcb_window_t{XCB_NONE} : reply->parent;
}

/// Which of the parent's children, as they are cut, holds a pixel of `window`.
xcb_window_t childAt(xcb_window_t parent, xcb_window_t window, std::int32_t x, std::int32_t y) {
    const auto request = xcb_translate_coordinates(
        server(), window, parent, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
    const Reply<xcb_translate_coordinates_reply_t> reply(
        xcb_translate_coordinates_reply(server(), request, nullptr));
    return reply == nullptr ? xcb_window_t{XCB_NONE} : reply->child;
}

} // namespace

void startWorld() {
    startPlatformOnce();
    removeHostFolder();
    fs::create_directories(hostFolder());
}

std::string scratchFolder() { return playerPath(hostFolder()); }

std::string makeFile(const std::string& name, const std::string& text) {
    const fs::path path = hostPath(name);
    std::ofstream(path, std::ios::binary) << text;
    return playerPath(path);
}

std::string makeHiddenFile(const std::string& name) { return makeFile(name, ""); }

std::string makeFolder(const std::string& name) {
    const fs::path path = hostPath(name);
    fs::create_directories(path);
    return playerPath(path);
}

std::string makeHiddenFolder(const std::string& name) { return makeFolder('.' + name); }

std::string makeWave(const std::string& name, int milliseconds) {
    return makeFile(name, toneFile(static_cast<std::uint32_t>(milliseconds)));
}

bool waitUntil(const std::function<bool()>& condition) {
    const std::uint64_t limit = clock() + 10'000;
    while (!condition()) {
        if (clock() > limit) return condition();
        platform::yieldToEvents();
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

void letPass(int milliseconds) {
    const std::uint64_t end = clock() + static_cast<std::uint64_t>(milliseconds);
    while (clock() < end) {
        platform::yieldToEvents();
        std::this_thread::sleep_for(1ms);
    }
}

std::uint64_t clock() {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
}

void keepNextMenuOpen() {}
void keepNextMessageOpen() {}

void closeWhatIsOpen() {
    QWidget* open = QApplication::activePopupWidget();
    if (open == nullptr) open = shownDialog();
    if (open != nullptr) open->close();
}

void click(platform::WindowHandle window, std::int32_t x, std::int32_t y) {
    const QPoint place = platform::findWindow(window)->mapToGlobal(QPoint(x, y));
    xdotool("mousemove " + std::to_string(place.x()) + ' ' + std::to_string(place.y()) +
            " click 1");
}

platform::Rect outerArea(platform::WindowHandle window) {
    const xcb_window_t screen = xcb_setup_roots_iterator(xcb_get_setup(server())).data->root;
    auto outer = static_cast<xcb_window_t>(platform::findWindow(window)->winId());
    while (parentOf(outer) != screen)
        outer = parentOf(outer);
    const Reply<xcb_get_geometry_reply_t> area(
        xcb_get_geometry_reply(server(), xcb_get_geometry(server(), outer), nullptr));
    const std::int32_t borders = 2 * area->border_width;
    return {area->x, area->y, area->x + area->width + borders, area->y + area->height + borders};
}

bool isShown(platform::WindowHandle window) {
    return isOnScreen(static_cast<xcb_window_t>(platform::findWindow(window)->winId()));
}

void minimise(platform::WindowHandle window) {
    const platform::WindowWidget* const widget = platform::findWindow(window);
    const auto id = static_cast<xcb_window_t>(widget->winId());
    // Qt asks for the focus once it is told of the showing, and that would end the icon again.
    waitUntil([&] { return isOnScreen(id) && widget->isActiveWindow(); });
    xdotool("windowminimize " + std::to_string(id));
}

bool isMinimised(platform::WindowHandle window) {
    constexpr std::uint32_t iconicState = 3;
    const auto id = static_cast<xcb_window_t>(platform::findWindow(window)->winId());
    const xcb_atom_t name = platform::x::atom("WM_STATE");
    const auto state = platform::x::property(id, name, name);
    return !state.empty() && state.front() == iconicState;
}

bool inShape(platform::WindowHandle window, std::int32_t x, std::int32_t y) {
    const platform::WindowWidget* const widget = platform::findWindow(window);
    if (widget == nullptr) return false;
    const auto id = static_cast<xcb_window_t>(widget->winId());
    // The window manager takes a while to show it.
    if (!waitUntil([&] { return isOnScreen(id); })) return false;
    return childAt(parentOf(id), id, x, y) == id;
}

} // namespace contract
