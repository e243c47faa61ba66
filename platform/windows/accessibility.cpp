#include "platform/windows/accessibility.h"

#include "platform/accessibility.h"
#include "platform/windows/accessible_object.h"
#include "platform/windows/handles.h"
#include "platform/windows/reader_calls.h"
#include "platform/windows/stand_in.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace platform {
namespace {

bool readerHasAsked = false;

/// A list is asked for by the number of its thing, from 1, as its events name it.
std::optional<std::int32_t> listOf(const AccessibleWindow& asked, LONG number) {
    const std::vector<std::int32_t> shown = asked.shown();
    const std::int32_t thing = static_cast<std::int32_t>(number) - 1;
    const bool shows = std::find(shown.begin(), shown.end(), thing) != shown.end();
    if (!shows || asked.thing({thing}).role != AccessibleRole::List) return std::nullopt;
    return thing;
}

DWORD eventOf(AccessibleChange change) {
    switch (change) {
    case AccessibleChange::Appeared:
    case AccessibleChange::Vanished:
    case AccessibleChange::Rows:
        return EVENT_OBJECT_REORDER;
    case AccessibleChange::Name:
        return EVENT_OBJECT_NAMECHANGE;
    case AccessibleChange::Value:
        return EVENT_OBJECT_VALUECHANGE;
    case AccessibleChange::State:
        return EVENT_OBJECT_STATECHANGE;
    case AccessibleChange::SelectedRow:
        return EVENT_OBJECT_SELECTION;
    }
    return EVENT_OBJECT_STATECHANGE;
}

/// The number of a thing among those that show.
LONG childNumber(const AccessibleWindow& asked, std::int32_t thing) {
    const std::vector<std::int32_t> shown = asked.shown();
    const auto found = std::find(shown.begin(), shown.end(), thing);
    return found == shown.end() ? CHILDID_SELF : static_cast<LONG>(found - shown.begin()) + 1;
}

} // namespace

LRESULT answerReader(const WindowState& state, WPARAM first, LPARAM second) {
    // The upper half has been seen with and without a sign.
    const auto number = static_cast<LONG>(second);
    const AccessibleWindow* const asked = askWindow(state.window);
    if (asked == nullptr || (number != OBJID_CLIENT && number <= 0)) return 0;
    const std::optional<std::int32_t> thing =
        number == OBJID_CLIENT ? AccessibleObject::Whole : listOf(*asked, number);
    const ReaderCalls* const calls = readerCalls();
    if (!thing || calls == nullptr) return 0;
    readerHasAsked = true;
    auto* const object = new AccessibleObject(state.window, *thing);
    const LRESULT answer = calls->resultOf(__mingw_uuidof<IAccessible>(), first, object);
    object->Release();
    return answer;
}

bool readerListens() { return readerHasAsked; }

void tellReaders(WindowHandle window, AccessiblePlace place, AccessibleChange change) {
    const HWND handle = windowOf(window);
    const AccessibleWindow* const asked = askWindow(handle);
    if (asked == nullptr) return;
    const DWORD event = eventOf(change);
    if (change == AccessibleChange::Rows || change == AccessibleChange::SelectedRow) {
        NotifyWinEvent(event, handle, place.thing + 1, place.row + 1);
        const bool active = GetForegroundWindow() == handle && place.row >= 0;
        if (active) NotifyWinEvent(EVENT_OBJECT_FOCUS, handle, place.thing + 1, place.row + 1);
        return;
    }
    const bool whole = event == EVENT_OBJECT_REORDER;
    NotifyWinEvent(event, handle, OBJID_CLIENT,
                   whole ? CHILDID_SELF : childNumber(*asked, place.thing));
}

bool takesInput(WindowHandle window) {
    const HWND handle = windowOf(window);
    return IsWindowVisible(handle) != FALSE && IsWindowEnabled(handle) != FALSE;
}

void standInForPointer(std::optional<Point> place) { pointerStandIn() = place; }

} // namespace platform
