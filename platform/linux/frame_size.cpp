#include "platform/linux/window_widget.h"
#include "platform/system.h"
#include "platform/window.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <xcb/xcb.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace platform {
namespace {

constexpr qint64 patience = 1000; // ms; a window manager that can tell always does

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

xcb_connection_t* server() {
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

xcb_window_t root() { return xcb_setup_roots_iterator(xcb_get_setup(server())).data->root; }

xcb_atom_t atom(std::string_view name) {
    const auto request =
        xcb_intern_atom(server(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server(), request, nullptr));
    return reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
}

/// The 32-bit values of a property; none if there is no such property.
std::vector<std::uint32_t> property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) {
    constexpr std::uint32_t longest = 1024;
    const auto request = xcb_get_property(server(), 0, window, name, type, 0, longest);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(server(), request, nullptr));
    if (reply == nullptr || reply->format != 32) return {};
    const auto* const values = static_cast<std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

bool windowManagerTells(xcb_atom_t request) {
    const auto supported = property(root(), atom("_NET_SUPPORTED"), XCB_ATOM_ATOM);
    return std::find(supported.begin(), supported.end(), request) != supported.end();
}

void askFor(xcb_atom_t request, xcb_window_t window) {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = request;
    xcb_send_event(server(), 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
}

/// What a frame takes on the left, right, top and bottom, in the screen's own pixels.
std::vector<std::uint32_t> frameExtents(xcb_window_t window) {
    const xcb_atom_t request = atom("_NET_REQUEST_FRAME_EXTENTS");
    if (!windowManagerTells(request)) return {};
    askFor(request, window);
    const xcb_atom_t answer = atom("_NET_FRAME_EXTENTS");
    QElapsedTimer clock;
    clock.start();
    while (!clock.hasExpired(patience)) {
        auto extents = property(window, answer, XCB_ATOM_CARDINAL);
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
