// first_window PROGRAM ARGUMENTS...: starts a program, waits for its first window on the screen and
// prints the milliseconds from its start to that window and the kilobytes it holds in memory a
// second later. Then it ends the program.
#include <xcb/xcb.h>

#include <csignal>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds patience{60};

[[noreturn]] void fail(const char* reason) {
    std::fprintf(stderr, "first_window: %s\n", reason);
    std::exit(1);
}

pid_t begin(char** command) {
    const pid_t child = fork();
    if (child == 0) {
        execvp(command[0], command);
        _exit(127);
    }
    return child;
}

/// A window manager puts a window into a frame of its own; the frame comes up right below the root.
void watchRoot(xcb_connection_t* display) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(display)).data;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const auto request =
        xcb_change_window_attributes_checked(display, screen->root, XCB_CW_EVENT_MASK, &mask);
    if (xcb_request_check(display, request) != nullptr) fail("the display does not answer");
}

/// Takes what has arrived from the display. True when a window came up on the screen.
bool windowCameUp(xcb_connection_t* display) {
    bool cameUp = false;
    while (xcb_generic_event_t* event = xcb_poll_for_event(display)) {
        cameUp = cameUp || (event->response_type & 0x7F) == XCB_MAP_NOTIFY;
        std::free(event);
    }
    return cameUp;
}

void awaitWindow(xcb_connection_t* display, Clock::time_point deadline) {
    while (!windowCameUp(display)) {
        if (Clock::now() > deadline) fail("no window");
        pollfd socket{xcb_get_file_descriptor(display), POLLIN, 0};
        poll(&socket, 1, 1000);
    }
}

long residentKilobytes(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) return std::strtol(line.c_str() + 6, nullptr, 10);
    }
    fail("the program ended by itself");
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount < 2) fail("which program?");
    xcb_connection_t* display = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(display) != 0) fail("no display");
    watchRoot(display);

    const Clock::time_point start = Clock::now();
    const pid_t program = begin(arguments + 1);
    awaitWindow(display, start + patience);
    const std::chrono::duration<double, std::milli> taken = Clock::now() - start;

    std::this_thread::sleep_for(std::chrono::seconds(1));
    const long memory = residentKilobytes(program);
    kill(program, SIGTERM);
    waitpid(program, nullptr, 0);
    xcb_disconnect(display);
    std::printf("%.1f %ld\n", taken.count(), memory);
}
