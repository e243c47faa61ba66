#include "platform/linux/tray_clicks.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <vector>

using Codes = std::vector<std::int32_t>;
using platform::TrayActivation;
using platform::TrayClicks;

TEST_CASE("a click on the tray icon is a press and a release") {
    TrayClicks clicks(400);
    CHECK(clicks.codesFor(TrayActivation::Click, 0) == Codes{513, 514});
    CHECK(clicks.codesFor(TrayActivation::MiddleClick, 10) == Codes{519, 520});
}

TEST_CASE("a click and a double click by the host are one double click") {
    TrayClicks clicks(400);
    CHECK(clicks.codesFor(TrayActivation::Click, 1000) == Codes{513, 514});
    CHECK(clicks.codesFor(TrayActivation::DoubleClick, 1100) == Codes{515, 514});
}

TEST_CASE("two clicks within the double-click time are one double click") {
    TrayClicks clicks(400);
    CHECK(clicks.codesFor(TrayActivation::Click, 1000) == Codes{513, 514});
    CHECK(clicks.codesFor(TrayActivation::Click, 1400) == Codes{515, 514});
}

TEST_CASE("two clicks further apart stay two clicks") {
    TrayClicks clicks(400);
    CHECK(clicks.codesFor(TrayActivation::Click, 1000) == Codes{513, 514});
    CHECK(clicks.codesFor(TrayActivation::Click, 1401) == Codes{513, 514});
    CHECK(clicks.codesFor(TrayActivation::Click, 1500) == Codes{515, 514});
}

TEST_CASE("a host that reports two clicks and a double click gives one double click") {
    TrayClicks clicks(400);
    CHECK(clicks.codesFor(TrayActivation::Click, 0) == Codes{513, 514});
    CHECK(clicks.codesFor(TrayActivation::Click, 100) == Codes{515, 514});
    CHECK(clicks.codesFor(TrayActivation::DoubleClick, 101).empty());
}

TEST_CASE("a third quick click is a first one again") {
    TrayClicks clicks(400);
    CHECK(clicks.codesFor(TrayActivation::Click, 0) == Codes{513, 514});
    CHECK(clicks.codesFor(TrayActivation::Click, 100) == Codes{515, 514});
    CHECK(clicks.codesFor(TrayActivation::Click, 200) == Codes{513, 514});
    CHECK(clicks.codesFor(TrayActivation::Click, 300) == Codes{515, 514});
}

TEST_CASE("a double click of the host's own is none of the clicks before it") {
    TrayClicks clicks(400);
    CHECK(clicks.codesFor(TrayActivation::DoubleClick, 0) == Codes{515, 514});
    CHECK(clicks.codesFor(TrayActivation::Click, 100) == Codes{513, 514});
    CHECK(clicks.codesFor(TrayActivation::DoubleClick, 200) == Codes{515, 514});
}
