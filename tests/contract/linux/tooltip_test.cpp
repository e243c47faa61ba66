#include "platform/window.h"
#include "tests/contract/linux/real_pointer.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QToolTip>
#include <QWidget>

#include <algorithm>
#include <cstdint>
#include <string>

using namespace platform;
using contract::xdotool;

namespace {

/// A window that has a tooltip wherever the pointer is over it.
struct Tipped {
    int presses = 0;
    contract::Window window{[this] {
        WindowEvents events;
        events.pointer = [this](const PointerEvent& event) {
            if (event.action == PointerAction::Press) ++presses;
            setTooltip(window.handle, event.action == PointerAction::Leave ? "" : "Play & more");
        };
        return events;
    }()};

    Tipped() {
        contract::parkPointer();
        showWindow(window.handle, true);
        contract::letPass(200);
    }
};

/// The window in which a tooltip shows.
const QWidget* tipShown() {
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->inherits("QTipLabel") && window->isVisible();
    });
    return found == windows.end() ? nullptr : *found;
}

bool showsTip() { return QToolTip::isVisible() && QToolTip::text() == "Play &amp; more"; }

} // namespace

TEST_CASE("a tooltip shows once the pointer rests, and goes with its text") {
    const Tipped tipped;
    const std::uint64_t start = contract::clock();
    REQUIRE(xdotool("mousemove 240 180"));
    REQUIRE(contract::waitUntil(showsTip));
    CHECK(contract::clock() - start >= 600);
    setTooltip(tipped.window.handle, "");
    CHECK(contract::waitUntil([] { return !QToolTip::isVisible(); }));
}

TEST_CASE("a tooltip shows while a button is held, too") {
    const Tipped tipped;
    REQUIRE(xdotool("mousemove 240 180 mousedown 1"));
    CHECK(contract::waitUntil(showsTip));
    REQUIRE(xdotool("mouseup 1"));
}

TEST_CASE("a press where a tooltip shows goes to the window under it") {
    const Tipped tipped;
    REQUIRE(xdotool("mousemove 210 150"));
    REQUIRE(contract::waitUntil([] { return QToolTip::isVisible(); }));
    contract::letPass(100);
    const QWidget* const tip = tipShown();
    REQUIRE(tip != nullptr);
    const QPoint place = tip->geometry().center();
    REQUIRE(xdotool("mousemove " + std::to_string(place.x()) + ' ' + std::to_string(place.y()) +
                    " click 1"));
    CHECK(contract::waitUntil([&] { return tipped.presses == 1; }));
}

TEST_CASE("a tooltip whose window is hidden does not come up") {
    const Tipped tipped;
    REQUIRE(xdotool("mousemove 240 180"));
    contract::letPass(100);
    showWindow(tipped.window.handle, false);
    contract::letPass(1000);
    CHECK_FALSE(QToolTip::isVisible());
}
