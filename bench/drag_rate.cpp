// drag_rate WINDOWS PROGRAM ARGUMENTS...: starts a program, drags its first window about by the
// pointer, and prints
// - the moves a second when each waits until the window has followed the one before,
// - the moves a second when the pointer goes as fast as the display can move it, and
// - how many pixels the window then stands from where it should.
// With two windows the list is opened first, and both must follow.
#include <xcb/xcb.h>

#include <csignal>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds patience{60};
constexpr std::chrono::seconds run{3};
constexpr std::chrono::seconds settling{10};

struct Place {
    int x = 0;
    int y = 0;
    friend bool operator==(const Place&, const Place&) = default;
};

constexpr Place grip{100, 6};     // of the held window, its bare background
constexpr Place listKey{255, 55}; // opens the list

pid_t program = 0;

[[noreturn]] void fail(const char* reason) {
    std::fprintf(stderr, "drag_rate: %s\n", reason);
    if (program > 0) kill(program, SIGTERM);
    std::exit(1);
}

/// The display, and what its windows do right below the root, frames of a window manager included.
class Desk {
  public:
    Desk() {
        if (xcb_connection_has_error(display_) != 0) fail("no display");
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(display_, root_, XCB_CW_EVENT_MASK, &mask);
        sync();
    }
    ~Desk() { xcb_disconnect(display_); }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    /// Waits for what the display has done so far.
    void sync() {
        std::free(xcb_get_input_focus_reply(display_, xcb_get_input_focus(display_), nullptr));
    }

    void movePointer(Place place) {
        xcb_warp_pointer(display_, XCB_NONE, root_, 0, 0, 0, 0, static_cast<std::int16_t>(place.x),
                         static_cast<std::int16_t>(place.y));
        xcb_flush(display_);
    }

    /// Takes what has arrived.
    void look() {
        while (xcb_generic_event_t* event = xcb_poll_for_event(display_)) {
            const auto type = event->response_type & 0x7F;
            if (type == XCB_MAP_NOTIFY)
                shown.push_back(reinterpret_cast<xcb_map_notify_event_t*>(event)->window);
            if (type == XCB_CONFIGURE_NOTIFY) {
                const auto* moved = reinterpret_cast<xcb_configure_notify_event_t*>(event);
                places[moved->window] = {moved->x, moved->y};
                ++moves[moved->window];
            }
            std::free(event);
        }
    }

    template <class Condition>
    void await(const Condition& condition, const char* what) {
        const Clock::time_point deadline = Clock::now() + patience;
        for (look(); !condition(); look()) {
            if (Clock::now() > deadline) fail(what);
            pollfd socket{xcb_get_file_descriptor(display_), POLLIN, 0};
            poll(&socket, 1, 100);
        }
    }

    std::vector<xcb_window_t> shown;
    std::map<xcb_window_t, Place> places;
    std::map<xcb_window_t, int> moves;

  private:
    xcb_connection_t* display_ = xcb_connect(nullptr, nullptr);
    xcb_window_t root_ = xcb_setup_roots_iterator(xcb_get_setup(display_)).data->root;
};

pid_t begin(char** command) {
    const pid_t child = fork();
    if (child == 0) {
        execvp(command[0], command);
        _exit(127);
    }
    return child;
}

void xdotool(const std::string& arguments) {
    if (std::system(("xdotool " + arguments).c_str()) != 0) fail("xdotool failed");
}

void point(const char* action, Place place) {
    xdotool("mousemove " + std::to_string(place.x) + " " + std::to_string(place.y) + " " + action);
}

Place operator+(Place a, Place b) { return {a.x + b.x, a.y + b.y}; }

/// Places all over the screen, where no edge pulls.
Place wander(int n) { return {40 + n * 37 % 600, 40 + n * 23 % 400}; }

double rate(int moves, Clock::duration taken) {
    return moves / std::chrono::duration<double>(taken).count();
}

double stepByStep(Desk& desk, const std::vector<xcb_window_t>& windows) {
    int done = 0;
    const Clock::time_point start = Clock::now();
    while (Clock::now() - start < run) {
        const Place place = wander(done++);
        const Place below = place + Place{0, 82};
        desk.movePointer(place + grip);
        desk.await(
            [&] {
                return desk.places[windows[0]] == place &&
                       (windows.size() < 2 || desk.places[windows[1]] == below);
            },
            "the window does not follow");
    }
    return rate(done, Clock::now() - start);
}

double allAtOnce(Desk& desk, xcb_window_t window, int& slip) {
    desk.look();
    const int before = desk.moves[window];
    Place place;
    int sent = 0;
    const Clock::time_point start = Clock::now();
    while (Clock::now() - start < run) {
        place = wander(++sent);
        desk.movePointer(place + grip);
        desk.sync();
        desk.look();
    }
    const double followed = rate(desk.moves[window] - before, Clock::now() - start);
    const Clock::time_point end = Clock::now();
    while (desk.places[window] != place && Clock::now() - end < settling) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        desk.look();
    }
    const Place stands = desk.places[window];
    slip = std::abs(stands.x - place.x) + std::abs(stands.y - place.y);
    return followed;
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount < 3) fail("how many windows, and which program?");
    const std::size_t windows = arguments[1][0] == '2' ? 2 : 1;
    Desk desk;
    program = begin(arguments + 2);
    desk.await([&] { return !desk.shown.empty(); }, "no window");
    std::this_thread::sleep_for(std::chrono::seconds(1));
    desk.look();
    const xcb_window_t held = desk.shown.front();
    const Place home = desk.places[held];
    if (windows == 2) {
        point("click 1", home + listKey);
        desk.await([&] { return desk.shown.size() >= 2; }, "no list");
        std::this_thread::sleep_for(std::chrono::seconds(1));
    }

    point("mousedown 1", home + grip);
    std::vector<xcb_window_t> followers{held};
    if (windows == 2) followers.push_back(desk.shown[1]);
    const double steps = stepByStep(desk, followers);
    int slip = 0;
    const double flood = allAtOnce(desk, held, slip);
    xdotool("mouseup 1");

    int status = 0;
    if (waitpid(program, &status, WNOHANG) != 0)
        fail(WIFSIGNALED(status) ? strsignal(WTERMSIG(status)) : "the program ended by itself");
    kill(program, SIGTERM);
    waitpid(program, nullptr, 0);
    std::printf("%.0f %.0f %d\n", steps, flood, slip);
}
