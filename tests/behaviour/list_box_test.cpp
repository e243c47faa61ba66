#include "platform/simulated/world.h"
#include "runtime/errors.h"
#include "tests/runner/error_of.h"
#include "toolkit/form.h"
#include "toolkit/list_box.h"

#include <doctest/doctest.h>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

using platform::Key;
using platform::PointerButton;
using simulated::world;

namespace {

/// A column of the list and where its rows are, in pixels of the window.
constexpr int column = 50;
constexpr int firstRow = 24;
constexpr int rowHeight = 13;
constexpr int middleOfRow(int row) { return firstRow + rowHeight * row + rowHeight / 2; }
constexpr int lastPixelOfList = firstRow + 40;

/// A window with a list box at 8, 24, of 265 x 41 pixels: rows of 13 pixels at 24, 37 and 50.
struct Scene {
    explicit Scene(std::initializer_list<const char*> texts = {"Alpha", "beta", "Berta", "Émile",
                                                               "gamma"}) {
        simulated::reset();
        list.place(window, "list", {120, 360, 3975, 615}, true, "");
        window.add(list);
        window.Show();
        for (const char* text : texts)
            list.AddItem(text);
        handle = window.hWnd();
    }

    void press(int row, PointerButton button = PointerButton::Left) {
        simulated::click(handle, column, middleOfRow(row), button);
    }
    void type(Key key) { simulated::typeKey(handle, key); }
    [[nodiscard]] int selected() const { return list.ListIndex().value(); }
    [[nodiscard]] int top() const { return list.TopIndex().value(); }

    toolkit::ListBox list;
    toolkit::Form window{
        toolkit::FormData{.caption = "List", .bounds = {0, 0, 4140, 1230}, .picture = {}}};
    platform::WindowHandle handle = 0;
};

} // namespace

TEST_CASE("a list starts with nothing selected, and adding keeps selection and view") {
    Scene scene;
    CHECK(scene.list.ListCount() == 5);
    CHECK(scene.selected() == -1);
    CHECK(scene.top() == 0);
    CHECK(scene.list.List(4) == "gamma");
    CHECK(scene.list.List(5).empty());
    CHECK(scene.list.List(-1).empty());
    scene.list.ListIndex(1);
    scene.list.AddItem("delta");
    CHECK(scene.selected() == 1);
    CHECK(scene.top() == 0);
}

TEST_CASE("a press selects the entry of its row") {
    Scene scene;
    for (int row = 0; row < 3; ++row) {
        scene.press(row);
        CHECK(scene.selected() == row);
    }
    scene.list.TopIndex(2);
    scene.press(1);
    CHECK(scene.selected() == 3);
    CHECK(scene.top() == 2);
}

TEST_CASE("a press has selected its entry by when its handler runs") {
    Scene scene;
    int seen = -1;
    scene.list.MouseDown = [&](const auto&) { seen = scene.selected(); };
    scene.press(1);
    CHECK(seen == 1);
}

TEST_CASE("a press on the last pixels below the third row is on the third row") {
    Scene scene;
    simulated::click(scene.handle, column, lastPixelOfList);
    CHECK(scene.selected() == 2);
    CHECK(scene.top() == 0);
}

TEST_CASE("the first pixel of a row belongs to it") {
    Scene scene;
    scene.list.TopIndex(2);
    simulated::click(scene.handle, column, firstRow);
    CHECK(scene.selected() == 2);
    simulated::click(scene.handle, column, firstRow + rowHeight);
    CHECK(scene.selected() == 3);
}

TEST_CASE("a press below the entries and a press with the right button select nothing") {
    Scene scene{"only"};
    scene.press(1);
    CHECK(scene.selected() == -1);
    scene.press(0, PointerButton::Right);
    CHECK(scene.selected() == -1);
    scene.press(0);
    scene.press(2);
    CHECK(scene.selected() == 0);
}

