#pragma once

#include "platform/accessibility.h"
#include "platform/window.h"
#include "tests/contract/world.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace contract {

/// A window with a thing of each kind, and a diary of what is asked of it.
struct Scene {
    Scene() {
        platform::AccessibleThing hidden;
        hidden.name = "Hidden";
        things = {thingOf(platform::AccessibleRole::ToggleButton, "Pause", {10, 10, 30, 26}),
                  hidden,
                  thingOf(platform::AccessibleRole::CheckBox, "Shuffle", {40, 10, 60, 20}),
                  thingOf(platform::AccessibleRole::Slider, "Volume", {10, 30, 60, 40}),
                  thingOf(platform::AccessibleRole::Text, "Time", {70, 10, 110, 20}),
                  thingOf(platform::AccessibleRole::List, "Tracks", {10, 45, 110, 75}),
                  thingOf(platform::AccessibleRole::Button, "Scroll up", {100, 45, 110, 55})};
        things[0].pressed = true;
        things[2].checked = true;
        things[3].highest = 100;
        things[3].step = 2.5;
        things[3].number = 25;
        things[3].value = "25 %";
        things[4].value = "Zeit 01:23 \xC3\xA4";
        things[4].acts = false;
        things[5].rows = 3;
        things[5].selectedRow = 1;
        things[5].acts = false;
        reader.name = "Scene";
        reader.shown = [] { return std::vector<std::int32_t>{0, 2, 3, 4, 5, 6}; };
        reader.thing = [this](platform::AccessiblePlace place) { return read(place); };
        reader.act = [this](platform::AccessiblePlace place) { note("act", place); };
        reader.select = [this](platform::AccessiblePlace place) { note("select", place); };
        reader.setNumber = [this](std::int32_t thing, double number) {
            note("set to " + std::to_string(static_cast<int>(number * 10)), {thing});
        };
        platform::WindowEvents events;
        events.accessible = [this]() -> const platform::AccessibleWindow& { return reader; };
        events.paint = [this]() -> const platform::Picture& { return picture; };
        window.emplace(std::move(events));
        platform::showWindow(window->handle, true);
    }

    static platform::AccessibleThing thingOf(platform::AccessibleRole role, const char* name,
                                             platform::Rect area) {
        platform::AccessibleThing thing;
        thing.role = role;
        thing.name = name;
        thing.area = area;
        thing.acts = true;
        return thing;
    }

    [[nodiscard]] platform::AccessibleThing read(platform::AccessiblePlace place) const {
        const platform::AccessibleThing thing = things[static_cast<std::size_t>(place.thing)];
        if (place.row < 0) return thing;
        const std::int32_t top = 45 + 10 * place.row;
        platform::AccessibleThing row =
            thingOf(platform::AccessibleRole::Row, names[static_cast<std::size_t>(place.row)],
                    {10, top, 110, top + 10});
        row.selected = place.row == thing.selectedRow;
        if (row.selected) row.description = "Playing";
        return row;
    }

    void note(const std::string& what, platform::AccessiblePlace place) {
        const std::string row = place.row < 0 ? "" : " " + std::to_string(place.row);
        diary.push_back(what + ": " + things[static_cast<std::size_t>(place.thing)].name + row);
    }

    [[nodiscard]] platform::WindowHandle handle() const { return window->handle; }

    std::vector<platform::AccessibleThing> things;
    const char* names[3] = {"a.mp3", "b.mp3", "\xE4\xBD\xA0\xE5\xA5\xBD.mp3"};
    platform::AccessibleWindow reader;
    std::vector<std::string> diary;
    platform::Picture picture{120, 80, 0xFF336699U};
    std::optional<Window> window;
};

} // namespace contract
