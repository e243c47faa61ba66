#include "platform/simulated/world.h"
#include "toolkit/form.h"
#include "toolkit/image.h"

#include <doctest/doctest.h>
#include <new>
#include <string>
#include <utility>

using simulated::world;

namespace {

toolkit::FormData data() {
    toolkit::FormData form;
    form.bounds = {0, 0, 1500, 750}; // 100 x 50 pixels
    return form;
}

/// A window with a key at 10, 10 of 20 x 10 pixels, which has a tooltip, and one below it without.
struct Keys {
    Keys() {
        simulated::reset();
        told.place(window, "told", {150, 150, 300, 150}, true, "Told");
        plain.place(window, "plain", {150, 300, 300, 150}, true, "");
        window.add(told);
        window.add(plain);
        window.Show();
        handle = window.hWnd();
    }
    [[nodiscard]] std::string tooltip() const { return simulated::window(handle).tooltip; }

    toolkit::Image told, plain;
    toolkit::Form window{data()};
    platform::WindowHandle handle = 0;
};

} // namespace

TEST_CASE("a key that is moved or resized under the pointer brings its tooltip along") {
    Keys keys;
    simulated::moveTo(keys.handle, 60, 15);
    CHECK(keys.tooltip().empty());
    keys.told.Left(900);
    CHECK(keys.tooltip() == "Told");
    keys.told.Top(450);
    CHECK(keys.tooltip().empty());
    keys.told.Top(150);
    CHECK(keys.tooltip() == "Told");
}

TEST_CASE("what comes to show where the pointer has left the window has no tooltip") {
    Keys keys;
    keys.told.Visible(false);
    simulated::moveTo(keys.handle, 15, 15);
    simulated::moveToScreen(700, 700);
    keys.told.Visible(true);
    CHECK(keys.tooltip().empty());
}

TEST_CASE("before anything is told of the pointer nothing has a tooltip, in no corner") {
    Keys keys;
    keys.told.Left(0);
    keys.told.Top(0);
    CHECK(keys.tooltip().empty());
    simulated::moveTo(keys.handle, 0, 0);
    CHECK(keys.tooltip() == "Told");
}

TEST_CASE("a press is where the pointer is, also when nothing was told of it before") {
    Keys keys;
    keys.told.Visible(false);
    std::string seen;
    keys.plain.MouseDown = [&](const auto&) {
        keys.told.Top(300);
        keys.told.Visible(true);
        seen = keys.tooltip();
    };
    simulated::pressAt(keys.handle, 15, 25);
    CHECK(seen == "Told");
    simulated::release();
}

TEST_CASE("a window that its key's press has closed shows no tooltip") {
    Keys keys;
    keys.told.Visible(false);
    keys.plain.MouseDown = [&](const auto&) {
        keys.told.Top(300);
        keys.told.Visible(true);
        keys.window.Unload();
    };
    simulated::pressAt(keys.handle, 15, 25);
    CHECK_FALSE(keys.window.loaded());
    CHECK(world.messages.fatal.empty());
}

TEST_CASE("memory that ran out is the fatal end, with its number") {
    Keys keys;
    keys.plain.MouseDown = [](const auto&) { throw std::bad_alloc(); };
    CHECK_THROWS_AS(simulated::pressAt(keys.handle, 15, 25), simulated::ProcessEnded);
    REQUIRE(world.messages.fatal.size() == 1);
    CHECK(world.messages.fatal[0].starts_with("Run-time error 7: "));
}

TEST_CASE("a form's size is the window's") {
    Keys keys;
    keys.window.Width(900);
    CHECK(simulated::window(keys.handle).size == platform::Size{60, 50});
    keys.window.Height(300);
    CHECK(simulated::window(keys.handle).size == platform::Size{60, 20});
    CHECK(simulated::picture(keys.handle).height == 20);
    keys.window.Height(450);
    CHECK(simulated::picture(keys.handle).height == 30);
}

TEST_CASE("a form that is hidden while it isn't loaded stays hidden, whatever its loading shows") {
    Keys keys;
    keys.window.Unload();
    keys.window.Load = [&] { keys.window.Show(); };
    keys.window.Hide();
    CHECK(keys.window.loaded());
    CHECK_FALSE(keys.window.Visible());
}

TEST_CASE("a form that was shown alone, and closed, is shown alone again") {
    Keys keys;
    keys.window.Unload();
    for (int time = 0; time < 2; ++time) {
        CAPTURE(time);
        simulated::after(10, [&] { keys.window.Unload(); });
        keys.window.ShowModal();
        CHECK_FALSE(keys.window.loaded());
    }
}

TEST_CASE("a press tells its button, and a move without one none") {
    Keys keys;
    int moved = -1;
    int pressed = -1;
    keys.told.MouseMove = [&](const toolkit::MouseArguments& at) { moved = at.Button.value(); };
    keys.told.MouseDown = [&](const toolkit::MouseArguments& at) { pressed = at.Button.value(); };
    simulated::moveTo(keys.handle, 15, 15);
    CHECK(moved == 0);
    using platform::PointerButton;
    for (const auto& [button, number] :
         {std::pair{PointerButton::Left, 1}, std::pair{PointerButton::Right, 2},
          std::pair{PointerButton::Middle, 4}}) {
        simulated::pressAt(keys.handle, 15, 15, button);
        CHECK(pressed == number);
        simulated::release(button);
    }
}

TEST_CASE("a press that hides what it lands on shows none of its tooltip") {
    Keys keys;
    keys.told.MouseDown = [&](const auto&) { keys.told.Visible(false); };
    simulated::pressAt(keys.handle, 15, 15);
    REQUIRE_FALSE(keys.told.Visible());
    CHECK(simulated::window(keys.handle).tooltipsSet == 0);
}
