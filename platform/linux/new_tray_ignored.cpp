#include "platform/linux/new_tray_ignored.h"

#include "platform/linux/x_server.h"

#include <QCoreApplication>

namespace platform {
namespace {

constexpr unsigned eventType = 0x7F; // of the first byte; the last bit tells who sent it

/// A tray tells all windows that it has taken the selection of this name, with the screen's number.
bool tellsOfTray(const xcb_client_message_event_t& message) {
    static const xcb_atom_t manager = x::atom("MANAGER");
    return message.type == manager &&
           x::nameOf(message.data.data32[1]).starts_with("_NET_SYSTEM_TRAY_S");
}

} // namespace

NewTrayIgnored::NewTrayIgnored() { QCoreApplication::instance()->installNativeEventFilter(this); }

bool NewTrayIgnored::nativeEventFilter(const QByteArray& /*type*/, void* message,
                                       qintptr* /*result*/) {
    const auto* const event = static_cast<xcb_generic_event_t*>(message);
    return (event->response_type & eventType) == XCB_CLIENT_MESSAGE &&
           tellsOfTray(*static_cast<xcb_client_message_event_t*>(message));
}

} // namespace platform
