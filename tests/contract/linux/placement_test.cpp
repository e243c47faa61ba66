#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/linux/x_server.h"
#include "platform/system.h"
#include "platform/window.h"
#include "tests/contract/linux/real_pointer.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

using namespace platform;
using contract::screenPixel;
using contract::xdotool;

namespace {

constexpr Pixel colour = 0xFFCC6633U;

struct Placed {
    Picture picture{120, 80, colour};
    std::vector<Point> told;
    WindowHandle handle = 0;

    explicit Placed(Point place) {
        contract::parkPointer();
        WindowOptions options;
        options.title = "Placed";
        options.position = place;
        options.size = {120, 80};
        WindowEvents events;
        events.moved = [this](Point corner) { told.push_back(corner); };
        events.paint = [this]() -> const Picture& { return picture; };
        handle = createWindow(options, std::move(events));
    }
    Placed(const Placed&) = delete;
    Placed& operator=(const Placed&) = delete;
    ~Placed() { destroyWindow(handle); }
};

bool standsAt(Point corner) {
    return contract::waitUntil([&] {
        return screenPixel(corner) == colour && screenPixel({corner.x - 1, corner.y}) != colour &&
               screenPixel({corner.x, corner.y - 1}) != colour &&
               screenPixel({corner.x + 119, corner.y + 79}) == colour &&
               screenPixel({corner.x + 120, corner.y + 79}) != colour;
    });
}

xcb_window_t windowOf(WindowHandle window) {
    return static_cast<xcb_window_t>(findWindow(window)->winId());
}

/// Tells the program that its window stands there, as a window manager does before it has placed
/// it.
void tellPlace(WindowHandle window, Point place) {
    xcb_configure_notify_event_t told{};
    told.response_type = XCB_CONFIGURE_NOTIFY;
    told.event = told.window = windowOf(window);
    told.x = static_cast<std::int16_t>(place.x);
    told.y = static_cast<std::int16_t>(place.y);
    told.width = 120;
    told.height = 80;
    std::array<char, 32> words{}; // what the server reads of an event
    std::memcpy(words.data(), &told, sizeof(told));
    xcb_send_event(x::server(), 0, told.window, XCB_EVENT_MASK_STRUCTURE_NOTIFY, words.data());
}

/// Whether the window manager makes an icon of the window, while no event reaches the player.
bool becomesIconUntold(WindowHandle window) {
    const std::uint64_t limit = contract::clock() + 10'000;
    while (!contract::isMinimised(window)) {
        if (contract::clock() > limit) return false;
        Sleep(1);
    }
    return true;
}

} // namespace

TEST_CASE("a window appears where it was asked to") {
    const Placed placed({417, 333});
    showWindow(placed.handle, true);
    CHECK(standsAt({417, 333}));
    contract::letPass(200);
    CHECK(placed.told.empty());
}

TEST_CASE("a window that is hidden and shown again stays where it was") {
    const Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    MoveWindow(placed.handle, 123, 321, 120, 80, true);
    showWindow(placed.handle, false);
    contract::letPass(100);
    CHECK(screenPixel({124, 322}) != colour);
    showWindow(placed.handle, true);
    CHECK(standsAt({123, 321}));
}

TEST_CASE("a window that is moved while hidden appears at its new place") {
    const Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    showWindow(placed.handle, false);
    contract::letPass(100);
    MoveWindow(placed.handle, 500, 400, 120, 80, true);
    showWindow(placed.handle, true);
    CHECK(standsAt({500, 400}));
}

TEST_CASE("a window may be moved off the screen, and be shown there") {
    const Placed placed({-100, -40});
    showWindow(placed.handle, true);
    CHECK(contract::waitUntil([] { return screenPixel({19, 39}) == colour; }));
    CHECK(screenPixel({20, 39}) != colour);
    CHECK(screenPixel({19, 40}) != colour);
    MoveWindow(placed.handle, -90, -60, 120, 80, true);
    CHECK(contract::waitUntil([] { return screenPixel({29, 19}) == colour; }));
    CHECK(contract::waitUntil([] { return screenPixel({29, 20}) != colour; }));
    contract::letPass(200);
    CHECK(placed.told == std::vector<Point>{{-90, -60}});
}

