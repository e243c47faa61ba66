#include "platform/regions.h"
#include "platform/system.h"
#include "platform/window.h"
#include "tests/contract/linux/real_pointer.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include <QApplication>
#include <QEnterEvent>
#include <QWidget>

using namespace platform;
using contract::xdotool;

namespace {

/// A window of 120 x 80 pixels at (200, 150) that keeps what it is told.
struct Recorder {
    std::vector<PointerEvent> pointer;
    std::vector<KeyEvent> keys;
    Picture picture{120, 80, 0xFF3366CCU};
    contract::Window window{[this] {
        WindowEvents events;
        events.pointer = [this](const PointerEvent& event) { pointer.push_back(event); };
        events.key = [this](const KeyEvent& event) { keys.push_back(event); };
        events.paint = [this]() -> const Picture& { return picture; };
        return events;
    }()};

    Recorder() {
        contract::parkPointer();
        showWindow(window.handle, true);
        REQUIRE(contract::waitUntil([] {
            return contract::screenPixel({260, 190}) == Pixel{0xFF3366CCU};
        }));
        contract::letPass(100);
    }

    [[nodiscard]] std::vector<PointerEvent> only(PointerAction action) const {
        std::vector<PointerEvent> found;
        std::copy_if(pointer.begin(), pointer.end(), std::back_inserter(found),
                     [&](const PointerEvent& event) { return event.action == action; });
        return found;
    }

    [[nodiscard]] bool hasSeen(PointerAction action, std::size_t count) const {
        return contract::waitUntil([&] { return only(action).size() >= count; });
    }
};

} // namespace

TEST_CASE("a click tells its press and its release, in client pixels") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 210 155 click 1"));
    REQUIRE(recorder.hasSeen(PointerAction::Release, 1));
    const auto presses = recorder.only(PointerAction::Press);
    REQUIRE(presses.size() == 1);
    CHECK(presses[0].button == PointerButton::Left);
    CHECK(presses[0].position == Point{10, 5});
    CHECK(presses[0].buttonsHeld);
    CHECK_FALSE(presses[0].secondPress);
    CHECK_FALSE(recorder.only(PointerAction::Release)[0].buttonsHeld);
}

TEST_CASE("the second press of a double click is a press too") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 260 190 click --repeat 2 --delay 60 1"));
    REQUIRE(recorder.hasSeen(PointerAction::Release, 2));
    const auto presses = recorder.only(PointerAction::Press);
    REQUIRE(presses.size() == 2);
    CHECK_FALSE(presses[0].secondPress);
    CHECK(presses[1].secondPress);
}

TEST_CASE("two presses of different buttons are no double click") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 300 220 click 1 click 3"));
    REQUIRE(recorder.hasSeen(PointerAction::Release, 2));
    const auto presses = recorder.only(PointerAction::Press);
    REQUIRE(presses.size() == 2);
    CHECK_FALSE(presses[1].secondPress);
    CHECK(presses[1].button == PointerButton::Right);
}

TEST_CASE("the pointer moves over a window without a button") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 220 160 mousemove 230 170"));
    REQUIRE(contract::waitUntil([&] {
        const auto moves = recorder.only(PointerAction::Move);
        return !moves.empty() && moves.back().position == Point{30, 20};
    }));
    CHECK_FALSE(recorder.only(PointerAction::Move).back().buttonsHeld);
}

TEST_CASE("while a button is held the pointer belongs to the window, wherever it is") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 210 155 mousedown 1"));
    REQUIRE(recorder.hasSeen(PointerAction::Press, 1));
    REQUIRE(xdotool("mousemove 500 400 mousemove 20 30"));
    REQUIRE(contract::waitUntil([&] {
        const auto moves = recorder.only(PointerAction::Move);
        return !moves.empty() && moves.back().position == Point{-180, -120};
    }));
    CHECK(recorder.only(PointerAction::Move).back().buttonsHeld);
    REQUIRE(xdotool("mouseup 1"));
    REQUIRE(recorder.hasSeen(PointerAction::Release, 1));
    CHECK(recorder.only(PointerAction::Release)[0].position == Point{-180, -120});
}

TEST_CASE("a second button that goes up leaves the first one held") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 210 155 mousedown 1 mousedown 3 mouseup 3"));
    REQUIRE(recorder.hasSeen(PointerAction::Release, 1));
    CHECK(recorder.only(PointerAction::Release)[0].buttonsHeld);
    REQUIRE(xdotool("mouseup 1"));
    REQUIRE(recorder.hasSeen(PointerAction::Release, 2));
    CHECK_FALSE(recorder.only(PointerAction::Release)[1].buttonsHeld);
}

TEST_CASE("the move that brings the pointer over a window is told") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 217 163"));
    REQUIRE(recorder.hasSeen(PointerAction::Move, 1));
    CHECK(recorder.only(PointerAction::Move)[0].position == Point{17, 13});
}

