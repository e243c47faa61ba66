#include "platform/simulated/world.h"
#include "toolkit/accessible.h"
#include "toolkit/form.h"
#include "toolkit/image.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/timer.h"

#include <doctest/doctest.h>
#include <functional>
#include <vector>

using simulated::world;

namespace {

toolkit::FormData data() {
    toolkit::FormData form;
    form.bounds = {150, 300, 1500, 750};
    return form;
}

/// A form that nothing has touched, with a control of each kind and a timer.
struct Untouched {
    Untouched() {
        simulated::reset();
        label.place(window, "label", {150, 150, 300, 150}, true, "");
        image.place(window, "image", {150, 300, 300, 150}, true, "");
        list.place(window, "list", {150, 450, 600, 240}, true, "");
        timer.attach(window, 100, false);
        window.add(label);
        window.add(image);
        window.add(list);
        window.add(timer);
    }
    toolkit::Label label;
    toolkit::Image image;
    toolkit::ListBox list;
    toolkit::Timer timer;
    toolkit::Form window{data()};
};

} // namespace

TEST_CASE("whatever is done to a form or a part of it first loads it, and is done") {
    struct Row {
        std::function<void(Untouched&)> deed;
        std::function<bool(Untouched&)> done;
    };
    const auto handle = [](Untouched& u) { return u.window.hWnd(); };
    const Row rows[] = {
        {[](Untouched& u) { u.window.Left(300); },
         [](Untouched& u) { return u.window.Left() == 300; }},
        {[](Untouched& u) { u.window.Top(150); },
         [](Untouched& u) { return u.window.Top() == 150; }},
        {[](Untouched& u) { u.window.Width(900); },
         [](Untouched& u) { return u.window.Width() == 900; }},
        {[](Untouched& u) { u.window.Height(450); },
         [](Untouched& u) { return u.window.Height() == 450; }},
        {[](Untouched& u) { u.window.Refresh(); }, [](Untouched& u) { return u.window.loaded(); }},
        {[](Untouched& u) { u.window.WindowState(0); },
         [](Untouched& u) { return u.window.loaded(); }},
        {[](Untouched& u) { u.window.Show(); },
         [&](Untouched& u) { return u.window.Visible() && simulated::window(handle(u)).visible; }},
        {[](Untouched& u) { u.window.Hide(); },
         [&](Untouched& u) {
             return !u.window.Visible() && !simulated::window(handle(u)).visible;
         }},
        {[](Untouched& u) { u.label.Caption("x"); },
         [](Untouched& u) { return u.label.Caption() == "x"; }},
        {[](Untouched& u) { u.label.ForeColor(toolkit::Red); },
         [](Untouched& u) { return u.label.ForeColor() == toolkit::Red; }},
        {[](Untouched& u) { u.image.Left(450); },
         [](Untouched& u) { return u.image.Left() == 450; }},
        {[](Untouched& u) { u.image.Top(450); }, [](Untouched& u) { return u.image.Top() == 450; }},
        {[](Untouched& u) { u.image.Visible(false); },
         [](Untouched& u) { return !u.image.Visible(); }},
        {[](Untouched& u) { u.list.AddItem("x"); },
         [](Untouched& u) { return u.list.ListCount() == 1; }},
        {[](Untouched& u) { u.list.Clear(); },
         [](Untouched& u) { return u.list.ListCount() == 0; }},
        {[](Untouched& u) { u.list.ListIndex(-1); },
         [](Untouched& u) { return u.list.ListIndex() == -1; }},
        {[](Untouched& u) { u.list.TopIndex(0); },
         [](Untouched& u) { return u.list.TopIndex() == 0; }},
        {[](Untouched& u) { u.timer.Interval(200); },
         [](Untouched& u) { return u.timer.Interval() == 200; }},
        {[](Untouched& u) { u.timer.Enabled(true); },
         [](Untouched& u) { return u.timer.Enabled(); }},
    };
    for (const Row& row : rows) {
        CAPTURE(&row - rows);
        Untouched untouched;
        int loads = 0;
        untouched.window.Load = [&] { ++loads; };
        row.deed(untouched);
        CHECK(loads == 1);
        CHECK(untouched.window.loaded());
        CHECK(row.done(untouched));
        CHECK(loads == 1);
        CHECK(world.windows.all.size() == 1);
    }
}

TEST_CASE("what changes nothing and what only asks loads a form all the same") {
    const std::function<void(Untouched&)> deeds[] = {
        [](Untouched& u) { u.label.Caption(""); },
        [](Untouched& u) { u.label.ForeColor(toolkit::Yellow); },
        [](Untouched& u) { u.image.Left(150); },
        [](Untouched& u) { u.image.Top(300); },
        [](Untouched& u) { u.image.Visible(true); },
        [](Untouched& u) { u.list.ListIndex(7); },
        [](Untouched& u) { u.timer.Enabled(false); },
        [](Untouched& u) { static_cast<void>(u.window.Left()); },
        [](Untouched& u) { static_cast<void>(u.window.Top()); },
        [](Untouched& u) { static_cast<void>(u.window.Width()); },
        [](Untouched& u) { static_cast<void>(u.window.Height()); },
        [](Untouched& u) { static_cast<void>(u.window.Visible()); },
        [](Untouched& u) { static_cast<void>(u.window.hWnd()); },
        [](Untouched& u) { static_cast<void>(u.window.Icon()); },
        [](Untouched& u) { static_cast<void>(u.label.Caption()); },
        [](Untouched& u) { static_cast<void>(u.label.ForeColor()); },
        [](Untouched& u) { static_cast<void>(u.image.Left()); },
        [](Untouched& u) { static_cast<void>(u.image.Top()); },
        [](Untouched& u) { static_cast<void>(u.image.Width()); },
        [](Untouched& u) { static_cast<void>(u.image.Height()); },
        [](Untouched& u) { static_cast<void>(u.image.Visible()); },
        [](Untouched& u) { static_cast<void>(u.list.ListCount()); },
        [](Untouched& u) { static_cast<void>(u.list.ListIndex()); },
        [](Untouched& u) { static_cast<void>(u.list.TopIndex()); },
        [](Untouched& u) { static_cast<void>(u.list.List(7)); },
        [](Untouched& u) { static_cast<void>(u.timer.Enabled()); },
        [](Untouched& u) { static_cast<void>(u.timer.Interval()); },
    };
    for (const auto& deed : deeds) {
        CAPTURE(&deed - deeds);
        Untouched untouched;
        deed(untouched);
        CHECK(untouched.window.loaded());
    }
}

TEST_CASE("an interval that is set outlasts the one that the loading brings") {
    Untouched untouched;
    untouched.window.Load = [&] { untouched.timer.Interval(300); };
    untouched.timer.Interval(200);
    CHECK(untouched.timer.Interval() == 200);
}

TEST_CASE(
    "a reader that asks for a window that isn't there is told nothing, and brings nothing back") {
    Untouched untouched;
    toolkit::Form& window = untouched.window;
    int tables = 0;
    window.Accessible = [&] {
        ++tables;
        toolkit::AccessibleTable table;
        table.window = "Window";
        return table;
    };
    // A system may ask until the window is wholly gone.
    const auto ask = simulated::window(window.hWnd()).events.accessible;
    window.Unload();
    CHECK(ask().name.empty());
    CHECK(ask().shown().empty());
    CHECK(tables == 0);
    CHECK_FALSE(window.loaded());
}
