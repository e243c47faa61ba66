#include "toolkit/accessibility.h"

#include "toolkit/form.h"
#include "toolkit/guard.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace toolkit {
namespace {

using platform::AccessibleChange;
using platform::AccessiblePlace;
using platform::AccessibleRole;
using platform::AccessibleThing;

/// The part that shows, the topmost of several; null while none does.
const Control* shownPart(const Accessible& thing) {
    const auto found = std::find_if(thing.parts.begin(), thing.parts.end(),
                                    [](const Control* part) { return part->shown(); });
    return found == thing.parts.end() ? nullptr : *found;
}

void readSlider(AccessibleThing& read, const SliderNumbers& numbers) {
    read.lowest = numbers.lowest;
    read.highest = numbers.highest;
    read.step = numbers.step;
    read.number = numbers.number;
    read.value = numbers.words;
}

std::string nameOf(const Accessible& thing) { return thing.caption ? thing.caption() : thing.name; }

bool isUsable(const Accessible& thing) { return !thing.usable || thing.usable(); }

} // namespace

Accessibility::Accessibility(Form& form, AccessibleTable table)
    : form_(form), table_(std::move(table)) {
    window_.name = table_.window;
    window_.shown = [this] {
        std::vector<std::int32_t> shown;
        guarded([&] { shown = shownThings(); });
        return shown;
    };
    window_.thing = [this](AccessiblePlace place) {
        AccessibleThing found;
        guarded([&] { found = read(place); });
        return found;
    };
    window_.act = [this](AccessiblePlace place) {
        plan([this, place] {
            const Accessible* const thing = find(place.thing);
            if (thing == nullptr) return;
            if (place.row >= 0)
                clickRow(*thing, place.row, true);
            else
                click(*thing);
        });
    };
    window_.select = [this](AccessiblePlace place) {
        plan([this, place] {
            if (const Accessible* const list = find(place.thing)) clickRow(*list, place.row, false);
        });
    };
    window_.setNumber = [this](std::int32_t number, double wanted) {
        plan([this, number, wanted] {
            if (const Accessible* const slider = find(number)) drag(*slider, wanted);
        });
    };
    next_.Tick = [this] { runNext(); };
    letGo_.Tick = [this] { release(); };
    telling_.Tick = [this] { tell(); };
    for (const Accessible& thing : table_.things)
        told_.push_back(look(thing));
}

void Accessibility::stop() {
    next_.detach();
    letGo_.detach();
    telling_.detach();
    planned_.clear();
    held_ = false;
}

const Accessible* Accessibility::find(std::int32_t number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < table_.things.size() ? &table_.things[index] : nullptr;
}

std::vector<std::int32_t> Accessibility::shownThings() const {
    std::vector<std::int32_t> shown;
    for (std::size_t n = 0; n < table_.things.size(); ++n)
        if (shownPart(table_.things[n]) != nullptr) shown.push_back(static_cast<std::int32_t>(n));
    return shown;
}

AccessibleThing Accessibility::read(AccessiblePlace place) const {
    const Accessible* const thing = find(place.thing);
    if (thing == nullptr) return {};
    if (place.row >= 0) return readRow(*thing, place.row);
    AccessibleThing read;
    read.role = thing->role;
    read.name = nameOf(*thing);
    if (thing->value) read.value = thing->value();
    if (thing->place)
        read.area = toPixels(*thing->place);
    else if (const Control* const part = shownPart(*thing))
        read.area = part->area();
    read.acts = thing->acts;
    read.usable = isUsable(*thing);
    read.pressed = thing->pressed && thing->pressed();
    read.checked = thing->checked && thing->checked();
    if (thing->numbers) readSlider(read, thing->numbers());
    if (thing->list != nullptr) {
        read.rows = thing->list->ListCount().value();
        read.selectedRow = thing->list->ListIndex().value();
    }
    return read;
}

AccessibleThing Accessibility::readRow(const Accessible& list, std::int32_t row) const {
    if (list.list == nullptr || row >= list.list->ListCount().value()) return {};
    AccessibleThing read;
    read.role = AccessibleRole::Row;
    read.name = list.list->List(row);
    if (list.rowNote) read.description = list.rowNote(row);
    read.area = list.list->rowArea(row);
    read.acts = true;
    read.selected = list.list->ListIndex() == row;
    return read;
}

// What a reader asks for.

/// A reader waits for its call to return, and an action may open a menu; so it waits for the event
/// loop.
void Accessibility::plan(std::function<void()> action) {
    constexpr std::int32_t soon = 1; // ms
    planned_.push_back(std::move(action));
    next_.attach(form_, soon, true);
}

