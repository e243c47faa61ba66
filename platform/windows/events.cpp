#include "platform/events.h"

#include "platform/window.h"
#include "platform/windows/dispatch.h"
#include "platform/windows/window_table.h"

#include <cstdio>

namespace platform {
namespace {

/// Keys that click a push button, in windows that have one.
bool clicksButton(MSG message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    const WindowRecord record = findWindow(GetAncestor(message.hwnd, GA_ROOT));
    return record != nullptr && !record->buttons.empty() &&
           IsDialogMessageW(record->window, &message) != FALSE;
}

} // namespace

void dispatchMessage(const MSG& message) {
    if (clicksButton(message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void yieldToEvents() {
    // Events may bring about others without end; what comes after this time counts as new.
    constexpr ULONGLONG longest = 100; // milliseconds
    const ULONGLONG start = GetTickCount64();
    MSG message = {};
    while (GetTickCount64() - start < longest &&
           PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            // It is for the loop around this one.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        dispatchMessage(message);
    }
}

int runEvents() {
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        dispatchMessage(message);
    return static_cast<int>(message.wParam);
}

void leaveEventLoop(int status) { PostQuitMessage(status); }

void endProcess(int status) {
    std::fflush(nullptr);
    // The media layer's threads would be waited for by the gentler ways.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(status));
    for (;;)
        ::Sleep(INFINITE);
}

void fatalMessage(const char* text) {
    std::fprintf(stderr, "%s\n", text);
    std::fflush(stderr);
    messageBox(text, "Orvan Music Player", MessageIcon::Critical);
}

} // namespace platform