TEST_CASE("the pointer's leaving is told") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 210 155"));
    REQUIRE(recorder.hasSeen(PointerAction::Move, 1));
    contract::parkPointer();
    CHECK(recorder.hasSeen(PointerAction::Leave, 1));
}

TEST_CASE("a notch of the wheel scrolls three rows, downwards positive") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 210 155 click 5"));
    REQUIRE(recorder.hasSeen(PointerAction::Wheel, 1));
    REQUIRE(xdotool("click 4"));
    REQUIRE(recorder.hasSeen(PointerAction::Wheel, 2));
    const auto turns = recorder.only(PointerAction::Wheel);
    CHECK(turns[0].wheelRows == 3);
    CHECK(turns[1].wheelRows == -3);
}

TEST_CASE("keys tell which they are and what they type") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 210 155 click 1"));
    REQUIRE(recorder.hasSeen(PointerAction::Release, 1));
    contract::letPass(200);
    REQUIRE(xdotool("key Down Home Tab Return space g ctrl+g"));
    REQUIRE(contract::waitUntil([&] { return recorder.keys.size() >= 8; }));
    const auto& keys = recorder.keys;
    CHECK(keys[0].key == Key::Down);
    CHECK(keys[0].text.empty());
    CHECK(keys[1].key == Key::Home);
    CHECK(keys[2].key == Key::Tab);
    CHECK(keys[2].text.empty());
    CHECK(keys[3].key == Key::Enter);
    CHECK(keys[3].text.empty());
    CHECK(keys[4].key == Key::Space);
    CHECK(keys[4].text == " ");
    CHECK(keys[5].key == Key::Other);
    CHECK(keys[5].text == "g");
    // The control key itself, then the command, which types nothing.
    CHECK(keys[7].text.empty());
}

TEST_CASE("the pointer's place on the screen is where it is now") {
    REQUIRE(xdotool("mousemove 321 234"));
    Point place;
    CHECK(GetCursorPos(&place));
    CHECK(place == Point{321, 234});
}

TEST_CASE("a window shows its picture to the pixel") {
    Recorder recorder;
    recorder.picture.row(0)[0] = 0xFFFF0000U;
    recorder.picture.row(79)[119] = 0xFF00FF00U;
    requestPaint(recorder.window.handle);
    CHECK(contract::waitUntil([] {
        return contract::screenPixel({200, 150}) == Pixel{0xFFFF0000U};
    }));
    CHECK(contract::waitUntil([] {
        return contract::screenPixel({319, 229}) == Pixel{0xFF00FF00U};
    }));
    CHECK(contract::screenPixel({201, 150}) == Pixel{0xFF3366CCU});
    CHECK(contract::screenPixel({199, 150}) != Pixel{0xFF3366CCU});
    CHECK(contract::screenPixel({320, 229}) != Pixel{0xFF3366CCU});
}

TEST_CASE("what a region cuts off a window neither shows nor can be pressed") {
    const Recorder recorder;
    SetWindowRgn(recorder.window.handle, CreateRoundRectRgn(0, 0, 121, 81, 15, 15), -1);
    CHECK(contract::waitUntil([] {
        return contract::screenPixel({200, 150}) != Pixel{0xFF3366CCU};
    }));
    CHECK(contract::screenPixel({204, 150}) != Pixel{0xFF3366CCU});
    CHECK(contract::screenPixel({205, 150}) == Pixel{0xFF3366CCU});
    CHECK(contract::screenPixel({200, 155}) == Pixel{0xFF3366CCU});
    REQUIRE(xdotool("mousemove 200 150 click 1 mousemove 205 150 click 1"));
    REQUIRE(recorder.hasSeen(PointerAction::Press, 1));
    contract::letPass(100);
    const auto presses = recorder.only(PointerAction::Press);
    REQUIRE(presses.size() == 1);
    CHECK(presses[0].position == Point{5, 0});
}

TEST_CASE("a pointer that is said to enter while a button is held still holds it") {
    const Recorder recorder;
    REQUIRE(xdotool("mousemove 210 155 mousedown 1"));
    REQUIRE(recorder.hasSeen(PointerAction::Press, 1));
    const std::size_t before = recorder.only(PointerAction::Move).size();
    // A window manager that has looked at the press gives the pointer back so.
    QWidget* const widget = QApplication::widgetAt(210, 155);
    REQUIRE(widget != nullptr);
    QEnterEvent enters({10, 5}, {10, 5}, {210, 155});
    QApplication::sendEvent(widget, &enters);
    const auto moves = recorder.only(PointerAction::Move);
    REQUIRE(moves.size() == before + 1);
    CHECK(moves.back().buttonsHeld);
    CHECK(moves.back().position == Point{10, 5});
    REQUIRE(xdotool("mouseup 1"));
    REQUIRE(recorder.hasSeen(PointerAction::Release, 1));
}
