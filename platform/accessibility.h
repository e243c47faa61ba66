#pragma once

#include "platform/types.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What a screen reader is told of a window that paints itself, and what it can have done there.
/// Nothing of it is asked for, or costs anything, before a reader asks. Interface thread only.
namespace platform {

enum class AccessibleRole {
    Button,
    ToggleButton, ///< a key that stays down
    CheckBox,
    Slider,
    Text,
    List,
    Row, ///< of a list
};

/// One thing of a window as it is now.
struct AccessibleThing {
    AccessibleRole role = AccessibleRole::Text;
    std::string name;
    std::string value;       ///< what it reads: a text, or a slider's place in words
    std::string description; ///< what else there is to say of it
    Rect area;               ///< client pixels; a row out of view lies outside its list
    bool usable = true;      ///< its action or its setting would do something
    bool acts = false;       ///< it has an action
    bool pressed = false;
    bool checked = false;
    bool selected = false; ///< rows

    // Of a slider, in its own unit.
    double lowest = 0;
    double highest = 0;
    double step = 0; ///< the least that a setting changes
    double number = 0;

    // Of a list.
    std::int32_t rows = 0;
    std::int32_t selectedRow = -1; ///< -1 for none
    bool operator==(const AccessibleThing&) const = default;
};

/// Where a thing is found: its number in the window, and for a row its place in the list.
struct AccessiblePlace {
    std::int32_t thing = 0;
    std::int32_t row = -1; ///< -1 for the thing itself
    bool operator==(const AccessiblePlace&) const = default;
};

/// A window as a reader can ask it. What it does is done from the event loop, soon after the call.
struct AccessibleWindow {
    std::string name;
    /// The numbers of the things that show now, in the order of reading. A thing keeps its number.
    std::function<std::vector<std::int32_t>()> shown;
    /// A thing or a row; one that doesn't exist is a text without a name.
    std::function<AccessibleThing(AccessiblePlace)> thing;
    /// Does what a click there does, or on a row a double click.
    std::function<void(AccessiblePlace)> act;
    /// Selects a row as a click does.
    std::function<void(AccessiblePlace)> select;
    /// Sets a slider as a drag does; what lies outside its range is its end.
    std::function<void(std::int32_t thing, double number)> setNumber;
};

enum class AccessibleChange { Appeared, Vanished, Name, Value, State, Rows, SelectedRow };

/// Whether anybody wants to be told of changes.
bool readerListens();

/// Tells the readers that a thing has changed; only of windows that one has asked.
void tellReaders(WindowHandle window, AccessiblePlace place, AccessibleChange change);

/// Whether the user can reach the window: it shows, and no dialog keeps the user from it.
bool takesInput(WindowHandle window);

/// The place that `GetCursorPos` tells, screen pixels, or again the pointer's own. What the pointer
/// itself does meanwhile ends it.
void standInForPointer(std::optional<Point> place);

} // namespace platform
