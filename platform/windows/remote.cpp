#include "platform/windows/remote.h"

#include "platform/remote.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace platform {
namespace {

/// The message by which a request waits in the queue like a click.
constexpr UINT requestMessage = WM_APP;

RemoteEvents& offered() {
    static RemoteEvents events;
    return events;
}

std::optional<RemoteRequest> requestOf(LPARAM command) {
    switch (GET_APPCOMMAND_LPARAM(command)) {
    case APPCOMMAND_MEDIA_PLAY:
        return RemoteRequest::Play;
    case APPCOMMAND_MEDIA_PAUSE:
        return RemoteRequest::Pause;
    case APPCOMMAND_MEDIA_PLAY_PAUSE:
        return RemoteRequest::PlayOrPause;
    case APPCOMMAND_MEDIA_STOP:
        return RemoteRequest::Stop;
    case APPCOMMAND_MEDIA_NEXTTRACK:
        return RemoteRequest::Next;
    case APPCOMMAND_MEDIA_PREVIOUSTRACK:
        return RemoteRequest::Previous;
    default:
        return std::nullopt;
    }
}

UINT shellMessage() {
    static const UINT message = RegisterWindowMessageW(L"SHELLHOOK");
    return message;
}

LRESULT CALLBACK remoteProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == requestMessage) {
        offered().asked(static_cast<RemoteRequest>(first));
        return 0;
    }
    if (message == shellMessage() && first == HSHELL_APPCOMMAND) tellAppCommand(second);
    return DefWindowProcW(window, message, first, second);
}

/// A top-level window that is never shown: only such a one is told what the shell is.
HWND createRemoteWindow() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = remoteProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"OrvanRemote";
    RegisterClassW(&windowClass);
    return CreateWindowExW(WS_EX_TOOLWINDOW, windowClass.lpszClassName, L"", WS_POPUP, 0, 0, 0, 0,
                           nullptr, nullptr, windowClass.hInstance, nullptr);
}

HWND& remoteWindow() {
    static HWND window = nullptr;
    return window;
}

} // namespace

bool tellAppCommand(LPARAM command) {
    const std::optional<RemoteRequest> request = requestOf(command);
    if (!request || remoteWindow() == nullptr) return false;
    // Who sent it waits for the answer, and what it asks for may open a dialog.
    PostMessageW(remoteWindow(), requestMessage, static_cast<WPARAM>(*request), 0);
    return true;
}

/// A command goes to the window that has the keyboard, and on to the shell if nobody there has a
/// use for it: so the keys stay those of the program in front.
void offerRemote(RemoteEvents events) {
    offered() = std::move(events);
    if (remoteWindow() != nullptr) return;
    remoteWindow() = createRemoteWindow();
    RegisterShellHookWindow(remoteWindow());
}

// The media keys' commands ask only, and there is nobody to tell.
void tellRemote(const RemoteState& /*state*/) {}
void tellRemoteSeek(std::int32_t /*position*/) {}

} // namespace platform
