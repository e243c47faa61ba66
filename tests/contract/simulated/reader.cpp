#include "tests/contract/reader.h"

#include "platform/accessibility.h"
#include "platform/simulated/accessibility.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace contract {
namespace {

Read readOf(const platform::AccessibleThing& thing) {
    return {thing.name,   thing.value,   thing.number,  thing.description, thing.area,
            thing.usable, thing.pressed, thing.checked, thing.selected,    thing.rows};
}

std::string nameAt(platform::WindowHandle window, int thing) {
    return readThings(window).at(static_cast<std::size_t>(thing)).name;
}

} // namespace

std::string readName(platform::WindowHandle window) { return simulated::accessibleName(window); }

std::vector<Read> readThings(platform::WindowHandle window) {
    std::vector<Read> read;
    for (const platform::AccessibleThing& thing : simulated::accessibleThings(window))
        read.push_back(readOf(thing));
    return read;
}

std::vector<Read> readRows(platform::WindowHandle window, int thing) {
    std::vector<Read> rows;
    const std::string list = nameAt(window, thing);
    const std::int32_t count = simulated::accessibleThing(window, list).rows;
    for (std::int32_t row = 0; row < count; ++row)
        rows.push_back(readOf(simulated::accessibleRow(window, list, row)));
    return rows;
}

int thingAt(platform::WindowHandle window, std::int32_t x, std::int32_t y) {
    const std::vector<Read> read = readThings(window);
    for (int n = static_cast<int>(read.size()) - 1; n >= 0; --n) {
        const platform::Rect& area = read[static_cast<std::size_t>(n)].area;
        if (x >= area.left && x < area.right && y >= area.top && y < area.bottom) return n;
    }
    return -1;
}

void act(platform::WindowHandle window, int thing, int row) {
    if (row < 0)
        simulated::act(window, nameAt(window, thing));
    else
        simulated::actOnRow(window, nameAt(window, thing), row);
}

void select(platform::WindowHandle window, int list, int row) {
    simulated::selectRow(window, nameAt(window, list), row);
}

void setNumber(platform::WindowHandle window, int slider, double number) {
    simulated::setNumber(window, nameAt(window, slider), number);
}

} // namespace contract
