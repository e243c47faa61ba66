#include "tests/contract/world.h"

#include "platform/desktop.h"
#include "platform/device_pixels.h"
#include "platform/windows/display.h"
#include "platform/windows/handles.h"
#include "tests/contract/tone.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace contract {
namespace {

namespace fs = std::filesystem;

const fs::path& folder() {
    static const fs::path path =
        fs::temp_directory_path() / ("orvan-contract-" + std::to_string(GetCurrentProcessId()));
    return path;
}

void removeFolder() {
    std::error_code ignored;
    fs::remove_all(folder(), ignored);
}

void startPlatformOnce() {
    static const bool started = [] {
        static char name[] = "contract-windows";
        static char* arguments[] = {name, nullptr};
        folder(); // made before the promise to remove it, so that it is still there then
        std::atexit(removeFolder);
        return platform::start(1, arguments);
    }();
    if (!started) std::exit(1);
}

fs::path pathOf(const std::string& name) {
    const fs::path path = folder() / name;
    fs::create_directories(path.parent_path());
    return path;
}

/// A client pixel on the display, for a window without a frame whose corner stands there.
platform::Rect onDisplay(platform::Point corner, std::int32_t x, std::int32_t y) {
    const double scale = platform::displayScale();
    const platform::Rect place = platform::deviceRect(
        {corner.x + x, corner.y + y, corner.x + x + 1, corner.y + y + 1}, scale);
    const std::int32_t left = platform::deviceEdge(corner.x, scale);
    const std::int32_t top = platform::deviceEdge(corner.y, scale);
    return {place.left - left, place.top - top, place.right - left, place.bottom - top};
}

/// Whether half of an area at least lies in a region.
bool isIn(HRGN region, const platform::Rect& area) {
    int balance = 0;
    for (std::int32_t y = area.top; y < area.bottom; ++y)
        for (std::int32_t x = area.left; x < area.right; ++x)
            balance += PtInRegion(region, x, y) != FALSE ? 1 : -1;
    return balance >= 0;
}

/// Message boxes are dialogs of the system's own class.
BOOL CALLBACK closeDialog(HWND window, LPARAM /*unused*/) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wstring_view(name) == L"#32770") PostMessageW(window, WM_COMMAND, IDOK, 0);
    return TRUE;
}

} // namespace

void startWorld() {
    startPlatformOnce();
    removeFolder();
    fs::create_directories(folder());
}

std::string scratchFolder() { return folder().string(); }

std::string makeFile(const std::string& name, const std::string& text) {
    const fs::path path = pathOf(name);
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
}

std::string makeHiddenFile(const std::string& name) {
    std::string path = makeFile(name, "");
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
    return path;
}

std::string makeFolder(const std::string& name) {
    const fs::path path = pathOf(name);
    fs::create_directories(path);
    return path.string();
}

std::string makeHiddenFolder(const std::string& name) {
    std::string path = makeFolder(name);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
    return path;
}

std::string makeWave(const std::string& name, int milliseconds) {
    return makeFile(name, toneFile(static_cast<std::uint32_t>(milliseconds)));
}

bool waitUntil(const std::function<bool()>& condition) {
    const std::uint64_t limit = clock() + 10'000;
    while (!condition()) {
        if (clock() > limit) return condition();
        platform::yieldToEvents();
        Sleep(1);
    }
    return true;
}

void letPass(int milliseconds) {
    const std::uint64_t end = clock() + static_cast<std::uint64_t>(milliseconds);
    while (clock() < end) {
        platform::yieldToEvents();
        Sleep(1);
    }
}

std::uint64_t clock() { return GetTickCount64(); }

void keepNextMenuOpen() {}
void keepNextMessageOpen() {}

void closeWhatIsOpen() {
    EndMenu();
    EnumThreadWindows(GetCurrentThreadId(), closeDialog, 0);
}

void click(platform::WindowHandle window, std::int32_t x, std::int32_t y) {
    const platform::Rect pixel = onDisplay({0, 0}, x, y);
    POINT place = {pixel.left, pixel.top};
    ClientToScreen(platform::windowOf(window), &place);
    SetCursorPos(place.x, place.y);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

platform::Rect outerArea(platform::WindowHandle window) {
    RECT area = {};
    GetWindowRect(platform::windowOf(window), &area);
    return platform::nearestEdges({area.left, area.top, area.right, area.bottom},
                                  platform::displayScale());
}

bool isShown(platform::WindowHandle window) {
    return IsWindowVisible(platform::windowOf(window)) != FALSE;
}

void minimise(platform::WindowHandle window) {
    ShowWindow(platform::windowOf(window), SW_MINIMIZE);
}

bool isMinimised(platform::WindowHandle window) {
    return IsIconic(platform::windowOf(window)) != FALSE;
}

bool inShape(platform::WindowHandle window, std::int32_t x, std::int32_t y) {
    const HWND handle = platform::windowOf(window);
    if (IsWindowVisible(handle) == FALSE) return false;
    RECT client = {};
    GetClientRect(handle, &client);
    const HRGN shape = CreateRectRgn(0, 0, 0, 0);
    const bool cut = GetWindowRgn(handle, shape) != ERROR;
    const platform::Rect outer = outerArea(window);
    const platform::Rect pixel = onDisplay({outer.left, outer.top}, x, y);
    const bool inside =
        cut ? isIn(shape, pixel) : PtInRect(&client, {pixel.left, pixel.top}) != FALSE;
    DeleteObject(shape);
    return inside;
}

} // namespace contract
