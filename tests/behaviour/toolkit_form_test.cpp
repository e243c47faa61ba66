#include "platform/simulated/world.h"
#include "platform/system.h"
#include "toolkit/event_loop.h"
#include "toolkit/form.h"
#include "toolkit/guard.h"
#include "toolkit/image.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/picture_box.h"
#include "toolkit/timer.h"

#include <algorithm>
#include <cstdint>
#include <doctest/doctest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using platform::PointerButton;
using simulated::world;

namespace {

platform::Picture plain(std::int32_t width, std::int32_t height, platform::Pixel colour) {
    platform::Picture picture(width, height);
    toolkit::fill({picture}, {0, 0, width, height}, colour);
    return picture;
}

constexpr platform::Pixel blue = 0xFF0000FFU;
constexpr platform::Pixel green = 0xFF00FF00U;
constexpr platform::Pixel black = 0xFF000000U;

/// A window of 100 x 50 pixels with one control of each kind, and a diary of what they were told.
struct Scene {
    Scene() {
        simulated::reset();
        image.place(window, "image", {150, 150, 300, 150}, true, "");       // 10, 10, 20 x 10
        cover.place(window, "cover", {150, 150, 150, 150}, false, "Cover"); // 10, 10, 10 x 10
        label.place(window, "label", {600, 150, 300, 150}, true, "Label");  // 40, 10, 20 x 10
        box.place(window, "box", {1050, 150, 300, 150}, true, "");          // 70, 10, 20 x 10
        list.place(window, "list", {150, 450, 600, 240}, true, "");         // 10, 30, 40 x 16
        image.setPicture(plain(20, 10, blue));
        cover.setPicture(plain(10, 10, green));
        box.setPicture(plain(10, 30, green));
        for (toolkit::Control* control : controls()) {
            window.add(*control);
            tell(*control);
        }
        window.MouseDown = [this](const auto& at) { write("window down", at); };
        window.MouseMove = [this](const auto& at) { write("window move", at); };
        window.MouseUp = [this](const auto& at) { write("window up", at); };
    }

    std::vector<toolkit::Control*> controls() { return {&cover, &image, &label, &box, &list}; }

    void tell(toolkit::Control& control) {
        const std::string name = control.name();
        control.MouseDown = [=, this](const auto& at) { write(name + " down", at); };
        control.MouseMove = [=, this](const auto& at) { write(name + " move", at); };
        control.MouseUp = [=, this](const auto& at) { write(name + " up", at); };
        control.Click = [=, this] { diary.push_back(name + " click"); };
        control.DblClick = [=, this] { diary.push_back(name + " double"); };
    }

    void write(const std::string& what, const toolkit::MouseArguments& at) {
        diary.push_back(what);
        last = at;
    }

    /// Shows the window; its number.
    platform::WindowHandle show() {
        window.Show();
        return window.hWnd();
    }

    /// What was written since the last look.
    std::vector<std::string> read() { return std::exchange(diary, {}); }

    toolkit::Image image, cover;
    toolkit::Label label;
    toolkit::PictureBox box;
    toolkit::ListBox list;
    toolkit::Form window{toolkit::FormData{
        .caption = "Scene", .bounds = {150, 300, 1500, 750}, .picture = plain(30, 30, blue)}};
    std::vector<std::string> diary;
    toolkit::MouseArguments last;
};

using Diary = std::vector<std::string>;

// Places of that window, in pixels.
constexpr platform::Point onImage{12, 14}; // on the cover, when that shows
constexpr platform::Point besideCover{25, 14};
constexpr platform::Point onLabel{45, 15};
constexpr platform::Point onBox{75, 15};
constexpr platform::Point onList{15, 35};
constexpr platform::Point onBackground{35, 25};
constexpr platform::Point farOutside{-500, 400};

void moveTo(platform::WindowHandle window, platform::Point at) {
    simulated::moveTo(window, at.x, at.y);
}
void pressAt(platform::WindowHandle window, platform::Point at,
             PointerButton button = PointerButton::Left) {
    simulated::pressAt(window, at.x, at.y, button);
}
void click(platform::WindowHandle window, platform::Point at,
           PointerButton button = PointerButton::Left) {
    simulated::click(window, at.x, at.y, button);
}

} // namespace

