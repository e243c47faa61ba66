#include "platform/windows/accessible_object.h"

#include "platform/device_pixels.h"
#include "platform/windows/display.h"
#include "platform/windows/utf16.h"

#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <optional>
#include <string>
#include <vector>

namespace platform {
namespace {

VARIANT numberVariant(LONG number) {
    VARIANT variant = {};
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

/// What there is not is told by S_FALSE.
HRESULT hand(BSTR* target, const std::string& text) {
    const ReaderCalls* const calls = readerCalls();
    *target = nullptr;
    if (text.empty() || calls == nullptr) return S_FALSE;
    const std::wstring wide = toWide(text);
    *target = calls->allocate(wide.data(), static_cast<UINT>(wide.size()));
    return *target == nullptr ? E_OUTOFMEMORY : S_OK;
}

LONG roleOf(AccessibleRole role) {
    switch (role) {
    case AccessibleRole::Button:
    case AccessibleRole::ToggleButton:
        return ROLE_SYSTEM_PUSHBUTTON;
    case AccessibleRole::CheckBox:
        return ROLE_SYSTEM_CHECKBUTTON;
    case AccessibleRole::Slider:
        return ROLE_SYSTEM_SLIDER;
    case AccessibleRole::Text:
        return ROLE_SYSTEM_STATICTEXT;
    case AccessibleRole::List:
        return ROLE_SYSTEM_LIST;
    case AccessibleRole::Row:
        return ROLE_SYSTEM_LISTITEM;
    }
    return ROLE_SYSTEM_CLIENT;
}

const char* actionOf(const AccessibleThing& thing) {
    if (!thing.acts) return "";
    if (thing.role == AccessibleRole::Row) return "Double click";
    return thing.role == AccessibleRole::CheckBox ? "Toggle" : "Press";
}

bool contains(const Rect& area, Point place) {
    return place.x >= area.left && place.x < area.right && place.y >= area.top &&
           place.y < area.bottom;
}

/// A number, or minutes and seconds with ":" between them, as the sliders' own values are.
std::optional<double> numberIn(const wchar_t* text) {
    wchar_t* end = nullptr;
    const double first = std::wcstod(text, &end);
    if (end == text) return std::nullopt;
    if (*end != L':') return first;
    constexpr double secondsAMinute = 60;
    return first * secondsAMinute + std::wcstod(end + 1, nullptr);
}

} // namespace

const AccessibleWindow* askWindow(HWND window) {
    const WindowRecord state = findWindow(window);
    return state != nullptr && state->events.accessible ? &state->events.accessible() : nullptr;
}

// What it stands for.

std::vector<HWND> AccessibleObject::buttons() const {
    std::vector<HWND> all;
    if (const WindowRecord state = findWindow(window_))
        for (const ButtonState& button : state->buttons)
            all.push_back(button.button);
    return all;
}

bool AccessibleObject::isSelf(const VARIANT& child) const {
    return child.vt == VT_I4 && child.lVal == CHILDID_SELF && isWhole();
}

std::optional<AccessiblePlace> AccessibleObject::placeOf(const VARIANT& child) const {
    const AccessibleWindow* const asked = askWindow(window_);
    if (asked == nullptr || child.vt != VT_I4 || child.lVal < 0) return std::nullopt;
    const auto number = static_cast<std::int32_t>(child.lVal);
    if (!isWhole()) {
        if (number > asked->thing({thing_}).rows) return std::nullopt;
        return AccessiblePlace{thing_, number - 1};
    }
    const std::vector<std::int32_t> shown = asked->shown();
    const std::size_t index = static_cast<std::size_t>(number) - 1;
    if (number == 0 || index >= shown.size()) return std::nullopt;
    return AccessiblePlace{shown[index]};
}

std::optional<AccessibleThing> AccessibleObject::thingOf(const VARIANT& child) const {
    const std::optional<AccessiblePlace> place = placeOf(child);
    if (!place) return std::nullopt;
    return askWindow(window_)->thing(*place);
}

LONG AccessibleObject::stateOf(const AccessibleThing& thing) const {
    const bool row = thing.role == AccessibleRole::Row;
    const bool list = thing.role == AccessibleRole::List;
    const bool active = GetForegroundWindow() == window_;
    LONG state = 0;
    const auto add = [&](bool holds, LONG bit) { state |= holds ? bit : 0; };
    add(!thing.usable || IsWindowEnabled(window_) == FALSE, STATE_SYSTEM_UNAVAILABLE);
    add(IsWindowVisible(window_) == FALSE, STATE_SYSTEM_INVISIBLE);
    add(thing.pressed, STATE_SYSTEM_PRESSED);
    add(thing.checked, STATE_SYSTEM_CHECKED);
    add(thing.role == AccessibleRole::Text, STATE_SYSTEM_READONLY);
    add(row || list, STATE_SYSTEM_FOCUSABLE);
    add(row, STATE_SYSTEM_SELECTABLE);
    add(thing.selected, STATE_SYSTEM_SELECTED);
    // The list has the keyboard whenever its window has.
    add(active && (thing.selected || (list && thing.selectedRow < 0)), STATE_SYSTEM_FOCUSED);
    if (row) {
        const Rect box = askWindow(window_)->thing({thing_}).area;
        add(thing.area.top < box.top || thing.area.bottom > box.bottom, STATE_SYSTEM_OFFSCREEN);
    }
    return state;
}

// The object.

HRESULT AccessibleObject::QueryInterface(REFIID wanted, void** found) {
    if (found == nullptr) return E_POINTER;
    const bool known = wanted == __mingw_uuidof<IUnknown>() ||
                       wanted == __mingw_uuidof<IDispatch>() ||
                       wanted == __mingw_uuidof<IAccessible>();
    *found = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

// It is called in the interface's thread only.
ULONG AccessibleObject::AddRef() { return ++references_; }

ULONG AccessibleObject::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT AccessibleObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT AccessibleObject::GetTypeInfo(UINT /*index*/, LCID /*language*/, ITypeInfo** info) {
    *info = nullptr;
    return E_NOTIMPL;
}

HRESULT AccessibleObject::GetIDsOfNames(REFIID /*none*/, LPOLESTR* /*names*/, UINT /*count*/,
                                        LCID /*language*/, DISPID* /*numbers*/) {
    return E_NOTIMPL;
}

HRESULT AccessibleObject::Invoke(DISPID /*number*/, REFIID /*none*/, LCID /*language*/,
                                 WORD /*flags*/, DISPPARAMS* /*parameters*/, VARIANT* /*result*/,
                                 EXCEPINFO* /*exception*/, UINT* /*wrong*/) {
    return E_NOTIMPL;
}

// Where it stands among others.

HRESULT AccessibleObject::get_accParent(IDispatch** parent) {
    const ReaderCalls* const calls = readerCalls();
    *parent = nullptr;
    if (calls == nullptr) return S_FALSE;
    void* found = nullptr;
    // A list lies in its window's client area, which lies in the window.
    const auto part = static_cast<DWORD>(isWhole() ? OBJID_WINDOW : OBJID_CLIENT);
    const HRESULT result = calls->objectOf(window_, part, __mingw_uuidof<IDispatch>(), &found);
    *parent = static_cast<IDispatch*>(found);
    return result;
}

HRESULT AccessibleObject::get_accChildCount(LONG* count) {
    const AccessibleWindow* const asked = askWindow(window_);
    *count = 0;
    if (asked == nullptr) return CO_E_OBJNOTCONNECTED;
    *count = isWhole() ? static_cast<LONG>(asked->shown().size() + buttons().size())
                       : asked->thing({thing_}).rows;
    return S_OK;
}

HRESULT AccessibleObject::get_accChild(VARIANT child, IDispatch** object) {
    const AccessibleWindow* const asked = askWindow(window_);
    *object = nullptr;
    if (asked == nullptr || child.vt != VT_I4) return E_INVALIDARG;
    if (!isWhole()) return S_FALSE;
    if (const std::optional<AccessiblePlace> place = placeOf(child)) {
        if (asked->thing(*place).role != AccessibleRole::List) return S_FALSE;
        *object = new AccessibleObject(window_, place->thing);
        return S_OK;
    }
    const auto shown = static_cast<LONG>(asked->shown().size());
    const std::vector<HWND> others = buttons();
    const auto index = static_cast<std::size_t>(child.lVal - shown - 1);
    if (child.lVal <= shown || index >= others.size() || readerCalls() == nullptr) return S_FALSE;
    void* found = nullptr;
    const HRESULT result = readerCalls()->objectOf(others[index], static_cast<DWORD>(OBJID_CLIENT),
                                                   __mingw_uuidof<IDispatch>(), &found);
    *object = static_cast<IDispatch*>(found);
    return result;
}

HRESULT AccessibleObject::accNavigate(LONG /*direction*/, VARIANT /*start*/, VARIANT* end) {
    *end = {};
    return S_FALSE;
}

// What it tells.

HRESULT AccessibleObject::get_accName(VARIANT child, BSTR* name) {
    const AccessibleWindow* const asked = askWindow(window_);
    *name = nullptr;
    if (asked == nullptr) return CO_E_OBJNOTCONNECTED;
    if (isSelf(child)) return hand(name, asked->name);
    const std::optional<AccessibleThing> thing = thingOf(child);
    return thing ? hand(name, thing->name) : E_INVALIDARG;
}

HRESULT AccessibleObject::get_accValue(VARIANT child, BSTR* value) {
    *value = nullptr;
    if (isSelf(child)) return S_FALSE;
    const std::optional<AccessibleThing> thing = thingOf(child);
    return thing ? hand(value, thing->value) : E_INVALIDARG;
}

HRESULT AccessibleObject::get_accDescription(VARIANT child, BSTR* description) {
    *description = nullptr;
    if (isSelf(child)) return S_FALSE;
    const std::optional<AccessibleThing> thing = thingOf(child);
    return thing ? hand(description, thing->description) : E_INVALIDARG;
}

HRESULT AccessibleObject::get_accRole(VARIANT child, VARIANT* role) {
    *role = {};
    if (isSelf(child)) {
        *role = numberVariant(ROLE_SYSTEM_CLIENT);
        return S_OK;
    }
    const std::optional<AccessibleThing> thing = thingOf(child);
    if (!thing) return E_INVALIDARG;
    *role = numberVariant(roleOf(thing->role));
    return S_OK;
}

HRESULT AccessibleObject::get_accState(VARIANT child, VARIANT* state) {
    *state = {};
    if (isSelf(child)) {
        const bool visible = IsWindowVisible(window_) != FALSE;
        *state = numberVariant(visible ? STATE_SYSTEM_FOCUSABLE : STATE_SYSTEM_INVISIBLE);
        return S_OK;
    }
    const std::optional<AccessibleThing> thing = thingOf(child);
    if (!thing) return E_INVALIDARG;
    *state = numberVariant(stateOf(*thing));
    return S_OK;
}

HRESULT AccessibleObject::get_accHelp(VARIANT /*child*/, BSTR* help) {
    *help = nullptr;
    return S_FALSE;
}

HRESULT AccessibleObject::get_accHelpTopic(BSTR* file, VARIANT /*child*/, LONG* topic) {
    *file = nullptr;
    *topic = 0;
    return S_FALSE;
}

HRESULT AccessibleObject::get_accKeyboardShortcut(VARIANT /*child*/, BSTR* shortcut) {
    *shortcut = nullptr;
    return S_FALSE;
}

HRESULT AccessibleObject::get_accFocus(VARIANT* child) {
    *child = {};
    if (isWhole() || GetForegroundWindow() != window_) return S_FALSE;
    return get_accSelection(child);
}

HRESULT AccessibleObject::get_accSelection(VARIANT* children) {
    const AccessibleWindow* const asked = askWindow(window_);
    *children = {};
    if (asked == nullptr || isWhole()) return S_FALSE;
    const std::int32_t row = asked->thing({thing_}).selectedRow;
    if (row < 0) return S_FALSE;
    *children = numberVariant(row + 1);
    return S_OK;
}

HRESULT AccessibleObject::accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                      VARIANT child) {
    RECT client = {};
    GetClientRect(window_, &client);
    Rect area = {client.left, client.top, client.right, client.bottom};
    if (!isSelf(child)) {
        const std::optional<AccessibleThing> thing = thingOf(child);
        if (!thing) return E_INVALIDARG;
        area = deviceRect(thing->area, displayScale());
    }
    POINT corner = {area.left, area.top};
    ClientToScreen(window_, &corner);
    *left = corner.x;
    *top = corner.y;
    *width = area.right - area.left;
    *height = area.bottom - area.top;
    return S_OK;
}

/// What lies over other things, as the scroll keys over the list, comes behind them.
HRESULT AccessibleObject::accHitTest(LONG left, LONG top, VARIANT* child) {
    *child = {};
    POINT place = {left, top};
    ScreenToClient(window_, &place);
    LONG count = 0;
    get_accChildCount(&count);
    for (LONG number = count; number > 0; --number) {
        const VARIANT one = numberVariant(number);
        const std::optional<AccessibleThing> thing = thingOf(one);
        if (!thing || !contains(thing->area, pixelUnder(place))) continue;
        *child = one;
        if (thing->role != AccessibleRole::List) return S_OK;
        child->vt = VT_DISPATCH;
        return get_accChild(one, &child->pdispVal);
    }
    RECT client = {};
    GetClientRect(window_, &client);
    if (PtInRect(&client, place) == FALSE) return S_FALSE;
    *child = numberVariant(CHILDID_SELF);
    return S_OK;
}

// What it does.

HRESULT AccessibleObject::get_accDefaultAction(VARIANT child, BSTR* action) {
    *action = nullptr;
    if (isSelf(child)) return S_FALSE;
    const std::optional<AccessibleThing> thing = thingOf(child);
    return thing ? hand(action, actionOf(*thing)) : E_INVALIDARG;
}

HRESULT AccessibleObject::accDoDefaultAction(VARIANT child) {
    const std::optional<AccessiblePlace> place = placeOf(child);
    if (!place) return E_INVALIDARG;
    const AccessibleWindow* const asked = askWindow(window_);
    if (!asked->thing(*place).acts) return DISP_E_MEMBERNOTFOUND;
    asked->act(*place);
    return S_OK;
}

HRESULT AccessibleObject::accSelect(LONG flags, VARIANT child) {
    const std::optional<AccessiblePlace> place = placeOf(child);
    if (!place) return E_INVALIDARG;
    if (place->row < 0 || (flags & (SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION)) == 0)
        return DISP_E_MEMBERNOTFOUND;
    askWindow(window_)->select(*place);
    return S_OK;
}

HRESULT AccessibleObject::put_accName(VARIANT /*child*/, BSTR /*name*/) {
    return DISP_E_MEMBERNOTFOUND;
}

HRESULT AccessibleObject::put_accValue(VARIANT child, BSTR value) {
    const std::optional<AccessiblePlace> place = placeOf(child);
    if (!place || value == nullptr) return E_INVALIDARG;
    const AccessibleWindow* const asked = askWindow(window_);
    if (asked->thing(*place).role != AccessibleRole::Slider) return DISP_E_MEMBERNOTFOUND;
    const std::optional<double> number = numberIn(value);
    if (!number) return E_INVALIDARG;
    asked->setNumber(place->thing, *number);
    return S_OK;
}

} // namespace platform
