#include "platform/simulated/world.h"
#include "toolkit/dir_list_box.h"

#include <doctest/doctest.h>

using simulated::world;

TEST_CASE("a folder list names its folders, and none before the first or behind the last") {
    simulated::reset();
    world.files.addFolder("C:\\Music\\b");
    world.files.addFolder("C:\\Music\\a");
    toolkit::DirListBox list;
    list.Path("C:\\Music");
    CHECK(list.ListCount() == 2);
    CHECK(list.List(0) == "C:\\Music\\a");
    CHECK(list.List(1) == "C:\\Music\\b");
    CHECK(list.List(-1).empty());
    CHECK(list.List(2).empty());
}