TEST_CASE("a form loads at the first touch of a property, of its own or of a control") {
    for (int touch = 0; touch < 4; ++touch) {
        CAPTURE(touch);
        Scene scene;
        int loads = 0;
        scene.window.Load = [&] { ++loads; };
        CHECK_FALSE(scene.window.loaded());
        if (touch == 0) scene.window.Width(1500);
        if (touch == 1) (void)scene.label.Caption();
        if (touch == 2) scene.image.Visible(false);
        if (touch == 3) scene.list.AddItem("x");
        CHECK(loads == 1);
        scene.window.Left(30);
        CHECK(loads == 1);
        CHECK_FALSE(scene.window.Visible());
    }
}

TEST_CASE("an unloaded form loads afresh at the next touch") {
    Scene scene;
    int loads = 0;
    int asked = 0;
    scene.window.Load = [&] { ++loads; };
    scene.window.QueryUnload = [&] { ++asked; };
    scene.window.Left(900);
    scene.window.Unload();
    scene.window.Unload();
    CHECK(asked == 1);
    CHECK_FALSE(scene.window.loaded());
    CHECK(scene.window.Left() == 150);
    CHECK(loads == 2);
}

TEST_CASE("positions read back as they were set, in twips, until the user moves the window") {
    Scene scene;
    const auto window = scene.show();
    scene.window.Left(1007.5F);
    scene.window.Top(-33);
    CHECK(scene.window.Left() == 1007.5F);
    CHECK(scene.window.Top() == -33);
    CHECK(simulated::window(window).position == platform::Point{67, -2});
    simulated::moveByWindowManager(window, {200, 100});
    CHECK(scene.window.Left() == 3000);
    CHECK(scene.window.Top() == 1500);
}

TEST_CASE("a press goes to the topmost visible control, and background presses to the form") {
    Scene scene;
    const auto window = scene.show();
    pressAt(window, onImage);
    CHECK(scene.read() == Diary{"image down"});
    CHECK(scene.last.X == 30);
    CHECK(scene.last.Y == 60);
    CHECK(scene.last.Button == 1);
    simulated::release();
    scene.read();
    scene.cover.Visible(true);
    pressAt(window, onImage, PointerButton::Right);
    CHECK(scene.read() == Diary{"cover down"});
    CHECK(scene.last.Button == 2);
    simulated::release(PointerButton::Right);
    scene.read();
    pressAt(window, besideCover, PointerButton::Middle);
    CHECK(scene.read() == Diary{"image down"});
    CHECK(scene.last.Button == 4);
    simulated::release(PointerButton::Middle);
    scene.read();
    click(window, onBackground);
    CHECK(scene.read() == Diary{"window down", "window up"});
    CHECK(scene.last.X == onBackground.x * 15);
    CHECK(scene.last.Y == onBackground.y * 15);
}

TEST_CASE("the edges of a control belong to it as its pixels do") {
    Scene scene;
    const auto window = scene.show();
    const auto hit = [&](std::int32_t x, std::int32_t y) {
        scene.read();
        simulated::click(window, x, y);
        return scene.read().front();
    };
    CHECK(hit(40, 10) == "label down");
    CHECK(hit(59, 19) == "label down");
    CHECK(hit(39, 10) == "window down");
    CHECK(hit(60, 10) == "window down");
    CHECK(hit(40, 9) == "window down");
    CHECK(hit(40, 20) == "window down");
}

TEST_CASE("a control without handlers takes its presses all the same") {
    Scene scene;
    const auto window = scene.show();
    scene.image.MouseDown = nullptr;
    scene.image.MouseUp = nullptr;
    scene.image.Click = nullptr;
    click(window, onImage);
    CHECK(scene.read().empty());
}

TEST_CASE("a press captures moves and the release, even by a control hidden meanwhile") {
    Scene scene;
    const auto window = scene.show();
    scene.image.MouseDown = [&](const auto&) {
        scene.image.Visible(false);
        scene.cover.Visible(true);
    };
    pressAt(window, onImage);
    moveTo(window, {onImage.x + 1, onImage.y});
    moveTo(window, onLabel);
    moveTo(window, farOutside);
    CHECK(scene.last.X == -510 * 15);
    CHECK(scene.last.Y == 390 * 15);
    simulated::release();
    CHECK(scene.read() == Diary{"image move", "image move", "image move", "image up"});
    moveTo(window, onLabel);
    CHECK(scene.read() == Diary{"label move"});
}

TEST_CASE("the capture lasts until all buttons are up") {
    Scene scene;
    const auto window = scene.show();
    pressAt(window, onLabel);
    pressAt(window, onImage, PointerButton::Right);
    simulated::release();
    moveTo(window, onBox);
    CHECK(scene.read() == Diary{"label down", "label down", "label up", "label move"});
    simulated::release(PointerButton::Right);
    scene.read();
    moveTo(window, {onBox.x, onBox.y + 1});
    CHECK(scene.read() == Diary{"box move"});
}

