#include "platform/linux/x_server.h"

#include <QGuiApplication>

#include <xcb/shape.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace platform::x {

bool isThere() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

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

std::string nameOf(xcb_atom_t atom) {
    const Reply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(server(), xcb_get_atom_name(server(), atom), nullptr));
    if (reply == nullptr) return {};
    return {xcb_get_atom_name_name(reply.get()), reply->name_len};
}

void askWindowManager(xcb_atom_t request, xcb_window_t window,
                      const std::array<std::uint32_t, 5>& values) {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = request;
    std::copy(values.begin(), values.end(), event.data.data32);
    xcb_send_event(server(), 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
}

void setProperty(xcb_window_t window, xcb_atom_t name, xcb_atom_t type,
                 const std::vector<std::uint32_t>& values) {
    constexpr std::uint8_t bits = 32;
    xcb_change_property(server(), XCB_PROP_MODE_REPLACE, window, name, type, bits,
                        static_cast<std::uint32_t>(values.size()), values.data());
}

void setText(xcb_window_t window, std::string_view name, const std::string& utf8) {
    constexpr std::uint8_t bits = 8;
    xcb_change_property(server(), XCB_PROP_MODE_REPLACE, window, atom(name), atom("UTF8_STRING"),
                        bits, static_cast<std::uint32_t>(utf8.size()), utf8.data());
}

void setTitle(xcb_window_t window, const std::string& utf8) {
    setText(window, "_NET_WM_NAME", utf8);
}

void tellStart(xcb_window_t window, const std::string& message) {
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = window;
    event.type = atom("_NET_STARTUP_INFO_BEGIN");
    // In pieces; a NUL is the end.
    for (std::size_t sent = 0; sent <= message.size(); sent += sizeof event.data.data8) {
        std::fill(std::begin(event.data.data8), std::end(event.data.data8), std::uint8_t{0});
        message.copy(reinterpret_cast<char*>(event.data.data8), sizeof event.data.data8, sent);
        xcb_send_event(server(), 0, root(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&event));
        event.type = atom("_NET_STARTUP_INFO");
    }
    xcb_flush(server());
}

bool isShowingDesktop() {
    if (!isThere()) return false;
    const auto value = property(root(), atom("_NET_SHOWING_DESKTOP"), XCB_ATOM_CARDINAL);
    return !value.empty() && value.front() != 0;
}

void cutWindow(xcb_window_t window, const std::vector<Rect>& rectangles) {
    std::vector<xcb_rectangle_t> cut;
    cut.reserve(rectangles.size());
    for (const Rect& r : rectangles)
        cut.push_back({static_cast<std::int16_t>(r.left), static_cast<std::int16_t>(r.top),
                       static_cast<std::uint16_t>(r.right - r.left),
                       static_cast<std::uint16_t>(r.bottom - r.top)});
    xcb_shape_rectangles(server(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                         XCB_CLIP_ORDERING_UNSORTED, window, 0, 0,
                         static_cast<std::uint32_t>(cut.size()), cut.data());
}

void resizeWindow(xcb_window_t window, Size size) {
    // Window managers round a size down to its steps, of which Qt makes fractions whole.
    constexpr std::uint32_t tellsSteps = 64;
    auto hints = property(window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS);
    if (!hints.empty()) {
        hints.front() &= ~tellsSteps;
        setProperty(window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, hints);
    }
    const std::array<std::uint32_t, 2> sides{static_cast<std::uint32_t>(size.width),
                                             static_cast<std::uint32_t>(size.height)};
    xcb_configure_window(server(), window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         sides.data());
}

void leaveIcon(xcb_window_t window) {
    constexpr std::uint32_t iconicState = 3; // ICCCM 4.1.3.1
    const xcb_atom_t name = atom("WM_STATE");
    const auto state = property(window, name, name);
    if (state.empty() || state.front() != iconicState) return;
    xcb_map_window(server(), window);
    xcb_flush(server());
}

Point placeOf(xcb_window_t window) {
    const auto request = xcb_translate_coordinates(server(), window, root(), 0, 0);
    const Reply<xcb_translate_coordinates_reply_t> reply(
        xcb_translate_coordinates_reply(server(), request, nullptr));
    return reply == nullptr ? Point{} : Point{reply->dst_x, reply->dst_y};
}

void awaitServer() {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(server(), xcb_get_input_focus(server()), nullptr));
}

xcb_window_t keyboardWindow() {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(server(), xcb_get_input_focus(server()), nullptr));
    return reply == nullptr ? xcb_window_t{XCB_NONE} : reply->focus;
}

std::vector<std::uint32_t> property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) {
    constexpr std::uint32_t longest = 1024;
    const auto request = xcb_get_property(server(), 0, window, name, type, 0, longest);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(server(), request, nullptr));
    if (reply == nullptr || reply->format != 32) return {};
    const auto* const values = static_cast<std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

} // namespace platform::x
