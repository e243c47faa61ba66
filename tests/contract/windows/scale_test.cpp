#include "platform/desktop.h"
#include "platform/device_pixels.h"
#include "platform/regions.h"
#include "platform/system.h"
#include "platform/windows/display.h"
#include "platform/windows/handles.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

using namespace platform;

// What the system itself says, at whatever resolution the tests are run; 96 is one of them.

namespace {

constexpr Size windowSize{276, 82}; // as the player's own

const std::vector<Point> places{{30, 31}, {31, 32}, {33, 33}, {-7, 47}, {102, -45}};

double scale() { return displayScale(); }

/// A window whose picture has stripes on the display, every row and column unlike its neighbours.
struct Striped {
    explicit Striped(Size picture = {deviceEdge(windowSize.width, scale()),
                                     deviceEdge(windowSize.height, scale())})
        : stripes(picture.width, picture.height) {
        for (std::int32_t y = 0; y < stripes.height; ++y)
            for (std::int32_t x = 0; x < stripes.width; ++x)
                stripes.row(y)[x] = colourAt(x, y);
        WindowOptions options;
        options.title = "Striped";
        options.position = places[0];
        options.size = windowSize;
        WindowEvents events;
        events.paint = [this]() -> const Picture& { return stripes; };
        events.moved = [this](Point corner) { told.push_back(corner); };
        events.pointer = [this](const PointerEvent& event) { pointer.push_back(event); };
        handle = createWindow(options, std::move(events));
    }
    ~Striped() { destroyWindow(handle); }
    Striped(const Striped&) = delete;
    Striped& operator=(const Striped&) = delete;

    static Pixel colourAt(std::int32_t x, std::int32_t y) {
        return 0xFF000000U | static_cast<Pixel>(x * 37 % 256) << 16U |
               static_cast<Pixel>(y * 53 % 256) << 8U | 0x80U;
    }
    void moveTo(Point place) const {
        platform::MoveWindow(handle, place.x, place.y, windowSize.width, windowSize.height, true);
    }
    void cutAsThePlayer() const {
        const RegionHandle block =
            platform::CreateRectRgn(0, 15, windowSize.width, windowSize.height);
        const RegionHandle round =
            platform::CreateRoundRectRgn(0, 0, windowSize.width + 1, windowSize.height + 1, 15, 15);
        platform::CombineRgn(block, round, block, RGN_OR);
        platform::SetWindowRgn(handle, block, -1);
    }
    [[nodiscard]] HWND window() const { return windowOf(handle); }
    [[nodiscard]] RECT area() const {
        RECT area = {};
        GetWindowRect(window(), &area);
        return area;
    }
    /// The box of its shape on the display.
    [[nodiscard]] Rect shape() const {
        RECT box = {};
        REQUIRE(GetWindowRgnBox(window(), &box) != ERROR);
        const RECT at = area();
        return {at.left + box.left, at.top + box.top, at.left + box.right, at.top + box.bottom};
    }

    Picture stripes;
    std::vector<Point> told;
    std::vector<PointerEvent> pointer;
    WindowHandle handle = 0;
};

COLORREF shownAt(HDC device, std::int32_t x, std::int32_t y) { return GetPixel(device, x, y); }

COLORREF colourOf(Pixel pixel) {
    return RGB(pixel >> 16U & 0xFFU, pixel >> 8U & 0xFFU, pixel & 0xFFU);
}

} // namespace

TEST_CASE("a display has 15 twips a pixel, and pictures as fine as its resolution, up to 4 times") {
    const Striped window;
    const HDC screen = GetDC(nullptr);
    const double resolution = GetDeviceCaps(screen, LOGPIXELSX) / 96.0;
    ReleaseDC(nullptr, screen);
    CHECK(twipsPerPixelX() == 15.0F);
    CHECK(twipsPerPixelY() == 15.0F);
    CHECK(pictureScale(window.handle) == std::min(resolution, 4.0));
    const Size screenNow = screenSize();
    CHECK(screenNow.width == nearestEdge(GetSystemMetrics(SM_CXSCREEN), resolution));
    CHECK(screenNow.height == nearestEdge(GetSystemMetrics(SM_CYSCREEN), resolution));
    RECT work = {};
    REQUIRE(::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0) != FALSE);
    Rect told;
    CHECK(platform::SystemParametersInfoA(SPI_GETWORKAREA, 0, &told, 0));
    CHECK(told == nearestEdges({work.left, work.top, work.right, work.bottom}, resolution));
}

TEST_CASE("a window stands on the display where its pixels begin there, and is told its own") {
    Striped window;
    for (const Point place : places) {
        const Size room = deviceRoom(place, windowSize, scale());
        CAPTURE(place.x);
        window.told.clear();
        window.moveTo(place);
        const RECT area = window.area();
        CHECK(area.left == deviceEdge(place.x, scale()));
        CHECK(area.top == deviceEdge(place.y, scale()));
        CHECK(area.right - area.left == room.width);
        CHECK(area.bottom - area.top == room.height);
        // At 30, 31 it stands already.
        if (place == places[0]) continue;
        REQUIRE_FALSE(window.told.empty());
        CHECK(window.told.back() == place);
    }
}

