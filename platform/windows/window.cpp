#include "platform/window.h"

#include "platform/device_pixels.h"
#include "platform/windows/disabled.h"
#include "platform/windows/display.h"
#include "platform/windows/handles.h"
#include "platform/windows/utf16.h"
#include "platform/windows/window_table.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace platform {
namespace {

constexpr const wchar_t* className = L"OrvanWindow";

struct Style {
    DWORD usual;
    DWORD extended;
};

/// A system menu has the task bar treat a window without a frame like any other.
Style styleOf(Frame frame) {
    if (frame == Frame::None) return {WS_POPUP | WS_SYSMENU | WS_MINIMIZEBOX, 0};
    return {WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, WS_EX_TOOLWINDOW};
}

HINSTANCE program() { return GetModuleHandleW(nullptr); }

void registerClass() {
    static const bool registered = [] {
        WNDCLASSW windowClass = {};
        windowClass.style = CS_DBLCLKS;
        windowClass.lpfnWndProc = windowProcedure;
        windowClass.hInstance = program();
        windowClass.hIcon = LoadIconW(program(), MAKEINTRESOURCEW(1));
        windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
        windowClass.lpszClassName = className;
        return RegisterClassW(&windowClass) != 0;
    }();
    static_cast<void>(registered);
}

/// What the frame takes of the display.
Size edgesOf(Frame frame) {
    const Style style = styleOf(frame);
    RECT edges = {};
    AdjustWindowRectEx(&edges, style.usual, FALSE, style.extended);
    return {edges.right - edges.left, edges.bottom - edges.top};
}

/// An icon, or as large as the screen.
bool isOutOfState(HWND window) { return IsIconic(window) != FALSE || IsZoomed(window) != FALSE; }

void reveal(HWND window) {
    ShowWindow(window, isOutOfState(window) ? SW_SHOWNORMAL : SW_SHOW);
    bringToFront(window);
}

/// The first window without a frame has the button in the task bar. The others belong to it: so
/// they have none, and come to the front together with it.
HWND ownerOf(Frame frame) {
    if (frame != Frame::None) return nullptr;
    for (const WindowRecord& record : windowTable())
        if (record->frame == Frame::None) return record->window;
    return nullptr;
}

/// A window's end would be that of all that belong to it.
void letGoOfOthers(HWND window) {
    for (const WindowRecord& record : windowTable())
        if (GetWindow(record->window, GW_OWNER) == window)
            SetWindowLongPtrW(record->window, GWLP_HWNDPARENT, 0);
}

} // namespace

std::vector<WindowRecord>& windowTable() {
    static std::vector<WindowRecord> all;
    return all;
}

WindowRecord findWindow(HWND window) {
    const auto found =
        std::find_if(windowTable().begin(), windowTable().end(),
                     [&](const WindowRecord& record) { return record->window == window; });
    return found == windowTable().end() ? nullptr : *found;
}

Size frameSize(Frame frame) {
    const Size edges = edgesOf(frame);
    return {nearestEdge(edges.width, displayScale()), nearestEdge(edges.height, displayScale())};
}

Size outerOnDisplay(Frame frame, Point corner, Size outer) {
    const Size edges = edgesOf(frame);
    const Size inside = frameSize(frame);
    const Size client = deviceRoom(
        corner, {outer.width - inside.width, outer.height - inside.height}, displayScale());
    return {client.width + edges.width, client.height + edges.height};
}

WindowHandle createWindow(const WindowOptions& options, WindowEvents events) {
    registerClass();
    const Style style = styleOf(options.frame);
    const Size inside = frameSize(options.frame);
    const Size size =
        outerOnDisplay(options.frame, options.position,
                       {options.size.width + inside.width, options.size.height + inside.height});
    const double scale = displayScale();
    const HWND window = CreateWindowExW(
        style.extended, className, toWide(options.title).c_str(), style.usual,
        deviceEdge(options.position.x, scale), deviceEdge(options.position.y, scale), size.width,
        size.height, ownerOf(options.frame), nullptr, program(), nullptr);
    const auto record = std::make_shared<WindowState>();
    record->window = window;
    record->frame = options.frame;
    record->place = options.position;
    record->events = std::move(events);
    windowTable().push_back(record);
    return numberOf(window);
}

void destroyWindow(WindowHandle window) {
    if (const WindowRecord record = findWindow(windowOf(window))) record->othersDisabled.reset();
    // Out of the table first: nothing that its end brings about is told any more.
    std::erase_if(windowTable(),
                  [&](const WindowRecord& record) { return record->window == windowOf(window); });
    letGoOfOthers(windowOf(window));
    DestroyWindow(windowOf(window));
}

void showWindow(WindowHandle window, bool visible) {
    if (visible) return reveal(windowOf(window));
    if (const WindowRecord record = findWindow(windowOf(window))) record->othersDisabled.reset();
    ShowWindow(windowOf(window), SW_HIDE);
}

bool setNormalState(WindowHandle window) {
    const HWND handle = windowOf(window);
    if (IsWindow(handle) == FALSE) return false;
    // What is hidden comes out of it when it is shown.
    if (IsWindowVisible(handle) == FALSE) return true;
    if (isOutOfState(handle)) ShowWindow(handle, SW_SHOWNORMAL);
    return !isOutOfState(handle);
}

double pictureScale(WindowHandle /*window*/) {
    constexpr double largest = 4;
    return std::min(displayScale(), largest);
}

void requestPaint(WindowHandle window) { InvalidateRect(windowOf(window), nullptr, FALSE); }

void paintNow(WindowHandle window) {
    UpdateWindow(windowOf(window));
    GdiFlush();
}

void setTooltip(WindowHandle window, const std::string& text) {
    if (const WindowRecord record = findWindow(windowOf(window)))
        record->tooltip.setText(record->window, text);
}

} // namespace platform
