#include "platform/system.h"

#include "platform/linux/desktop_style.h"
#include "platform/linux/press_place.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>

#include <chrono>
#include <cstdint>
#include <cstring>
#include <thread>

namespace platform {
namespace {

std::uint32_t storedColour(QPalette::ColorRole role) {
    followDesktop(); // a box of the player's own is made of these
    const QColor colour = QGuiApplication::palette().color(QPalette::Active, role);
    return static_cast<std::uint32_t>(colour.blue() << 16 | colour.green() << 8 | colour.red());
}

} // namespace

bool SystemParametersInfoA(std::uint32_t request, std::uint32_t /*parameter*/, Rect* area,
                           std::uint32_t /*flags*/) {
    if (request != SPI_GETWORKAREA || area == nullptr) return false;
    const QRect free = QGuiApplication::primaryScreen()->availableGeometry();
    *area = {free.x(), free.y(), free.x() + free.width(), free.y() + free.height()};
    return true;
}

bool GetCursorPos(Point* point) {
    if (point == nullptr) return false;
    const QPoint now = QCursor::pos();
    *point = PressPlace::current().value_or(Point{now.x(), now.y()});
    return true;
}

bool MoveWindow(WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width,
                std::int32_t height, bool repaint) {
    WindowWidget* const widget = findWindow(window);
    if (widget == nullptr) return false;
    widget->place({x, y}, {width, height});
    if (repaint) widget->update();
    return true;
}

void Sleep(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

std::uint32_t GetSysColor(std::int32_t index) {
    switch (index) {
    case COLOR_WINDOW:
        return storedColour(QPalette::Base);
    case COLOR_WINDOWTEXT:
        return storedColour(QPalette::Text);
    case COLOR_BTNFACE:
        return storedColour(QPalette::Window);
    case COLOR_BTNTEXT:
        return storedColour(QPalette::WindowText);
    default:
        return 0;
    }
}

char* lstrcatA(char* target, const char* text) {
    std::memcpy(target + std::strlen(target), text, std::strlen(text) + 1);
    return target;
}

} // namespace platform
