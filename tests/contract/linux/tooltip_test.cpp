#include "platform/window.h"
#include "tests/contract/linux/real_pointer.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <QToolTip>

#include <cstdint>

using namespace platform;
using contract::xdotool;

namespace {

/// A window that has a tooltip wherever the pointer is over it.
struct Tipped {
    contract::Window window{[this] {
        WindowEvents events;
        events.pointer = [this](const PointerEvent& event) {
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

TEST_CASE("a tooltip whose window is hidden does not come up") {
    const Tipped tipped;
    REQUIRE(xdotool("mousemove 240 180"));
    contract::letPass(100);
    showWindow(tipped.window.handle, false);
    contract::letPass(1000);
    CHECK_FALSE(QToolTip::isVisible());
}