TEST_CASE("a held press selects along, and scrolls beyond the rows") {
    Scene scene;
    simulated::pressAt(scene.handle, column, middleOfRow(0));
    simulated::moveTo(scene.handle, column, middleOfRow(1));
    CHECK(scene.selected() == 1);
    simulated::moveTo(scene.handle, column, 200);
    CHECK(scene.selected() == 3);
    CHECK(scene.top() == 1);
    simulated::moveTo(scene.handle, column, 201);
    simulated::moveTo(scene.handle, column, 202);
    CHECK(scene.selected() == 4);
    simulated::moveTo(scene.handle, column, -50);
    simulated::moveTo(scene.handle, column, -51);
    simulated::moveTo(scene.handle, column, -52);
    CHECK(scene.selected() == 0);
    CHECK(scene.top() == 0);
    simulated::release();
    simulated::moveTo(scene.handle, column, middleOfRow(1));
    CHECK(scene.selected() == 0);
}

TEST_CASE("the arrows, Home, End and the page keys move the selection and bring it into view") {
    struct Row {
        Key key;
        int selected;
        int top;
    };
    const Row rows[] = {
        {Key::Down, 0, 0},   {Key::Up, 0, 0},     {Key::Down, 1, 0},     {Key::Down, 2, 0},
        {Key::Down, 3, 1},   {Key::End, 4, 2},    {Key::Down, 4, 2},     {Key::PageUp, 2, 2},
        {Key::PageUp, 0, 0}, {Key::PageUp, 0, 0}, {Key::PageDown, 2, 0}, {Key::PageDown, 4, 2},
        {Key::Home, 0, 0},   {Key::Enter, 0, 0},  {Key::Escape, 0, 0},   {Key::Tab, 0, 0},
    };
    Scene scene;
    for (const Row& row : rows) {
        scene.type(row.key);
        CHECK(scene.selected() == row.selected);
        CHECK(scene.top() == row.top);
    }
}

TEST_CASE("typing a letter goes to the next entry that starts with it, in either case") {
    Scene scene;
    const auto after = [&](const char* letter) {
        simulated::typeText(scene.handle, letter);
        return scene.selected();
    };
    CHECK(after("b") == 1);
    CHECK(after("B") == 2);
    CHECK(after("b") == 1);
    CHECK(after("G") == 4);
    CHECK(after("a") == 0);
    CHECK(after("É") == 3);
    CHECK(after("z") == 3);
    CHECK(after("\t") == 3);
    CHECK(after("") == 3);
}

TEST_CASE("typing a blank goes to the next entry that starts with one, and control keys to none") {
    Scene scene({"Alpha", " beta", "\tgamma"});
    simulated::typeText(scene.handle, " ");
    CHECK(scene.selected() == 1);
    simulated::typeText(scene.handle, "\t");
    CHECK(scene.selected() == 1);
}

TEST_CASE("keys in an empty list select nothing") {
    Scene scene({});
    for (const Key key : {Key::Down, Key::Up, Key::Home, Key::End, Key::PageDown})
        scene.type(key);
    simulated::typeText(scene.handle, "a");
    scene.press(0);
    CHECK(scene.selected() == -1);
}

TEST_CASE("the wheel scrolls between the first and the last full view, selecting nothing") {
    Scene scene;
    simulated::wheelAt(scene.handle, column, middleOfRow(0), 1);
    CHECK(scene.top() == 1);
    simulated::wheelAt(scene.handle, column, middleOfRow(0), 3);
    CHECK(scene.top() == 2);
    simulated::wheelAt(scene.handle, column, middleOfRow(0), -9);
    CHECK(scene.top() == 0);
    CHECK(scene.selected() == -1);
    simulated::wheelAt(scene.handle, column, firstRow - 14, 1);
    CHECK(scene.top() == 0);
}

TEST_CASE("setting the view keeps it between the first and the last full view") {
    Scene scene;
    scene.list.TopIndex(9);
    CHECK(scene.top() == 2);
    scene.list.TopIndex(-4);
    CHECK(scene.top() == 0);
    Scene small{"a", "b"};
    small.list.TopIndex(1);
    CHECK(small.top() == 0);
}

