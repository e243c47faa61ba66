#include "platform/simulated/world.h"
#include "platform/system.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace simulated;
using platform::PointerAction;
using platform::PointerEvent;

namespace {

const char* nameOf(PointerAction action) {
    switch (action) {
    case PointerAction::Move:
        return "move";
    case PointerAction::Press:
        return "press";
    case PointerAction::Release:
        return "release";
    case PointerAction::Wheel:
        return "wheel";
    case PointerAction::Leave:
        return "leave";
    }
    return "";
}

/// A shown window of 120 x 80 at (200, 150) that writes down what the pointer does to it.
struct Sheet {
    std::vector<PointerEvent> events;
    std::string story;
    contract::Window window{listening()};

    Sheet() { platform::showWindow(window.handle, true); }

    platform::WindowEvents listening() {
        platform::WindowEvents result;
        result.pointer = [this](const PointerEvent& event) {
            events.push_back(event);
            story += std::string(story.empty() ? "" : " ") + nameOf(event.action);
        };
        return result;
    }
};

} // namespace

TEST_CASE("a click is a press and a release with the pointer there") {
    Sheet sheet;
    click(sheet.window.handle, 10, 20);
    CHECK(sheet.story == "press release");
    CHECK(sheet.events[0].button == PointerButton::Left);
    CHECK(sheet.events[0].buttonsHeld);
    CHECK(sheet.events[0].position == platform::Point{10, 20});
    CHECK_FALSE(sheet.events[0].secondPress);
    CHECK_FALSE(sheet.events[1].buttonsHeld);
    platform::Point cursor;
    CHECK(platform::GetCursorPos(&cursor));
    CHECK(cursor == platform::Point{210, 170});
}

TEST_CASE("only the second press of a double click says so") {
    Sheet sheet;
    doubleClick(sheet.window.handle, 10, 20, PointerButton::Right);
    REQUIRE(sheet.story == "press release press release");
    CHECK_FALSE(sheet.events[0].secondPress);
    CHECK(sheet.events[2].secondPress);
    CHECK(sheet.events[2].button == PointerButton::Right);
}

TEST_CASE("a press captures the pointer until all buttons are up") {
    Sheet sheet;
    Sheet other;
    platform::MoveWindow(other.window.handle, 600, 400, 120, 80, true);
    pressAt(sheet.window.handle, 10, 20);
    moveToScreen(610, 410);
    pressAt(sheet.window.handle, 300, 300, PointerButton::Right);
    release(PointerButton::Left);
    moveToScreen(611, 411);
    release(PointerButton::Right);
    CHECK(sheet.story == "press move press release move release leave");
    CHECK(sheet.events[1].position == platform::Point{410, 260});
    CHECK(other.story.empty());
    moveToScreen(612, 412);
    CHECK(other.story == "move");
}

TEST_CASE("a window hears when the pointer leaves it") {
    Sheet sheet;
    moveTo(sheet.window.handle, 5, 5);
    moveToScreen(10, 10);
    moveToScreen(11, 11);
    CHECK(sheet.story == "move leave");
}

TEST_CASE("the upper of two windows gets the pointer") {
    Sheet below;
    Sheet above;
    moveToScreen(210, 160);
    CHECK(above.story == "move");
    CHECK(below.story.empty());
    pressAt(below.window.handle, 10, 10); // comes to the front
    release();
    CHECK(below.story == "press release");
}

TEST_CASE("places outside a window's shape can't be pressed") {
    Sheet sheet;
    CHECK_THROWS_AS(click(sheet.window.handle, 120, 10), std::logic_error);
    platform::SetWindowRgn(sheet.window.handle, platform::CreateRectRgn(10, 10, 120, 80), -1);
    CHECK_THROWS_AS(click(sheet.window.handle, 5, 5), std::logic_error);
    click(sheet.window.handle, 10, 10);
    CHECK(sheet.story == "press release");
}

