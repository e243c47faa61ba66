#include "platform/accessibility.h"
#include "platform/system.h"
#include "platform/window.h"
#include "tests/contract/reader.h"
#include "tests/contract/reader_scene.h"
#include "tests/contract/world.h"

#include <cstddef>
#include <cstdint>
#include <doctest/doctest.h>
#include <string>
#include <vector>

using namespace platform;
using contract::Read;
using contract::Scene;

TEST_CASE("a reader gets what shows in a window: names, places, states and texts") {
    const Scene scene;
    CHECK(contract::readName(scene.handle()) == "Scene");
    const std::vector<Read> read = contract::readThings(scene.handle());
    REQUIRE(read.size() == 6);
    const std::size_t numbers[] = {0, 2, 3, 4, 5, 6};
    for (std::size_t n = 0; n < read.size(); ++n) {
        const AccessibleThing& thing = scene.things[numbers[n]];
        CAPTURE(thing.name);
        CHECK(read[n].name == thing.name);
        CHECK(read[n].area == thing.area);
        CHECK(read[n].pressed == thing.pressed);
        CHECK(read[n].usable);
    }
    CHECK(read[1].checked);
    CHECK_FALSE(read[4].checked);
    CHECK(read[3].value == "Zeit 01:23 \xC3\xA4");
    CHECK(read[2].number == 25);
}

TEST_CASE("a reader gets the rows of a list and which of them is selected") {
    const Scene scene;
    CHECK(contract::readThings(scene.handle())[4].rows == 3);
    const std::vector<Read> rows = contract::readRows(scene.handle(), 4);
    REQUIRE(rows.size() == 3);
    for (std::size_t n = 0; n < rows.size(); ++n) {
        CAPTURE(n);
        CHECK(rows[n].name == scene.names[n]);
        CHECK(rows[n].selected == (n == 1));
        CHECK(rows[n].description == (n == 1 ? "Playing" : ""));
        const auto top = static_cast<std::int32_t>(45 + 10 * n);
        CHECK(rows[n].area == Rect{10, top, 110, top + 10});
    }
}

TEST_CASE("what a reader has done reaches the window") {
    Scene scene;
    contract::act(scene.handle(), 0);
    contract::act(scene.handle(), 1);
    contract::act(scene.handle(), 4, 2);
    contract::select(scene.handle(), 4, 0);
    contract::setNumber(scene.handle(), 2, 62.5);
    CHECK(scene.diary == std::vector<std::string>{"act: Pause", "act: Shuffle", "act: Tracks 2",
                                                  "select: Tracks 0", "set to 625: Volume"});
}

TEST_CASE("a reader that points finds the thing there, the last one where several lie") {
    const Scene scene;
    CHECK(contract::thingAt(scene.handle(), 20, 15) == 0);
    CHECK(contract::thingAt(scene.handle(), 105, 50) == 5);
    CHECK(contract::thingAt(scene.handle(), 50, 70) == 4);
    CHECK(contract::thingAt(scene.handle(), 3, 3) == -1);
}

TEST_CASE("a thing that can't be used now tells so") {
    Scene scene;
    scene.things[3].usable = false;
    CHECK_FALSE(contract::readThings(scene.handle())[2].usable);
}

TEST_CASE("a reader gets the platform's own push button behind the window's things") {
    const Scene scene;
    createPushButton(scene.handle(), {"&Close", {80, 55, 118, 78}, {}, {}}, [] {});
    const std::vector<Read> read = contract::readThings(scene.handle());
    REQUIRE(read.size() == 7);
    CHECK(read.back().name == "Close");
    CHECK(read.back().area == Rect{80, 55, 118, 78});
}

TEST_CASE("changes can be told, of every kind, and a reader gets what is true by then") {
    Scene scene;
    REQUIRE(contract::readThings(scene.handle()).size() == 6);
    REQUIRE(contract::readRows(scene.handle(), 4).size() == 3);
    scene.things[5].rows = 1;
    scene.things[5].selectedRow = 0;
    scene.things[0].pressed = false;
    scene.things[4].value = "02:00";
    using Change = AccessibleChange;
    tellReaders(scene.handle(), {0}, Change::State);
    tellReaders(scene.handle(), {4}, Change::Value);
    tellReaders(scene.handle(), {3}, Change::Value);
    tellReaders(scene.handle(), {6}, Change::Vanished);
    tellReaders(scene.handle(), {6}, Change::Appeared);
    tellReaders(scene.handle(), {0}, Change::Name);
    tellReaders(scene.handle(), {5}, Change::Rows);
    tellReaders(scene.handle(), {5, 0}, Change::SelectedRow);
    contract::letPass(50);
    CHECK_FALSE(contract::readThings(scene.handle())[0].pressed);
    CHECK(contract::readThings(scene.handle())[3].value == "02:00");
    CHECK(contract::readRows(scene.handle(), 4).size() == 1);
}

TEST_CASE("a window takes input while it shows and no modal one keeps the user from it") {
    const Scene scene;
    CHECK(takesInput(scene.handle()));
    WindowOptions options;
    options.frame = Frame::Dialog;
    options.position = {400, 300};
    options.size = {120, 80};
    const WindowHandle box = createWindow(options, WindowEvents());
    CHECK_FALSE(takesInput(box));
    bool below = true;
    bool above = false;
    const contract::Timer timer(20, [&] {
        below = takesInput(scene.handle());
        above = takesInput(box);
        showWindow(box, false);
    });
    showWindowModal(box);
    CHECK_FALSE(below);
    CHECK(above);
    CHECK(takesInput(scene.handle()));
    destroyWindow(box);
    showWindow(scene.handle(), false);
    CHECK_FALSE(takesInput(scene.handle()));
}

TEST_CASE("the pointer's place is the one that stands in for it, for as long as that is told") {
    const Scene scene;
    Point before;
    GetCursorPos(&before);
    standInForPointer(Point{17, 19});
    Point told;
    GetCursorPos(&told);
    CHECK(told == Point{17, 19});
    standInForPointer({});
    GetCursorPos(&told);
    CHECK(told == before);
}
