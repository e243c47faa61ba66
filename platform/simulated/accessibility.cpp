#include "platform/simulated/accessibility.h"

#include "platform/simulated/window_state.h"
#include "platform/simulated/world.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace simulated {
namespace {

using platform::AccessibleRole;
using platform::AccessibleWindow;

/// What the window tells; null for a window that tells nothing.
const AccessibleWindow* ask(WindowHandle handle) {
    world.reader.listens = true;
    const Window& asked = existing(handle);
    return asked.events.accessible ? &asked.events.accessible() : nullptr;
}

const AccessibleWindow& accessible(WindowHandle handle) {
    const AccessibleWindow* const told = ask(handle);
    if (told == nullptr) misuse("the window tells a reader nothing");
    return *told;
}

/// The number of the one thing that shows under a name; -1 for none.
std::int32_t findThing(WindowHandle handle, const std::string& name) {
    const AccessibleWindow& told = accessible(handle);
    std::int32_t found = -1;
    if (!existing(handle).visible) return found;
    for (const std::int32_t number : told.shown()) {
        if (told.thing({number}).name != name) continue;
        if (found >= 0) misuse("several things are called " + name);
        found = number;
    }
    return found;
}

std::int32_t numberOf(WindowHandle handle, const std::string& name) {
    const std::int32_t found = findThing(handle, name);
    if (found < 0) misuse("nothing that shows is called " + name);
    return found;
}

AccessibleThing thingOf(const Button& button, bool usable) {
    AccessibleThing thing;
    thing.role = AccessibleRole::Button;
    thing.name = button.button.caption;
    std::erase(thing.name, '&');
    thing.area = button.button.area;
    thing.acts = true;
    thing.usable = usable;
    return thing;
}

/// The windows do what is asked from the event loop, a moment later.
void letItBeDone() { advance(1); }

/// The push button of this name, if there is one.
bool clickedButton(WindowHandle handle, const std::string& name) {
    for (const Button& button : existing(handle).buttons) {
        if (thingOf(button, true).name != name) continue;
        clickButton(handle, button.button.caption);
        return true;
    }
    return false;
}

const char* wordOf(AccessibleChange change) {
    switch (change) {
    case AccessibleChange::Appeared:
        return "Appeared";
    case AccessibleChange::Vanished:
        return "Vanished";
    case AccessibleChange::Name:
        return "Name";
    case AccessibleChange::Value:
        return "Value";
    case AccessibleChange::State:
        return "State";
    case AccessibleChange::Rows:
        return "Rows";
    case AccessibleChange::SelectedRow:
        return "SelectedRow";
    }
    return "";
}

} // namespace

std::string accessibleName(WindowHandle handle) {
    const AccessibleWindow* const told = ask(handle);
    return told == nullptr ? "" : told->name;
}

std::vector<AccessibleThing> accessibleThings(WindowHandle handle) {
    std::vector<AccessibleThing> things;
    const AccessibleWindow& told = accessible(handle);
    if (!existing(handle).visible) return things;
    for (const std::int32_t number : told.shown())
        things.push_back(told.thing({number}));
    for (const Button& button : existing(handle).buttons)
        things.push_back(thingOf(button, enabled(handle)));
    return things;
}

AccessibleThing accessibleThing(WindowHandle handle, const std::string& name) {
    return accessible(handle).thing({numberOf(handle, name)});
}

AccessibleThing accessibleRow(WindowHandle handle, const std::string& list, std::int32_t row) {
    return accessible(handle).thing({numberOf(handle, list), row});
}

void act(WindowHandle handle, const std::string& name) {
    if (clickedButton(handle, name)) return;
    accessible(handle).act({numberOf(handle, name)});
    letItBeDone();
}

void actOnRow(WindowHandle handle, const std::string& list, std::int32_t row) {
    accessible(handle).act({numberOf(handle, list), row});
    letItBeDone();
}

void selectRow(WindowHandle handle, const std::string& list, std::int32_t row) {
    accessible(handle).select({numberOf(handle, list), row});
    letItBeDone();
}

void setNumber(WindowHandle handle, const std::string& slider, double number) {
    accessible(handle).setNumber(numberOf(handle, slider), number);
    letItBeDone();
}

std::vector<std::string> changesTold() {
    std::vector<std::string> words;
    for (const ToldChange& told : std::exchange(world.reader.told, {})) {
        const std::string row = told.place.row < 0 ? "" : " " + std::to_string(told.place.row);
        words.push_back(accessible(told.window).thing({told.place.thing}).name + row + ": " +
                        wordOf(told.change));
    }
    return words;
}

} // namespace simulated

namespace platform {

using simulated::world;

bool readerListens() { return world.reader.listens; }

void tellReaders(WindowHandle window, AccessiblePlace place, AccessibleChange change) {
    if (!simulated::existing(window).events.accessible)
        simulated::misuse("a change of a window that tells a reader nothing");
    world.reader.told.push_back({window, place, change});
}

bool takesInput(WindowHandle window) {
    return simulated::existing(window).visible && simulated::enabled(window);
}

void standInForPointer(std::optional<Point> place) { world.reader.standIn = place; }

} // namespace platform
