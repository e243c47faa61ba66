#include "toolkit/accessible.h"

#include <utility>

namespace toolkit {

using platform::AccessibleRole;

Accessible keyOf(std::string name, const Control& up, const Control& down) {
    Accessible key = buttonOf(std::move(name), down);
    key.parts.push_back(&up);
    key.pressed = [&down] { return down.shown(); };
    return key;
}

Accessible latchOf(std::string name, const Control& up, const Control& down) {
    Accessible key = keyOf(std::move(name), up, down);
    key.role = AccessibleRole::ToggleButton;
    return key;
}

Accessible buttonOf(std::string name, const Control& control) {
    Accessible button;
    button.role = AccessibleRole::Button;
    button.name = std::move(name);
    button.parts = {&control};
    button.acts = true;
    return button;
}

Accessible switchOf(std::string name, const Control& control, std::function<bool()> on) {
    Accessible thing = buttonOf(std::move(name), control);
    thing.role = AccessibleRole::CheckBox;
    thing.checked = std::move(on);
    return thing;
}

Accessible textOf(std::string name, const Label& label) {
    Accessible text;
    text.name = std::move(name);
    text.parts = {&label};
    text.value = [&label] { return label.Caption(); };
    return text;
}

Accessible listOf(std::string name, ListBox& list, std::function<std::string(std::int32_t)> note) {
    Accessible thing;
    thing.role = AccessibleRole::List;
    thing.name = std::move(name);
    thing.parts = {&list};
    thing.list = &list;
    thing.rowNote = std::move(note);
    return thing;
}

} // namespace toolkit
