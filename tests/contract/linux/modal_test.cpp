#include "platform/linux/hook.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/linux/x_server.h"
#include "platform/system.h"
#include "platform/window.h"
#include "tests/contract/linux/real_pointer.h"
#include "tests/contract/linux/shown_dialog.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
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

TEST_CASE("no letter of a menu is underlined") {
    // Of letters without a part below the line the lowest row is that of all of them.
    std::vector<int> lowest;
    const Later later({"mousemove 900 600", "key Escape"});
    const contract::Timer look(50, [&] {
        const QWidget* const menu = QApplication::activePopupWidget();
        if (menu == nullptr || !lowest.empty()) return;
        const QImage image = QPixmap(const_cast<QWidget*>(menu)->grab()).toImage();
        const int margin = 4; // of the menu's frame
        const QRgb back = image.pixel(image.width() - margin, margin);
        for (int y = image.height() - margin; y > margin && lowest.empty(); --y)
            for (int x = margin; x < image.width() - margin; ++x)
                if (image.pixel(x, y) != back) lowest.push_back(x);
    });
    const contract::Window window;
    popupMenu(window.handle, {{"iiiiiiiiiiiiiiiiiiii", 1, {}}});
    REQUIRE_FALSE(lowest.empty());
    CHECK(lowest.back() - lowest.front() > 40);
}

TEST_CASE("a menu that is left by Escape or a click elsewhere picks nothing") {
    CHECK(pick({"key Escape"}) == 0);
    CHECK(pick({"mousemove 900 600 click 1"}) == 0);
}

TEST_CASE("a menu that comes up right after the last window has gone stays") {
    const contract::Window window;
    showWindow(window.handle, true);
    REQUIRE(contract::waitUntil([] { return QApplication::activeWindow() != nullptr; }));
    showWindow(window.handle, false);
    contract::letPass(20);
    Sleep(150); // Qt is late with the news that the keyboard has gone elsewhere
    bool stays = false;
    const contract::Timer look{600, [&] {
                                   stays = QApplication::activePopupWidget() != nullptr;
                                   xdotool("key Escape");
                               }};
    popupMenu(window.handle, items);
    CHECK(stays);
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

namespace {

/// What a dialog's frame offers, and the dialog itself, as the window manager has it.
struct ShownBox {
    Picture picture{200, 100, 0xFF40C040U};
    WindowHandle handle = 0;

    ShownBox() {
        WindowOptions options;
        options.title = "Lost";
        options.frame = Frame::Dialog;
        options.position = {500, 300};
        options.size = {200, 100};
        WindowEvents events;
        events.paint = [this]() -> const Picture& { return picture; };
        handle = createWindow(options, std::move(events));
    }
    ShownBox(const ShownBox&) = delete;
    ShownBox& operator=(const ShownBox&) = delete;
    ~ShownBox() { destroyWindow(handle); }
};

} // namespace

TEST_CASE("a modal window that is made an icon is back at once") {
    const ShownBox box; // alone, so that no other window's activation brings it back
    int step = 0;
    bool back = false;
    const contract::Timer timer(50, [&] {
        if (!contract::isShown(box.handle) || step != 0) return;
        ++step;
        contract::letPass(200);
        contract::minimise(box.handle);
        contract::letPass(300);
        back = contract::waitUntil(
            [&] { return contract::isShown(box.handle) && !contract::isMinimised(box.handle); });
        showWindow(box.handle, false);
    });
    showWindowModal(box.handle);
    CHECK(back);
}

TEST_CASE("the space bar, Return and Escape click the button of a modal window") {
    const contract::Window owner;
    showWindow(owner.handle, true);
    for (const char* key : {"space", "Return", "KP_Enter", "Escape"}) {
        const ShownBox box;
        int clicks = 0;
        createPushButton(box.handle, {"&Close", {60, 60, 140, 90}, {}, {}}, [&] {
            ++clicks;
            showWindow(box.handle, false);
        });
        bool pressed = false;
        const contract::Timer timer(400, [&] {
            if (contract::isShown(box.handle) && !std::exchange(pressed, true))
                xdotool(std::string("key ") + key);
        });
        const contract::Timer patience(10'000, [&] { showWindow(box.handle, false); });
        showWindowModal(box.handle);
        CHECK(clicks == 1);
    }
}

TEST_CASE("a click on a window that a modal one bars brings the modal one to the front") {
    Picture dark(120, 80, 0xFF101010U);
    WindowEvents events;
    events.paint = [&]() -> const Picture& { return dark; };
    const contract::Window owner(std::move(events));
    showWindow(owner.handle, true);
    MoveWindow(owner.handle, 480, 300, 120, 80, true); // its right part lies over the box
    const ShownBox box;
    int step = 0;
    bool covered = false;
    bool inFront = false;
    const auto overlap = [] { return contract::screenPixel({590, 370}); };
    const contract::Timer timer(50, [&] {
        if (!contract::isShown(box.handle) || step != 0) return;
        ++step;
        contract::letPass(200);
        xdotool("search --onlyvisible --name '^Contract$' windowraise");
        covered = contract::waitUntil([&] { return overlap() == Pixel{0xFF101010U}; });
        xdotool("mousemove 485 310 click 1");
        inFront = contract::waitUntil([&] { return overlap() == box.picture.pixels.front(); });
        showWindow(box.handle, false);
    });
    showWindowModal(box.handle);
    CHECK(covered);
    CHECK(inFront);
}

TEST_CASE("showing a barred window leaves the modal one in front of it") {
    Picture dark(120, 80, 0xFF101010U);
    WindowEvents events;
    events.paint = [&]() -> const Picture& { return dark; };
    const contract::Window owner(std::move(events));
    MoveWindow(owner.handle, 480, 300, 120, 80, true);
    const ShownBox box;
    int step = 0;
    bool inFront = false;
    const auto overlap = [] { return contract::screenPixel({590, 370}); };
    const contract::Timer timer(50, [&] {
        if (!contract::isShown(box.handle) || step != 0) return;
        ++step;
        contract::letPass(200);
        showWindow(owner.handle, true);
        contract::waitUntil([&] {
            return contract::screenPixel({482, 305}) == Pixel{0xFF101010U};
        });
        contract::letPass(300);
        inFront = overlap() == box.picture.pixels.front();
        showWindow(box.handle, false);
    });
    showWindowModal(box.handle);
    CHECK(inFront);
}

TEST_CASE("a dialog asks for a frame that neither minimises nor maximises it") {
    const ShownBox box;
    const contract::Window owner;
    std::vector<std::uint32_t> hints;
    const contract::Timer timer(50, [&] {
        if (!contract::isShown(box.handle)) return;
        const xcb_atom_t name = x::atom("_MOTIF_WM_HINTS");
        hints = x::property(static_cast<xcb_window_t>(findWindow(box.handle)->winId()), name, name);
        showWindow(box.handle, false);
    });
    showWindowModal(box.handle);
    REQUIRE(hints.size() == 5);
    constexpr std::uint32_t minimiseAndMaximise = 8 | 16;
    constexpr std::uint32_t theirButtons = 32 | 64;
    CHECK((hints[1] & minimiseAndMaximise) == 0);
    CHECK((hints[2] & theirButtons) == 0);
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