TEST_CASE("a fast drag tells each place once, and no old one afterwards") {
    const Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    std::vector<Point> expected;
    for (int step = 1; step <= 200; ++step) {
        const Point corner{300 + step % 50, 200 + step};
        MoveWindow(placed.handle, corner.x, corner.y, 120, 80, true);
        expected.push_back(corner);
        if (step % 7 == 0) platform::Sleep(1);
        if (step % 3 == 0) contract::letPass(1);
    }
    CHECK(standsAt({300, 400}));
    contract::letPass(300);
    CHECK(placed.told == expected);
}

TEST_CASE("a move back to an older place is carried out, whatever echoes are under way") {
    const Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    for (int round = 0; round < 20; ++round) {
        MoveWindow(placed.handle, 310, 200, 120, 80, true);
        MoveWindow(placed.handle, 320, 200, 120, 80, true);
        contract::letPass(round % 5);
        MoveWindow(placed.handle, 310, 200, 120, 80, true);
    }
    CHECK(standsAt({310, 200}));
    contract::letPass(200);
    CHECK(standsAt({310, 200}));
}

TEST_CASE("a move that the window manager makes is told") {
    const Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    contract::letPass(500); // no more of its placing
    REQUIRE(xdotool("search --onlyvisible --name '^Placed$' windowmove 444 222"));
    REQUIRE(contract::waitUntil([&] { return !placed.told.empty(); }));
    CHECK(placed.told == std::vector<Point>{{444, 222}});
    CHECK(standsAt({444, 222}));
}

TEST_CASE("a window keeps its place, however many others it is given on the way to the screen") {
    const Placed placed({300, 200});
    xcb_grab_server(x::server()); // the window manager comes after all this
    showWindow(placed.handle, true);
    for (const Point way : {Point{-15, -15}, Point{302, 218}, Point{-15, -15}}) {
        tellPlace(placed.handle, way);
        x::awaitServer();
        contract::letPass(1);
    }
    xcb_ungrab_server(x::server());
    CHECK(standsAt({300, 200}));
    contract::letPass(200);
    CHECK(placed.told.empty());
}

TEST_CASE("a window that has only just been seen is put back at its place, too") {
    bool inTime = false;
    for (int time = 0; time < 100 && !inTime; ++time) {
        const Placed placed({300, 200});
        const std::uint64_t start = contract::clock();
        showWindow(placed.handle, true);
        REQUIRE(standsAt({300, 200}));
        tellPlace(placed.handle, {302, 218});
        x::awaitServer();
        contract::letPass(1);
        // On a busy machine the player may take it for the user's move by then.
        inTime = contract::clock() - start < 150;
        if (inTime) CHECK(placed.told.empty());
    }
    CHECK(inTime);
}

TEST_CASE(
    "where the window manager puts a window that was on no screen is told, wherever that is") {
    const Point nowhere{5000, 200};
    Point put;
    {
        const Placed placed(nowhere);
        showWindow(placed.handle, true);
        REQUIRE(contract::waitUntil([&] { return !placed.told.empty(); }));
        put = placed.told.back();
        REQUIRE(put.x < 1024);
    }
    // A place that the window had while it was hidden is no less news.
    const Placed placed(put);
    MoveWindow(placed.handle, nowhere.x, nowhere.y, 120, 80, true);
    showWindow(placed.handle, true);
    CHECK(contract::waitUntil([&] { return placed.told.back() == put; }));
}

