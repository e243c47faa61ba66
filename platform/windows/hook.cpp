#include "platform/window.h"
#include "platform/windows/handles.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace platform {
namespace {

using Code = std::shared_ptr<std::function<void(std::int32_t)>>;

std::map<HWND, Code>& hooks() {
    static std::map<HWND, Code> all;
    return all;
}

/// The tray reports with the message of the pointer's moves; its code stands where such a move
/// has its X.
void tellCode(HWND hook, LPARAM place) {
    const auto found = hooks().find(hook);
    if (found == hooks().end()) return;
    const Code held = found->second; // the hook may destroy itself
    if (*held) (*held)(LOWORD(place));
}

LRESULT CALLBACK hookProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_MOUSEMOVE) tellCode(window, second);
    if (message == WM_NCDESTROY) hooks().erase(window);
    return DefWindowProcW(window, message, first, second);
}

constexpr const wchar_t* className = L"pctHook";

void registerClass() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = hookProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    RegisterClassW(&windowClass); // a second time it does nothing
}

} // namespace

WindowHandle createHookWindow(WindowHandle parent, std::function<void(std::int32_t)> code) {
    registerClass();
    const HWND hook =
        CreateWindowExW(0, className, L"pctHook", WS_CHILD, 0, 0, 1, 1, windowOf(parent), nullptr,
                        GetModuleHandleW(nullptr), nullptr);
    hooks()[hook] = std::make_shared<std::function<void(std::int32_t)>>(std::move(code));
    return numberOf(hook);
}

} // namespace platform
