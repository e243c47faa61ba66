#include "tests/e2e/tray_host/start_words.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <poll.h>
#include <utility>

namespace {

struct Free {
    void operator()(xcb_generic_event_t* event) const { std::free(event); }
};

} // namespace

StartWords::StartWords() : display_(xcb_connect(nullptr, nullptr)) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display_)).data->root;
    const std::uint32_t wanted = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(display_, root, XCB_CW_EVENT_MASK, &wanted);
    xcb_flush(display_);
}

StartWords::~StartWords() { xcb_disconnect(display_); }

std::string StartWords::next() {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::minutes(1);
    while (Clock::now() < end) {
        const std::unique_ptr<xcb_generic_event_t, Free> event(xcb_poll_for_event(display_));
        if (event == nullptr) {
            pollfd input{xcb_get_file_descriptor(display_), POLLIN, 0};
            poll(&input, 1, 100);
        } else if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE) {
            std::string message =
                messageOf(*reinterpret_cast<xcb_client_message_event_t*>(event.get()));
            if (!message.empty()) return message;
        }
    }
    return {};
}

std::string StartWords::messageOf(const xcb_client_message_event_t& event) {
    if (event.format != 8) return {};
    const auto* const first = event.data.data8;
    const auto* const last = first + sizeof event.data.data8;
    const auto* const end = std::find(first, last, 0);
    std::string& words = begun_[event.window];
    words.append(first, end);
    return end == last ? std::string() : std::exchange(words, {});
}