TEST_CASE("the background captures too") {
    Scene scene;
    const auto window = scene.show();
    pressAt(window, onBackground);
    moveTo(window, onLabel);
    simulated::release();
    CHECK(scene.read() == Diary{"window down", "window move", "window up"});
}

TEST_CASE("a release that never came does not hold the next press") {
    Scene scene;
    const auto window = scene.show();
    // A dialog over the held button takes the release away.
    pressAt(window, onLabel);
    world.windows.held.clear();
    world.windows.captured = 0;
    scene.read();
    click(window, onBox);
    CHECK(scene.read() == Diary{"box down", "box up", "box click"});
}

TEST_CASE("labels, images and picture boxes click with any button, the list box with the left") {
    struct Row {
        const char* name;
        platform::Point place;
        bool right;
    };
    for (const Row& row : {Row{"image", onImage, true}, Row{"label", onLabel, true},
                           Row{"box", onBox, true}, Row{"list", onList, false}}) {
        CAPTURE(row.name);
        Scene scene;
        const auto window = scene.show();
        const std::string name = row.name;
        const Diary clicked{name + " down", name + " up", name + " click"};
        const Diary unclicked{name + " down", name + " up"};
        click(window, row.place);
        CHECK(scene.read() == clicked);
        for (const PointerButton button : {PointerButton::Right, PointerButton::Middle}) {
            click(window, row.place, button);
            CHECK(scene.read() == (row.right ? clicked : unclicked));
        }
        simulated::doubleClick(window, row.place.x, row.place.y, PointerButton::Right);
        const Diary twice = scene.read();
        CHECK((std::find(twice.begin(), twice.end(), name + " double") != twice.end()) ==
              row.right);
    }
}

TEST_CASE("a click needs the pointer over the control at the release") {
    Scene scene;
    const auto window = scene.show();
    pressAt(window, onLabel);
    moveTo(window, onBox);
    moveTo(window, {onLabel.x + 13, onLabel.y + 3});
    simulated::release();
    CHECK(scene.read().back() == "label click");
    pressAt(window, onLabel);
    simulated::releaseAt(window, onBox.x, onBox.y);
    CHECK(scene.read().back() == "label up");
    pressAt(window, onBox);
    simulated::releaseAt(window, onLabel.x, onLabel.y);
    CHECK(scene.read().back() == "box up");
}

TEST_CASE("the second press of a double click is a press too, and the double click is its own") {
    Scene scene;
    const auto window = scene.show();
    simulated::doubleClick(window, onBox.x, onBox.y);
    CHECK(scene.read() == Diary{"box down", "box up", "box click", "box down", "box double",
                                "box up", "box click"});
    click(window, onList);
    scene.read();
    simulated::pressAgainAt(window, onList.x, onList.y);
    CHECK(scene.read() == Diary{"list down", "list double"});
    simulated::release();
}

TEST_CASE("the tooltip is that of the topmost visible control that has one, during a press too") {
    Scene scene;
    const auto window = scene.show();
    const auto tooltip = [&] { return simulated::window(window).tooltip; };
    moveTo(window, onImage);
    CHECK(tooltip().empty());
    scene.cover.Visible(true);
    CHECK(tooltip() == "Cover");
    moveTo(window, besideCover);
    CHECK(tooltip().empty());
    moveTo(window, onLabel);
    CHECK(tooltip() == "Label");
    // A press elsewhere is held: the tooltip follows the pointer all the same.
    pressAt(window, onBox);
    CHECK(tooltip().empty());
    moveTo(window, onLabel);
    CHECK(tooltip() == "Label");
    moveTo(window, {500, onLabel.y});
    CHECK(tooltip().empty());
    simulated::release();
    moveTo(window, onLabel);
    CHECK(tooltip() == "Label");
    simulated::moveToScreen(900, 700);
    CHECK(tooltip().empty());
}

TEST_CASE("a tooltip is set once, however far the pointer moves on its control") {
    Scene scene;
    const auto window = scene.show();
    for (int x = onLabel.x; x < onLabel.x + 10; ++x)
        moveTo(window, {x, onLabel.y});
    CHECK(simulated::window(window).tooltip == "Label");
    CHECK(simulated::window(window).tooltipsSet == 1);
    moveTo(window, onBox);
    moveTo(window, onBackground);
    CHECK(simulated::window(window).tooltipsSet == 2);
}

