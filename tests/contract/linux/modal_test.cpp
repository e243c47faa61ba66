#include "platform/linux/hook.h"
#include "platform/system.h"
#include "platform/window.h"
#include "tests/contract/linux/real_pointer.h"
#include "tests/contract/linux/shown_dialog.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QWidget>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

using namespace platform;
using contract::xdotool;

namespace {

/// Runs xdotool a good while after something modal has come up.
class Later {
  public:
    explicit Later(std::vector<std::string> steps) : steps_(std::move(steps)) {}

  private:
    void step() {
        const bool open =
            QApplication::activePopupWidget() != nullptr || contract::shownDialog() != nullptr;
        if (open && next_ < steps_.size()) xdotool(steps_[next_++]);
    }

    std::vector<std::string> steps_;
    std::size_t next_ = 0;
    contract::Timer timer_{400, [this] { step(); }};
};

const std::vector<MenuItem> items = {
    {"Maximized", 1, {}},
    {"Open", 0, {{"Open File", 2, {}}, {"Open Directory", 3, {}}}},
    {"Main", 0, {{"Play", 4, {}}, {"Stop", 5, {}}, {"Next", 6, {}}}},
    {"About", 7, {}},
    {"Exit", 8, {}},
};

std::int32_t pick(std::vector<std::string> steps) {
    const contract::Window window;
    showWindow(window.handle, true);
    xdotool("mousemove 240 180");
    contract::letPass(200);
    const Later later(std::move(steps));
    return popupMenu(window.handle, items);
}

} // namespace

TEST_CASE("a menu entry is picked by its first letter") { CHECK(pick({"key e"}) == 8); }

TEST_CASE("the entries of a sub-menu are picked by letters too") {
    CHECK(pick({"key o", "key Down", "key Return"}) == 3);
}

TEST_CASE("letters that several entries share only choose among them") {
    CHECK(pick({"key m", "key Return"}) == 1);
}

TEST_CASE("a letter pressed again goes on to the next of its entries") {
    CHECK(pick({"key m", "key m", "key s"}) == 5);
}

TEST_CASE("a menu entry is picked with the arrow keys") {
    CHECK(pick({"key Down", "key Return"}) == 1);
    CHECK(pick({"key Up", "key Return"}) == 8);
}

TEST_CASE("a menu entry is picked with the pointer, where the menu came up") {
    CHECK(pick({"mousemove 260 190 click 1"}) == 1);
}

TEST_CASE("a menu that is left by Escape or a click elsewhere picks nothing") {
    CHECK(pick({"key Escape"}) == 0);
    CHECK(pick({"mousemove 900 600 click 1"}) == 0);
}

TEST_CASE("a message box is closed by the keyboard") {
    const Later later({"key Return"});
    messageBox("There is <b>nothing</b> to play.", "Orvan", MessageIcon::Critical);
    CHECK(contract::shownDialog() == nullptr);
}

TEST_CASE("a modal window keeps the pointer from its owner, and its close box is told") {
    int presses = 0;
    int closings = 0;
    Picture dark(120, 80, 0xFF202020U);
    WindowEvents main;
    main.pointer = [&](const PointerEvent& event) {
        if (event.action == PointerAction::Press) ++presses;
    };
    main.paint = [&]() -> const Picture& { return dark; };
    const contract::Window window(std::move(main));
    showWindow(window.handle, true);
    contract::letPass(200);

    WindowOptions options;
    options.title = "About";
    options.frame = Frame::Dialog;
    options.position = {500, 300};
    options.size = {200, 100};
    WindowHandle box = 0;
    WindowEvents events;
    events.closing = [&] {
        ++closings;
        showWindow(box, false);
    };
    box = createWindow(options, std::move(events));
    {
        const Later later({"mousemove 230 170 click 1", "key alt+F4"});
        showWindowModal(box);
    }
    CHECK(closings == 1);
    CHECK(presses == 0);
    destroyWindow(box);

    REQUIRE(xdotool("mousemove 240 180 click 1"));
    CHECK(contract::waitUntil([&] { return presses == 1; }));
}

TEST_CASE("the window manager's closing is told, and closes nothing by itself") {
    int closings = 0;
    WindowEvents events;
    events.closing = [&] { ++closings; };
    const contract::Window window(std::move(events));
    showWindow(window.handle, true);
    REQUIRE(xdotool("mousemove 240 180 click 1"));
    contract::letPass(300);
    REQUIRE(xdotool("key alt+F4"));
    CHECK(contract::waitUntil([&] { return closings == 1; }));
    contract::letPass(100);
    CHECK(contract::inShape(window.handle, 5, 5));
}

TEST_CASE("a window may be destroyed in a message box that its own press opened") {
    bool done = false;
    WindowHandle window = 0;
    WindowEvents events;
    events.pointer = [&](const PointerEvent& event) {
        if (event.action != PointerAction::Press) return;
        const contract::Timer timer(50, [&] {
            destroyWindow(window);
            contract::closeWhatIsOpen();
        });
        messageBox("Text", "Title", MessageIcon::None);
        contract::letPass(50);
        done = true;
    };
    WindowOptions options;
    options.title = "Contract";
    options.position = {200, 150};
    options.size = {120, 80};
    window = createWindow(options, std::move(events));
    showWindow(window, true);
    contract::letPass(200);
    REQUIRE(xdotool("mousemove 240 180 click 1"));
    CHECK(contract::waitUntil([&] { return done; }));
    CHECK_FALSE(MoveWindow(window, 0, 0, 10, 10, false));
}

TEST_CASE("a hook window gets the tray's codes until its parent is destroyed") {
    std::vector<std::int32_t> codes;
    WindowHandle hook = 0;
    {
        const contract::Window parent;
        hook = createHookWindow(parent.handle, [&](std::int32_t code) { codes.push_back(code); });
        deliverTrayCode(hook, 513);
        deliverTrayCode(parent.handle, 514);
    }
    deliverTrayCode(hook, 515);
    CHECK(codes == std::vector<std::int32_t>{513});
}

TEST_CASE("a hook may destroy itself") {
    const contract::Window parent;
    int calls = 0;
    WindowHandle hook = 0;
    hook = createHookWindow(parent.handle, [&](std::int32_t) {
        destroyWindow(hook);
        ++calls;
    });
    deliverTrayCode(hook, 513);
    deliverTrayCode(hook, 513);
    CHECK(calls == 1);
}
