#include <xcb/xcb.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string_view>
#include <vector>

/// The program of a desktop that tells all others the user's settings, of which there is one: each
/// line of the input is a new number of dots to an inch. It says "told" to each.
namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

xcb_atom_t atom(xcb_connection_t* server, std::string_view name) {
    const auto request =
        xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, FreeReply> reply(
        xcb_intern_atom_reply(server, request, nullptr));
    return reply->atom;
}

/// The settings as they are told: a number by its name.
std::vector<std::uint8_t> settings(std::uint32_t serial, std::uint32_t dotsPerInch) {
    constexpr std::string_view name = "Xft/DPI";
    constexpr std::uint32_t unit = 1024;
    std::vector<std::uint8_t> record;
    const auto append = [&](std::size_t value, std::size_t bytes) {
        for (std::size_t i = 0; i < bytes; ++i)
            record.push_back(static_cast<std::uint8_t>(value >> (8 * i) & 0xFFU));
    };
    append(0, 4); // the lowest byte first
    append(serial, 4);
    append(1, 4); // setting
    append(0, 2); // a number
    append(name.size(), 2);
    record.insert(record.end(), name.begin(), name.end());
    append(0, 1); // to a multiple of four
    append(serial, 4);
    append(std::size_t{dotsPerInch} * unit, 4);
    return record;
}

} // namespace

int main() {
    xcb_connection_t* const server = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(server) != 0) return 1;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    const xcb_window_t window = xcb_generate_id(server);
    xcb_create_window(server, XCB_COPY_FROM_PARENT, window, root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const xcb_atom_t property = atom(server, "_XSETTINGS_SETTINGS");
    xcb_set_selection_owner(server, window, atom(server, "_XSETTINGS_S0"), XCB_CURRENT_TIME);
    std::uint32_t dotsPerInch = 0;
    for (std::uint32_t serial = 1; std::cin >> dotsPerInch; ++serial) {
        const auto record = settings(serial, dotsPerInch);
        constexpr std::uint8_t bits = 8;
        xcb_change_property(server, XCB_PROP_MODE_REPLACE, window, property, property, bits,
                            static_cast<std::uint32_t>(record.size()), record.data());
        atom(server, "_XSETTINGS_SETTINGS"); // its reply comes once the server has done the rest
        std::puts("told");
        std::fflush(stdout);
    }
    xcb_disconnect(server);
    return 0;
}