TEST_CASE("a window that the system puts between two of its pixels is told the nearest") {
    Striped window;
    const int across = deviceEdge(50, scale());
    ::SetWindowPos(window.window(), nullptr, across + 1, deviceEdge(60, scale()), 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    REQUIRE_FALSE(window.told.empty());
    CHECK(window.told.back() == Point{nearestEdge(across + 1, scale()), 60});
}

TEST_CASE("two docked windows touch on the display without a gap or an overlap where they stand") {
    const Striped upper;
    const Striped lower;
    upper.cutAsThePlayer();
    lower.cutAsThePlayer();
    for (const Point place : places) {
        CAPTURE(place.x);
        upper.moveTo(place);
        lower.moveTo({place.x, place.y + windowSize.height});
        const Rect above = upper.shape();
        const Rect below = lower.shape();
        CHECK(above.bottom == below.top);
        CHECK(above.left == below.left);
        CHECK(above.right == below.right);
        CHECK(above.left == deviceEdge(place.x, scale()));
        CHECK(above.right == deviceEdge(place.x + windowSize.width, scale()));
    }
}

TEST_CASE("the pointer's place is the player's pixel that it is on") {
    // A stand-in ends with what the pointer does, and here it does nothing to a window.
    standInForPointer(std::nullopt);
    for (const std::int32_t at : {0, 1, 2, 3, 100, 101, 102, 103, 104, 105}) {
        CAPTURE(at);
        REQUIRE(SetCursorPos(at + 300, at) != FALSE);
        POINT where = {};
        REQUIRE(::GetCursorPos(&where) != FALSE);
        Point told;
        CHECK(platform::GetCursorPos(&told));
        CHECK(told == pixelUnder(Point{where.x, where.y}, scale()));
    }
}

TEST_CASE("what the pointer does is told at the window's pixel, outside of it too") {
    Striped window;
    for (const Point place : {Point{0, 0}, {13, 7}, {275, 81}, {-3, -1}, {400, 90}}) {
        for (const std::int32_t last : {0, 1}) {
            const Point device{deviceEdge(place.x + last, scale()) - last,
                               deviceEdge(place.y + last, scale()) - last};
            window.pointer.clear();
            SendMessageW(window.window(), WM_MOUSEMOVE, 0,
                         MAKELPARAM(device.x, device.y)); // NOLINT: the system's macro
            REQUIRE_FALSE(window.pointer.empty());
            CHECK(window.pointer.back().position == place);
        }
    }
}

TEST_CASE(
    "a picture painted for the display is shown pixel for pixel, its last ones where it ends") {
    const Striped window;
    showWindow(window.handle, true);
    contract::letPass(200);
    paintNow(window.handle);
    const HDC device = GetDC(window.window());
    const Size room = deviceRoom(places[0], windowSize, scale());
    for (const std::int32_t x : {0, 1, 2, room.width / 2, room.width - 2, room.width - 1})
        for (const std::int32_t y : {0, 1, 2, room.height / 2, room.height - 2, room.height - 1}) {
            CAPTURE(x);
            CAPTURE(y);
            const std::int32_t column = std::min(x, window.stripes.width - 1);
            const std::int32_t row = std::min(y, window.stripes.height - 1);
            CHECK(shownAt(device, x, y) == colourOf(Striped::colourAt(column, row)));
        }
    ReleaseDC(window.window(), device);
}

TEST_CASE("a picture of the window's own size fills it on the display") {
    Striped window(windowSize);
    window.stripes = Picture(windowSize.width, windowSize.height, 0xFF446688U);
    showWindow(window.handle, true);
    contract::letPass(200);
    requestPaint(window.handle);
    paintNow(window.handle);
    const HDC device = GetDC(window.window());
    const Size room = deviceRoom(places[0], windowSize, scale());
    for (const Point place : {Point{0, 0}, {room.width - 1, 0}, {room.width - 1, room.height - 1}})
        CHECK(shownAt(device, place.x, place.y) == RGB(0x44, 0x66, 0x88));
    ReleaseDC(window.window(), device);
}

TEST_CASE("a push button lies on the display where its pixels do, in letters of that size") {
    const Striped window;
    const Rect area{10, 11, 95, 36};
    PushButton button;
    button.caption = "OK";
    button.area = area;
    createPushButton(window.handle, button, [] {});
    const HWND made = FindWindowExW(window.window(), nullptr, L"BUTTON", nullptr);
    REQUIRE(made != nullptr);
    RECT found = {};
    GetWindowRect(made, &found);
    const RECT outer = window.area();
    const Rect wanted = deviceRect(area, scale());
    CHECK(found.left - outer.left == wanted.left);
    CHECK(found.top - outer.top == wanted.top);
    CHECK(found.right - outer.left == wanted.right);
    CHECK(found.bottom - outer.top == wanted.bottom);
    LOGFONTW font = {};
    const auto inUse = reinterpret_cast<HFONT>(SendMessageW(made, WM_GETFONT, 0, 0));
    REQUIRE(GetObjectW(inUse, sizeof font, &font) != 0);
    CHECK(font.lfHeight == -deviceEdge(11, scale()));
}
