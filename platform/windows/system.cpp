#include "platform/system.h"

#include "platform/windows/handles.h"
#include "platform/windows/stand_in.h"

#include <cstdint>

namespace platform {

bool SystemParametersInfoA(std::uint32_t request, std::uint32_t parameter, Rect* area,
                           std::uint32_t flags) {
    // The others would write records of other sizes.
    if (request != SPI_GETWORKAREA || area == nullptr) return false;
    RECT edges = {};
    if (::SystemParametersInfoA(request, parameter, &edges, flags) == FALSE) return false;
    *area = {edges.left, edges.top, edges.right, edges.bottom};
    return true;
}

bool GetCursorPos(Point* point) {
    POINT place = {};
    if (point == nullptr || ::GetCursorPos(&place) == FALSE) return false;
    *point = pointerStandIn().value_or(Point{place.x, place.y});
    return true;
}

bool MoveWindow(WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width,
                std::int32_t height, bool repaint) {
    return ::MoveWindow(windowOf(window), x, y, width, height, repaint ? TRUE : FALSE) != FALSE;
}

void Sleep(std::uint32_t milliseconds) { ::Sleep(milliseconds); }

std::uint32_t GetSysColor(std::int32_t index) { return ::GetSysColor(index); }

char* lstrcatA(char* target, const char* text) { return ::lstrcatA(target, text); }

} // namespace platform