TEST_CASE(
    "selecting from code brings the entry into view, and an index without an entry is ignored") {
    Scene scene;
    scene.list.ListIndex(4);
    CHECK(scene.top() == 2);
    scene.list.ListIndex(9);
    CHECK(scene.selected() == 4);
    scene.list.ListIndex(-2);
    CHECK(scene.selected() == 4);
    scene.list.ListIndex(-1);
    CHECK(scene.selected() == -1);
    CHECK(scene.top() == 2);
    scene.list.ListIndex(0);
    CHECK(scene.top() == 0);
}

TEST_CASE("removing an entry keeps the selection on its text, or leaves none") {
    Scene scene;
    scene.list.ListIndex(3);
    scene.list.RemoveItem(1);
    CHECK(scene.selected() == 2);
    CHECK(scene.list.List(2) == "Émile");
    scene.list.RemoveItem(3);
    CHECK(scene.selected() == 2);
    scene.list.RemoveItem(2);
    CHECK(scene.selected() == -1);
    CHECK(scene.top() == 0);
    CHECK(errorOf([&] { scene.list.RemoveItem(2); }) == runtime::InvalidCall);
    CHECK(errorOf([&] { scene.list.RemoveItem(-1); }) == runtime::InvalidCall);
    scene.list.Clear();
    CHECK(scene.list.ListCount() == 0);
    CHECK(scene.selected() == -1);
}

TEST_CASE("the three entries in view are drawn, the selected one on a bar") {
    Scene scene;
    scene.list.ListIndex(2);
    scene.list.TopIndex(1);
    world.text.drawn.clear();
    const platform::Picture shown = simulated::picture(scene.handle);
    std::vector<std::string> texts;
    for (const auto& drawn : world.text.drawn)
        texts.push_back(drawn.text);
    CHECK(texts == std::vector<std::string>{"beta", "Berta", "Émile"});
    const platform::Pixel back = shown.row(30)[270];
    CHECK(back == 0xFF000000U);
    CHECK(shown.row(37)[270] != back);
    CHECK(shown.row(49)[270] != back);
    CHECK(shown.row(50)[270] == back);
    CHECK(world.text.drawn[1].colour != world.text.drawn[0].colour);
}

TEST_CASE("a list whose entries change is drawn anew") {
    Scene scene;
    simulated::run();
    int drawn = simulated::window(scene.handle).paints;
    const auto isDrawnAnew = [&] {
        simulated::run();
        return std::exchange(drawn, simulated::window(scene.handle).paints) + 1 == drawn;
    };
    CHECK_FALSE(isDrawnAnew());
    scene.list.RemoveItem(0);
    CHECK(isDrawnAnew());
    scene.list.AddItem("more");
    CHECK(isDrawnAnew());
    scene.list.Clear();
    CHECK(isDrawnAnew());
}

TEST_CASE("a view that is scrolled is drawn anew, each text in the middle of its row") {
    Scene scene;
    simulated::picture(scene.handle);
    scene.list.TopIndex(2);
    world.text.drawn.clear();
    simulated::picture(scene.handle);
    CHECK(world.text.shows("gamma"));
    // Seven pixels of the thirteen.
    scene.list.setText({"Small", 4.5, false, false}, toolkit::Yellow);
    scene.list.AddItem("more");
    world.text.drawn.clear();
    simulated::picture(scene.handle);
    REQUIRE(world.text.drawn.size() == 3);
    REQUIRE(platform::measureText({"Small", 4.5, false, false}, "x").height == 7);
    CHECK(world.text.drawn[0].origin.y == firstRow + 3);
    CHECK(world.text.drawn[1].origin.y == firstRow + rowHeight + 3);
}

TEST_CASE("a pointer that comes with its button down selects nothing") {
    Scene scene;
    scene.press(0);
    // It was pressed over another program's window.
    simulated::window(scene.handle)
        .events.pointer({.action = platform::PointerAction::Move,
                         .position = {column, middleOfRow(2)},
                         .buttonsHeld = true});
    CHECK(scene.selected() == 0);
}
