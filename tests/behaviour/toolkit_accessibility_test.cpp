#include "platform/simulated/world.h"
#include "toolkit/accessible.h"
#include "toolkit/form.h"
#include "toolkit/label.h"

#include <doctest/doctest.h>
#include <string>
#include <vector>

using Words = std::vector<std::string>;

namespace {

toolkit::FormData data() {
    toolkit::FormData form;
    form.bounds = {150, 300, 1500, 750};
    return form;
}

/// A window with one thing, whose name is the caption of its label, before a reader that listens.
struct Told {
    explicit Told(bool itActs = true) : acts(itActs) {
        simulated::reset();
        label.place(window, "label", {150, 150, 300, 150}, true, "");
        window.add(label);
        window.Accessible = [this] {
            toolkit::Accessible thing;
            thing.parts = {&label};
            thing.caption = [this] { return label.Caption(); };
            thing.acts = acts;
            thing.numbers = [] { return toolkit::SliderNumbers{0, 10, 1, 5, "five"}; };
            thing.dragFor = [](double) { return toolkit::ThumbDrag{3, 2}; };
            toolkit::AccessibleTable table;
            table.window = "Window";
            table.things = {thing};
            return table;
        };
        label.Caption("old");
        window.Show();
        simulated::advance(10);
        CHECK(names() == Words{"old"});
    }

    const platform::AccessibleWindow& reader() {
        return simulated::window(window.hWnd()).events.accessible();
    }

    Words names() {
        Words all;
        for (const auto& thing : simulated::accessibleThings(window.hWnd()))
            all.push_back(thing.name);
        return all;
    }

    bool acts;
    toolkit::Label label;
    toolkit::Form window{data()};
};

} // namespace

TEST_CASE("a reader hears of a name that changes, and what the new one is") {
    Told told;
    told.label.Caption("new");
    simulated::advance(1);
    CHECK(simulated::changesTold() == Words{"new: Name"});
    simulated::advance(10);
    CHECK(simulated::changesTold().empty());
}

TEST_CASE("what has just changed in a window that goes is told no more") {
    Told told;
    told.label.Caption("new");
    told.window.Unload();
    simulated::advance(10);
    CHECK(simulated::world.reader.told.empty());
    CHECK_FALSE(told.window.loaded());
}

TEST_CASE("a window that goes takes along what a reader has asked of it, and its timers") {
    Told told;
    int clicks = 0;
    told.label.Click = [&] {
        if (++clicks > 1) return;
        told.window.Unload();
        CHECK(simulated::world.events.timers.empty());
    };
    told.reader().act({0});
    told.reader().act({0});
    simulated::advance(10);
    CHECK(clicks == 1);
    told.window.Show();
    told.reader().act({0});
    simulated::advance(10);
    CHECK(clicks == 2);
    simulated::advance(10);
    CHECK(simulated::world.events.timers.empty());
}

TEST_CASE("a window that goes at a reader's press is neither dragged on nor let go of") {
    Told told;
    int moves = 0;
    told.label.MouseDown = [&](const toolkit::MouseArguments&) {
        told.window.Unload();
        CHECK(simulated::world.events.timers.empty());
    };
    told.label.MouseMove = [&](const toolkit::MouseArguments&) { ++moves; };
    told.reader().setNumber(0, 7);
    simulated::advance(200);
    CHECK(moves == 0);
    CHECK_FALSE(told.window.loaded());
}

TEST_CASE("a thing that a reader only believes in is a text without a name") {
    Told told;
    const auto& window = simulated::window(told.window.hWnd()).events.accessible();
    for (const int number : {-1, 1, 2, 1000}) {
        CAPTURE(number);
        CHECK(window.thing({number}) == platform::AccessibleThing());
    }
}

TEST_CASE("an action on what no longer shows, or never did act, is none") {
    for (const bool acts : {true, false})
        for (const bool shows : {true, false}) {
            CAPTURE(acts);
            CAPTURE(shows);
            Told told(acts);
            int clicks = 0;
            told.label.Click = [&] { ++clicks; };
            told.label.Visible(shows);
            simulated::window(told.window.hWnd()).events.accessible().act({0});
            simulated::advance(2);
            CHECK(clicks == (acts && shows ? 1 : 0));
        }
}
