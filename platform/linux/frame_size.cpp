#include "platform/linux/window_widget.h"
#include "platform/linux/x_server.h"
#include "platform/system.h"
#include "platform/window.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace platform {
namespace {

constexpr qint64 patience = 1000; // ms; a window manager that can tell always does

bool windowManagerTells(xcb_atom_t request) {
    const auto supported = x::property(x::root(), x::atom("_NET_SUPPORTED"), XCB_ATOM_ATOM);
    return std::find(supported.begin(), supported.end(), request) != supported.end();
}

/// What a frame takes on the left, right, top and bottom, in the screen's own pixels.
std::vector<std::uint32_t> frameExtents(xcb_window_t window) {
    const xcb_atom_t request = x::atom("_NET_REQUEST_FRAME_EXTENTS");
    if (!windowManagerTells(request)) return {};
    x::askWindowManager(request, window, {});
    const xcb_atom_t answer = x::atom("_NET_FRAME_EXTENTS");
    QElapsedTimer clock;
    clock.start();
    while (!clock.hasExpired(patience)) {
        auto extents = x::property(window, answer, XCB_ATOM_CARDINAL);
        if (extents.size() == 4) return extents;
        Sleep(1);
    }
    return {};
}

} // namespace

Size frameSize(Frame frame) {
    if (frame == Frame::None) return {};
    // The answer is for a window that has the frame's hints; it needn't be shown.
    WindowOptions options;
    options.frame = frame;
    WindowWidget window(options, {});
    const auto extents = frameExtents(static_cast<xcb_window_t>(window.winId()));
    if (extents.empty()) return {};
    const double scale = window.devicePixelRatioF();
    const auto pixels = [&](std::size_t first) {
        return static_cast<std::int32_t>(
            std::lround((extents[first] + extents[first + 1]) / scale));
    };
    return {pixels(0), pixels(2)};
}

} // namespace platform
