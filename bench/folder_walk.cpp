// Adds the folders named on the command line to a running player, one after the other, each to an
// emptied list, and scrolls through the list in 2000 steps. Prints a line for each: tracks, ms for
// the walk, KB of memory it took, microseconds for a step.
#include "app/modMain.h"
#include "platform/desktop.h"
#include "platform/events.h"
#include "platform/shell.h"
#include "runtime/characters.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

std::string picked;

double microsecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

long kilobytesHeld() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word)
        if (word == "VmRSS:") break;
    long kilobytes = 0;
    status >> kilobytes;
    return kilobytes;
}

/// Brings rows from all over the list to the top and has each shown; microseconds for one.
double scrollThrough(ModMain& program) {
    constexpr int looks = 2000;
    toolkit::ListBox& list = program.frmPlaylist.List1;
    const int last = list.ListCount().value() - 1;
    const auto start = Clock::now();
    for (int look = 1; look <= looks; ++look) {
        list.TopIndex(runtime::Int16(last * look / looks));
        platform::yieldToEvents();
    }
    return microsecondsSince(start) / looks;
}

void measure(ModMain& program, const std::string& folder) {
    program.frmPlayer.clearall();
    platform::yieldToEvents();
    picked = folder;
    std::replace(picked.begin(), picked.end(), '/', '\\');
    const long before = kilobytesHeld();
    const auto start = Clock::now();
    program.frmPlayer.opendir();
    const double walked = microsecondsSince(start);
    const long held = kilobytesHeld() - before;
    const int tracks = program.frmPlayer.trackCount.value();
    const double scrolled = scrollThrough(program);
    std::printf("%d %.3f %ld %.3f\n", tracks, walked / 1000, held, scrolled);
}

} // namespace

// Stands in for the dialog, which takes a user.
namespace platform {

bool GetOpenFileNameA(OPENFILENAME* /*record*/) { return false; }

bool Shell_NotifyIconA(std::uint32_t /*message*/, NOTIFYICONDATA* /*record*/) { return false; }

std::int32_t SHBrowseForFolder(BROWSEINFO* /*record*/) { return 1; }

bool SHGetPathFromIDList(std::int32_t /*item*/, char* path) {
    constexpr std::size_t size = 260 * runtime::BytesOfCharacter;
    return std::snprintf(path, size, "%s", picked.c_str()) > 0;
}

} // namespace platform

int main(int argumentCount, char** arguments) {
    int own = 1;
    if (!platform::start(own, arguments)) return 1;
    ModMain program;
    program.Main();
    program.frmPlaylist.window.Show();
    for (int i = 1; i < argumentCount; ++i)
        measure(program, arguments[i]);
    std::fflush(stdout);
    platform::endProcess(0);
}
