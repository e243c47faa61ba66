#include "tests/contract/reader.h"

#include "platform/device_pixels.h"
#include "platform/windows/display.h"
#include "platform/windows/handles.h"
#include "platform/windows/reader_calls.h"
#include "platform/windows/utf16.h"

#include <doctest/doctest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace contract {
namespace {

/// A reader's hold on an object, and the number of what is meant in it.
class Held {
  public:
    Held(IAccessible* object, LONG child) : object_(object) {
        child_.vt = VT_I4;
        child_.lVal = child;
    }
    Held(const Held& other) : object_(other.object_), child_(other.child_) { object_->AddRef(); }
    Held& operator=(const Held&) = delete;
    ~Held() { object_->Release(); }

    [[nodiscard]] IAccessible* operator->() const { return object_; }
    [[nodiscard]] VARIANT child() const { return child_; }

  private:
    IAccessible* object_;
    VARIANT child_ = {};
};

Held windowOf(platform::WindowHandle window) {
    void* found = nullptr;
    REQUIRE(AccessibleObjectFromWindow(platform::windowOf(window), static_cast<DWORD>(OBJID_CLIENT),
                                       __mingw_uuidof<IAccessible>(), &found) == S_OK);
    return {static_cast<IAccessible*>(found), CHILDID_SELF};
}

/// A child as readers take it: an object of its own, or a number in its parent.
Held childOf(const Held& parent, LONG number) {
    VARIANT child = {};
    child.vt = VT_I4;
    child.lVal = number;
    IDispatch* own = nullptr;
    if (parent->get_accChild(child, &own) != S_OK || own == nullptr) {
        parent->AddRef();
        return {parent.operator->(), number};
    }
    void* found = nullptr;
    REQUIRE(own->QueryInterface(__mingw_uuidof<IAccessible>(), &found) == S_OK);
    own->Release();
    return {static_cast<IAccessible*>(found), CHILDID_SELF};
}

Held thingOf(platform::WindowHandle window, int thing, int row) {
    const Held found = childOf(windowOf(window), thing + 1);
    return row < 0 ? found : childOf(found, row + 1);
}

std::string textOf(HRESULT result, BSTR text) {
    REQUIRE(SUCCEEDED(result));
    const std::string told = text == nullptr ? "" : platform::fromWide({text, SysStringLen(text)});
    SysFreeString(text);
    return told;
}

LONG stateOf(const Held& thing) {
    VARIANT state = {};
    REQUIRE(thing->get_accState(thing.child(), &state) == S_OK);
    return state.lVal;
}

platform::Rect areaOf(const Held& thing, platform::WindowHandle window) {
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    REQUIRE(thing->accLocation(&left, &top, &width, &height, thing.child()) == S_OK);
    POINT corner = {left, top};
    ScreenToClient(platform::windowOf(window), &corner);
    return platform::nearestEdges({corner.x, corner.y, corner.x + width, corner.y + height},
                                  platform::displayScale());
}

LONG countOf(const Held& parent) {
    LONG count = 0;
    REQUIRE(parent->get_accChildCount(&count) == S_OK);
    return count;
}

Read readOf(const Held& thing, platform::WindowHandle window) {
    Read read;
    BSTR text = nullptr;
    HRESULT result = thing->get_accName(thing.child(), &text);
    read.name = textOf(result, std::exchange(text, nullptr));
    // What has no value says so; the system's own button fails.
    result = thing->get_accValue(thing.child(), &text);
    read.value = FAILED(result) ? "" : textOf(result, std::exchange(text, nullptr));
    read.number = std::strtod(read.value.c_str(), nullptr);
    result = thing->get_accDescription(thing.child(), &text);
    read.description = FAILED(result) ? "" : textOf(result, std::exchange(text, nullptr));
    const LONG state = stateOf(thing);
    read.area = areaOf(thing, window);
    read.usable = (state & STATE_SYSTEM_UNAVAILABLE) == 0;
    read.pressed = (state & STATE_SYSTEM_PRESSED) != 0;
    read.checked = (state & STATE_SYSTEM_CHECKED) != 0;
    read.selected = (state & STATE_SYSTEM_SELECTED) != 0;
    if (thing.child().lVal == CHILDID_SELF) read.rows = static_cast<std::int32_t>(countOf(thing));
    return read;
}

std::vector<Read> childrenOf(const Held& parent, platform::WindowHandle window) {
    std::vector<Read> read;
    for (LONG number = 1; number <= countOf(parent); ++number)
        read.push_back(readOf(childOf(parent, number), window));
    return read;
}

} // namespace

std::string readName(platform::WindowHandle window) {
    return readOf(windowOf(window), window).name;
}

std::vector<Read> readThings(platform::WindowHandle window) {
    return childrenOf(windowOf(window), window);
}

std::vector<Read> readRows(platform::WindowHandle window, int thing) {
    return childrenOf(thingOf(window, thing, -1), window);
}

int thingAt(platform::WindowHandle window, std::int32_t x, std::int32_t y) {
    POINT place = {platform::deviceEdge(x, platform::displayScale()),
                   platform::deviceEdge(y, platform::displayScale())};
    ClientToScreen(platform::windowOf(window), &place);
    const Held whole = windowOf(window);
    VARIANT found = {};
    REQUIRE(whole->accHitTest(place.x, place.y, &found) == S_OK);
    if (found.vt == VT_I4) return static_cast<int>(found.lVal) - 1;
    REQUIRE(found.vt == VT_DISPATCH);
    void* object = nullptr;
    REQUIRE(found.pdispVal->QueryInterface(__mingw_uuidof<IAccessible>(), &object) == S_OK);
    found.pdispVal->Release();
    const Held list(static_cast<IAccessible*>(object), CHILDID_SELF);
    const std::string name = readOf(list, window).name;
    const std::vector<Read> all = readThings(window);
    for (std::size_t n = 0; n < all.size(); ++n)
        if (all[n].name == name) return static_cast<int>(n);
    return -1;
}

void act(platform::WindowHandle window, int thing, int row) {
    const Held found = thingOf(window, thing, row);
    CHECK(found->accDoDefaultAction(found.child()) == S_OK);
}

void select(platform::WindowHandle window, int list, int row) {
    const Held found = thingOf(window, list, row);
    CHECK(found->accSelect(SELFLAG_TAKESELECTION, found.child()) == S_OK);
}

void setNumber(platform::WindowHandle window, int slider, double number) {
    const Held found = thingOf(window, slider, -1);
    const std::wstring words = platform::toWide(std::to_string(number));
    const BSTR text = SysAllocString(words.c_str());
    CHECK(found->put_accValue(found.child(), text) == S_OK);
    SysFreeString(text);
}

} // namespace contract