TEST_CASE("a control above without a tooltip lets the one below show its own") {
    Scene scene;
    toolkit::Image above;
    above.place(scene.window, "above", {600, 150, 300, 150}, true, "");
    toolkit::Form form({.caption = "Other", .bounds = {0, 0, 1500, 750}, .picture = {}});
    toolkit::Label below;
    below.place(form, "below", {600, 150, 300, 150}, true, "Below");
    above.place(form, "above", {600, 150, 300, 150}, true, "");
    form.add(above);
    form.add(below);
    form.Show();
    simulated::moveTo(form.hWnd(), 45, 15);
    CHECK(simulated::window(form.hWnd()).tooltip == "Below");
}

TEST_CASE("a form paints its picture first and its controls from the lowest to the topmost") {
    Scene scene;
    const auto window = scene.show();
    scene.cover.Visible(true);
    const platform::Picture shown = simulated::picture(window);
    REQUIRE(shown.width == 100);
    REQUIRE(shown.height == 50);
    CHECK(shown.row(0)[0] == blue);    // the form's own picture
    CHECK(shown.row(0)[30] == black);  // its back colour beside it
    CHECK(shown.row(12)[12] == green); // the cover above the image
    CHECK(shown.row(12)[25] == blue);
    CHECK(shown.row(12)[45] == black); // the label's box
    CHECK(shown.row(19)[79] == green); // the picture box, cropped to the box
    CHECK(shown.row(20)[79] == black);
    CHECK(shown.row(19)[80] == black); // its back colour beside its picture
    CHECK(shown.row(35)[15] == black); // the list
}

TEST_CASE("a form paints anew only when something changed") {
    Scene scene;
    const auto window = scene.show();
    simulated::run();
    const int before = simulated::window(window).paints;
    scene.label.Caption("");
    scene.image.Visible(true);
    scene.image.Left(150);
    simulated::run();
    CHECK(simulated::window(window).paints == before);
    scene.image.Left(165);
    scene.label.Caption("new");
    simulated::run();
    CHECK(simulated::window(window).paints == before + 1);
}

TEST_CASE("a control moves by its Left alone, to the nearest pixel") {
    Scene scene;
    scene.show();
    scene.image.Move(159.9F);
    CHECK(scene.image.Left() == 159.9F);
    CHECK(scene.image.Top() == 150);
    CHECK(scene.image.area().left == 11);
    scene.image.Move(-30000);
    CHECK(scene.image.area().left == -2000);
}

TEST_CASE("a timer ticks while it is enabled, at its interval, and stops with its form") {
    Scene scene;
    toolkit::Timer timer;
    int ticks = 0;
    timer.Tick = [&] { ++ticks; };
    timer.attach(scene.window, 100, false);
    scene.window.add(timer);
    scene.show();
    simulated::advance(1000);
    CHECK(ticks == 0);
    timer.Enabled(true);
    simulated::advance(60);
    // Enabling it again does not start the period anew.
    timer.Enabled(true);
    simulated::advance(40);
    CHECK(ticks == 1);
    simulated::advance(950);
    CHECK(ticks == 10);
    timer.Enabled(false);
    simulated::advance(1000);
    CHECK(ticks == 10);
    timer.Enabled(true);
    simulated::advance(99);
    CHECK(ticks == 10);
    timer.Interval(250);
    simulated::advance(249);
    CHECK(ticks == 10);
    simulated::advance(1);
    CHECK(ticks == 11);
    scene.window.Unload();
    simulated::advance(1000);
    CHECK(ticks == 11);
}

TEST_CASE("ticks that could not run are made up for by one") {
    Scene scene;
    toolkit::Timer timer;
    int ticks = 0;
    timer.Tick = [&] { ++ticks; };
    timer.attach(scene.window, 100, true);
    scene.show();
    platform::Sleep(1050);
    CHECK(ticks == 0);
    toolkit::yieldToEvents();
    CHECK(ticks == 1);
    simulated::advance(50);
    CHECK(ticks == 2);
}

TEST_CASE("an error that no trap takes is told and ends the process with status 1") {
    Scene scene;
    const auto window = scene.show();
    scene.image.MouseDown = [](const auto&) { runtime::raise(runtime::Overflow); };
    int status = -1;
    try {
        pressAt(window, onImage);
    } catch (const simulated::ProcessEnded& ended) {
        status = ended.status;
    }
    CHECK(status == 1);
    CHECK(world.messages.fatal == Diary{"Run-time error 6: Overflow"});
}