TEST_CASE("a window that was on no screen isn't brought back to a place on its way to the screen") {
    const Point nowhere{5000, 200};
    const Point way{-15, -15};
    const Placed placed(nowhere);
    xcb_grab_server(x::server()); // the window manager comes after this
    showWindow(placed.handle, true);
    tellPlace(placed.handle, way);
    x::awaitServer();
    contract::letPass(1);
    xcb_ungrab_server(x::server());
    x::awaitServer();
    REQUIRE(contract::waitUntil([&] { return !placed.told.empty() && placed.told.back() != way; }));
    contract::letPass(500); // until it must have been placed
    const Point put = placed.told.back();
    CHECK(put != way);
    const auto stands = x::placeOf(windowOf(placed.handle));
    CHECK(Point{stands.x, stands.y} == put);
}

TEST_CASE("a window takes its new size from a move") {
    Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    placed.picture = Picture(150, 90, colour);
    MoveWindow(placed.handle, 300, 200, 150, 90, true);
    CHECK(contract::waitUntil([] { return screenPixel({449, 289}) == colour; }));
    CHECK(screenPixel({450, 289}) != colour);
    CHECK(screenPixel({449, 290}) != colour);
}

TEST_CASE("a window that the user has minimised comes back where it was when it is shown") {
    const Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    REQUIRE(xdotool("search --onlyvisible --name '^Placed$' windowminimize"));
    REQUIRE(contract::waitUntil([] { return screenPixel({300, 200}) != colour; }));
    contract::letPass(100);
    showWindow(placed.handle, true);
    CHECK(standsAt({300, 200}));
    contract::letPass(200);
    CHECK(placed.told.empty());
}

TEST_CASE("a window comes out of an icon that it has become before it was told") {
    void (*const ways[])(WindowHandle) = {[](WindowHandle window) { setNormalState(window); },
                                          [](WindowHandle window) { showWindow(window, true); }};
    for (const auto restore : ways) {
        const Placed placed({300, 200});
        showWindow(placed.handle, true);
        REQUIRE(standsAt({300, 200}));
        contract::letPass(100);
        contract::minimise(placed.handle);
        REQUIRE(becomesIconUntold(placed.handle));
        restore(placed.handle);
        CHECK(contract::waitUntil([&] { return !contract::isMinimised(placed.handle); }));
        CHECK(standsAt({300, 200}));
    }
}

TEST_CASE("showing a window that is shown brings it to the front") {
    const Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    contract::letPass(200);
    Picture dark(120, 80, 0xFF101010U);
    WindowEvents events;
    events.paint = [&]() -> const Picture& { return dark; };
    const contract::Window other(std::move(events));
    MoveWindow(other.handle, 310, 210, 120, 80, true);
    showWindow(other.handle, true);
    REQUIRE(contract::waitUntil([] { return screenPixel({320, 220}) == Pixel{0xFF101010U}; }));
    contract::letPass(200);
    showWindow(placed.handle, true);
    CHECK(standsAt({300, 200}));
    CHECK(contract::waitUntil([] { return screenPixel({320, 220}) == colour; }));
}

TEST_CASE("what a window is told to paint is on the screen when the call returns") {
    Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    contract::letPass(200);
    for (const Pixel other : {0xFF10C020U, 0xFF8040F0U, 0xFFFFFFFFU}) {
        placed.picture = Picture(120, 80, other);
        requestPaint(placed.handle);
        paintNow(placed.handle);
        CHECK(screenPixel({300, 200}) == other);
        CHECK(screenPixel({419, 279}) == other);
    }
}

TEST_CASE("the normal state ends the desktop's showing of itself alone") {
    const Placed placed({300, 200});
    showWindow(placed.handle, true);
    REQUIRE(standsAt({300, 200}));
    x::askWindowManager(x::atom("_NET_SHOWING_DESKTOP"), x::root(), {1});
    x::awaitServer();
    REQUIRE(contract::waitUntil([] { return screenPixel({300, 200}) != colour; }));
    CHECK(setNormalState(placed.handle));
    CHECK(standsAt({300, 200}));
}
