#include "platform/windows/handles.h"
#include "platform/windows/reader_calls.h"
#include "tests/contract/reader.h"
#include "tests/contract/reader_scene.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <string>
#include <tuple>
#include <vector>

using namespace platform;
using contract::Scene;

namespace {

using Event = std::tuple<DWORD, LONG, LONG>; // what happened, to which object, to which child

std::vector<Event> heard;

void CALLBACK hear(HWINEVENTHOOK /*hook*/, DWORD event, HWND /*window*/, LONG object, LONG child,
                   DWORD /*thread*/, DWORD /*time*/) {
    heard.emplace_back(event, object, child);
}

bool hasHeard(const Event& event) {
    return contract::waitUntil(
        [&] { return std::find(heard.begin(), heard.end(), event) != heard.end(); });
}

/// The object that a window hands out under a number; null if it leaves that to the system.
IAccessible* askFor(WindowHandle window, LONG number) {
    const LRESULT answer = SendMessageW(windowOf(window), WM_GETOBJECT, 0, number);
    void* found = nullptr;
    if (answer == 0 || FAILED(ObjectFromLresult(answer, __mingw_uuidof<IAccessible>(), 0, &found)))
        return nullptr;
    return static_cast<IAccessible*>(found);
}

VARIANT childNumber(LONG number) {
    VARIANT child = {};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
}

} // namespace

TEST_CASE("a reader hears of changes by the system's events, of the thing or of the row") {
    const Scene scene;
    const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_CREATE, EVENT_OBJECT_END, nullptr, hear,
                                               GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    REQUIRE(hook != nullptr);
    heard.clear();
    using Change = AccessibleChange;
    tellReaders(scene.handle(), {2}, Change::State);
    CHECK(hasHeard({EVENT_OBJECT_STATECHANGE, OBJID_CLIENT, 2}));
    tellReaders(scene.handle(), {3}, Change::Value);
    CHECK(hasHeard({EVENT_OBJECT_VALUECHANGE, OBJID_CLIENT, 3}));
    tellReaders(scene.handle(), {6}, Change::Appeared);
    CHECK(hasHeard({EVENT_OBJECT_REORDER, OBJID_CLIENT, CHILDID_SELF}));
    tellReaders(scene.handle(), {5}, Change::Rows);
    CHECK(hasHeard({EVENT_OBJECT_REORDER, 6, CHILDID_SELF}));
    tellReaders(scene.handle(), {5, 1}, Change::SelectedRow);
    CHECK(hasHeard({EVENT_OBJECT_SELECTION, 6, 2}));
    UnhookWinEvent(hook);
}

TEST_CASE("the list whose number the events name is found by it, and nothing else by a number") {
    const Scene scene;
    IAccessible* const list = askFor(scene.handle(), 6);
    REQUIRE(list != nullptr);
    LONG rows = 0;
    CHECK(list->get_accChildCount(&rows) == S_OK);
    CHECK(rows == 3);
    VARIANT selected = {};
    CHECK(list->get_accSelection(&selected) == S_OK);
    CHECK(selected.lVal == 2);
    list->Release();
    CHECK(askFor(scene.handle(), 1) == nullptr);
    CHECK(askFor(scene.handle(), 2) == nullptr); // it doesn't show
    CHECK(askFor(scene.handle(), 70) == nullptr);
    CHECK(readerListens());
}

TEST_CASE("a slider takes the values that it tells, minutes and seconds too") {
    Scene scene;
    IAccessible* const window = askFor(scene.handle(), OBJID_CLIENT);
    REQUIRE(window != nullptr);
    for (const wchar_t* const words : {L"01:05 of 03:20", L"25 %", L"loud"}) {
        const BSTR text = SysAllocString(words);
        window->put_accValue(childNumber(3), text);
        SysFreeString(text);
    }
    CHECK(scene.diary == std::vector<std::string>{"set to 650: Volume", "set to 250: Volume"});
    window->Release();
}

TEST_CASE(
    "a reader that still holds a window that has ended gets nothing of it, and does nothing") {
    IAccessible* window = nullptr;
    {
        const Scene scene;
        window = askFor(scene.handle(), OBJID_CLIENT);
        REQUIRE(window != nullptr);
    }
    LONG count = 7;
    BSTR name = nullptr;
    CHECK(FAILED(window->get_accChildCount(&count)));
    CHECK(count == 0);
    CHECK(FAILED(window->get_accName(childNumber(1), &name)));
    CHECK(FAILED(window->accDoDefaultAction(childNumber(1))));
    window->Release();
}