TEST_CASE("what no hand can do fails the test") {
    Sheet sheet;
    const platform::WindowHandle handle = sheet.window.handle;
    CHECK_THROWS_AS(release(), std::logic_error);
    pressAt(handle, 1, 1);
    CHECK_THROWS_AS(pressAt(handle, 1, 1), std::logic_error);
    release();
    platform::showWindow(handle, false);
    CHECK_THROWS_AS(click(handle, 1, 1), std::logic_error);
    CHECK_THROWS_AS(typeKey(handle, Key::Down), std::logic_error);
    CHECK_THROWS_AS(click(handle + 100, 1, 1), std::logic_error);
}

TEST_CASE("a window that is destroyed by its own press may be") {
    platform::WindowHandle handle = 0;
    platform::WindowEvents events;
    std::string seen = "nothing";
    const std::string kept = "a text too long to be held inside the closure itself";
    events.pointer = [&seen, &handle, kept](const PointerEvent&) {
        platform::destroyWindow(handle);
        seen = kept;
    };
    platform::WindowOptions options;
    options.size = {10, 10};
    handle = platform::createWindow(options, events);
    platform::showWindow(handle, true);
    pressAt(handle, 5, 5);
    release();
    CHECK(seen == kept);
    CHECK_THROWS_AS(window(handle), std::logic_error);
    platform::destroyWindow(handle);
}

TEST_CASE("while a message box is open no window hears the user") {
    Sheet sheet;
    world.messages.whileOpen([&] {
        click(sheet.window.handle, 10, 10);
        typeKey(sheet.window.handle, Key::Down);
    });
    platform::messageBox("Text", "Title", platform::MessageIcon::None);
    CHECK(sheet.story.empty());
    click(sheet.window.handle, 10, 10);
    CHECK(sheet.story == "press release");
}

TEST_CASE("while a modal window is open its owner doesn't hear the user") {
    Sheet sheet;
    Sheet box;
    onModalWindow([&] {
        click(sheet.window.handle, 10, 10);
        click(box.window.handle, 10, 10);
        platform::showWindow(box.window.handle, false);
    });
    platform::showWindowModal(box.window.handle);
    CHECK(sheet.story.empty());
    CHECK(box.story == "press release");
}

TEST_CASE("a modal window that nobody closes fails the test instead of hanging it") {
    Sheet sheet;
    Sheet box;
    platform::startTimer(100, [] {});
    CHECK_THROWS_AS(platform::showWindowModal(box.window.handle), std::logic_error);
}

TEST_CASE("keys and the wheel reach their window") {
    Sheet sheet;
    wheelAt(sheet.window.handle, 3, 4, -3);
    REQUIRE(sheet.story == "wheel");
    CHECK(sheet.events[0].wheelRows == -3);

    std::string typed;
    platform::WindowEvents events;
    events.key = [&](const platform::KeyEvent& event) {
        typed += event.text.empty() ? "<key>" : event.text;
    };
    const contract::Window keyed(std::move(events));
    platform::showWindow(keyed.handle, true);
    typeKey(keyed.handle, Key::PageDown);
    typeText(keyed.handle, "q");
    typeKey(keyed.handle, Key::Space);
    CHECK(typed == "<key>q ");
}

TEST_CASE("a posted press arrives inside a yield") {
    Sheet sheet;
    post([&] { pressAt(sheet.window.handle, 1, 1); });
    after(100, [] { release(); });
    CHECK(sheet.story.empty());
    platform::yieldToEvents();
    CHECK(sheet.story == "press");
    platform::Sleep(100);
    platform::yieldToEvents();
    CHECK(sheet.story == "press release");
}

TEST_CASE("paint is asked for once before the loop waits, and not while a window is hidden") {
    const platform::Picture picture(120, 80);
    platform::WindowEvents events;
    events.paint = [&]() -> const platform::Picture& { return picture; };
    const contract::Window window(std::move(events));
    const Window& record = simulated::window(window.handle);
    platform::requestPaint(window.handle);
    run();
    CHECK(record.paints == 0);
    platform::showWindow(window.handle, true);
    CHECK(record.paints == 0);
    run();
    CHECK(record.paints == 1);
    platform::requestPaint(window.handle);
    platform::requestPaint(window.handle);
    platform::Sleep(500);
    CHECK(record.paints == 1);
    run();
    run();
    CHECK(record.paints == 2);
    CHECK(simulated::picture(window.handle) == picture);
}