void Accessibility::runNext() {
    if (form_.pressed()) return; // until the press in progress has ended
    if (planned_.empty()) return next_.detach();
    const std::function<void()> action = std::move(planned_.front());
    planned_.pop_front();
    if (planned_.empty()) next_.detach();
    if (platform::takesInput(form_.hWnd())) action();
}

void Accessibility::click(const Accessible& thing) {
    const Control* const part = shownPart(thing);
    if (part == nullptr || !thing.acts || !isUsable(thing)) return;
    const platform::Point place = middleOf(part->area());
    if (form_.controlAt(place) != part) return; // another one would take it
    press(place);
    release();
}

void Accessibility::clickRow(const Accessible& list, std::int32_t row, bool twice) {
    if (list.list == nullptr || shownPart(list) == nullptr) return;
    if (row < 0 || row >= list.list->ListCount().value()) return;
    list.list->bringIntoView(row);
    const platform::Point place = middleOf(list.list->rowArea(row));
    press(place);
    release();
    if (!twice) return;
    press(place, true);
    release();
}

void Accessibility::drag(const Accessible& slider, double number) {
    const Control* const thumb = shownPart(slider);
    if (thumb == nullptr || !slider.dragFor || !isUsable(slider)) return;
    const SliderNumbers range = slider.numbers();
    if (!(range.lowest < range.highest)) return;
    const ThumbDrag path = slider.dragFor(std::clamp(number, range.lowest, range.highest));
    const platform::Point from = middleOf(thumb->area());
    const platform::Point to = {from.x + path.right, from.y};
    platform::standInForPointer(from);
    const bool taken = press(from);
    letGo_.detach(); // no thumb waits for its release, and its moves may last longer than a hold
    for (std::int32_t n = 0; taken && n < path.moves; ++n) {
        platform::standInForPointer(to);
        form_.handle(
            {.action = platform::PointerAction::Move, .position = to, .buttonsHeld = true});
    }
    platform::standInForPointer({});
    pressed_ = to;
    release();
}

/// Presses as the pointer would. A handler that waits for its release gets it a moment later, in
/// the event loop that it runs.
bool Accessibility::press(platform::Point place, bool second) {
    constexpr std::int32_t shortHold = 100; // ms
    held_ = true;
    pressed_ = place;
    letGo_.attach(form_, shortHold, true);
    form_.handle({.action = platform::PointerAction::Press,
                  .button = platform::PointerButton::Left,
                  .position = place,
                  .secondPress = second,
                  .buttonsHeld = true});
    return held_;
}

void Accessibility::release() {
    letGo_.detach();
    if (!std::exchange(held_, false)) return;
    form_.handle({.action = platform::PointerAction::Release,
                  .button = platform::PointerButton::Left,
                  .position = pressed_});
}

// What the readers are told.

void Accessibility::changed() {
    constexpr std::int32_t soon = 1; // ms: a key's two images change one after the other
    if (platform::readerListens()) telling_.attach(form_, soon, true);
}

Accessibility::Told Accessibility::look(const Accessible& thing) const {
    const auto number = static_cast<std::int32_t>(&thing - table_.things.data());
    return {shownPart(thing) != nullptr, read({number}),
            thing.list != nullptr ? thing.list->rowChanges() : 0};
}

void Accessibility::tell() {
    telling_.detach();
    for (std::size_t n = 0; n < told_.size(); ++n) {
        const Told before = std::exchange(told_[n], look(table_.things[n]));
        tellThing(static_cast<std::int32_t>(n), before, told_[n]);
    }
}

void Accessibility::tellThing(std::int32_t number, const Told& before, const Told& now) const {
    const auto say = [&](AccessibleChange change, std::int32_t row = -1) {
        platform::tellReaders(form_.hWnd(), {number, row}, change);
    };
    if (before.shown != now.shown)
        return say(now.shown ? AccessibleChange::Appeared : AccessibleChange::Vanished);
    if (!now.shown) return;
    const AccessibleThing& was = before.thing;
    const AccessibleThing& is = now.thing;
    if (was.name != is.name) say(AccessibleChange::Name);
    if (was.value != is.value || was.number != is.number || was.highest != is.highest)
        say(AccessibleChange::Value);
    if (was.pressed != is.pressed || was.checked != is.checked || was.usable != is.usable)
        say(AccessibleChange::State);
    const bool otherRows = before.rowChanges != now.rowChanges;
    if (otherRows) say(AccessibleChange::Rows);
    if (was.selectedRow != is.selectedRow || otherRows)
        say(AccessibleChange::SelectedRow, is.selectedRow);
}

} // namespace toolkit
