#include "platform/system.h"

#include "platform/device_pixels.h"
#include "platform/windows/display.h"
#include "platform/windows/handles.h"
#include "platform/windows/stand_in.h"
#include "platform/windows/window_table.h"

#include <cstdint>

namespace platform {

bool SystemParametersInfoA(std::uint32_t request, std::uint32_t parameter, Rect* area,
                           std::uint32_t flags) {
    // The others would write records of other sizes.
    if (request != SPI_GETWORKAREA || area == nullptr) return false;
    RECT edges = {};
    if (::SystemParametersInfoA(request, parameter, &edges, flags) == FALSE) return false;
    *area = nearestEdges({edges.left, edges.top, edges.right, edges.bottom}, displayScale());
    return true;
}

bool GetCursorPos(Point* point) {
    POINT place = {};
    if (point == nullptr || ::GetCursorPos(&place) == FALSE) return false;
    *point = pointerStandIn().value_or(pixelUnder(place));
    return true;
}

bool MoveWindow(WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width,
                std::int32_t height, bool repaint) {
    const WindowRecord record = findWindow(windowOf(window));
    if (record == nullptr) return false;
    const double scale = displayScale();
    const Size size = outerOnDisplay(record->frame, {x, y}, {width, height});
    return ::MoveWindow(record->window, deviceEdge(x, scale), deviceEdge(y, scale), size.width,
                        size.height, repaint ? TRUE : FALSE) != FALSE;
}

void Sleep(std::uint32_t milliseconds) { ::Sleep(milliseconds); }

std::uint32_t GetSysColor(std::int32_t index) { return ::GetSysColor(index); }

char* lstrcatA(char* target, const char* text) { return ::lstrcatA(target, text); }

} // namespace platform
