#include "platform/windows/system_dialog.h"

#include <iterator>
#include <string_view>
#include <utility>

namespace platform {
namespace {

/// For whom the next dialog is waited for; null when it has come.
Disabled*& awaiting() {
    static Disabled* others = nullptr;
    return others;
}

bool isDialog(HWND window) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wstring_view(name) == L"#32770";
}

bool hides(UINT message, LPARAM second) {
    return message == WM_WINDOWPOSCHANGING &&
           (reinterpret_cast<const WINDOWPOS*>(second)->flags & SWP_HIDEWINDOW) != 0;
}

LRESULT CALLBACK watchEnd(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR id,
                          DWORD_PTR others) {
    if (hides(message, second) || message == WM_DESTROY) {
        reinterpret_cast<Disabled*>(others)->end();
        RemoveWindowSubclass(window, watchEnd, id);
    }
    return DefSubclassProc(window, message, first, second);
}

LRESULT CALLBACK watchStart(int code, WPARAM first, LPARAM second) {
    const HWND window = reinterpret_cast<HWND>(first);
    if (code == HCBT_ACTIVATE && awaiting() != nullptr && isDialog(window)) {
        Disabled* const others = std::exchange(awaiting(), nullptr);
        others->inFavourOf(window);
        SetWindowSubclass(window, watchEnd, 1, reinterpret_cast<DWORD_PTR>(others));
    }
    return CallNextHookEx(nullptr, code, first, second);
}

} // namespace

SystemDialog::SystemDialog(Disabled& others)
    : hook_(SetWindowsHookExW(WH_CBT, watchStart, nullptr, GetCurrentThreadId())) {
    awaiting() = &others;
}

SystemDialog::~SystemDialog() {
    awaiting() = nullptr;
    UnhookWindowsHookEx(hook_);
}

} // namespace platform
