// What the sound device costs, one figure a line for the script beside it.
//
//   sound_bench files FILE        opening it, beside the library's own scan; finding places in it
//   sound_bench play FILE         plays it whole, asked as the player asks, and nothing else
//   sound_bench wakeups FILE      wake-ups a second and memory: playing, paused, idle
#include "platform/linux/media/decoder.h"
#include "platform/media.h"
#include "platform/system.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <mpg123.h>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds tick{966};

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

std::uint32_t send(const std::string& command) {
    return platform::mciSendStringA(command.c_str(), nullptr, 0, 0);
}

int status(const char* command) {
    char reply[255] = {};
    if (platform::mciSendStringA(command, reply, sizeof reply, 0) != 0) return -1;
    return std::atoi(reply);
}

void open(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    char name[256] = {};
    const std::uint32_t size = platform::GetShortPathNameA(path.c_str(), name, 255);
    const std::string command =
        "open " + std::string(name, size) + " type MpegVideo Alias mpeg parent 1 Style 1073741824";
    if (send(command) != 0) {
        std::fprintf(stderr, "cannot open %s\n", path.c_str());
        std::exit(1);
    }
}

/// Asks what a tick of the player asks. False once the track has ended.
bool askAsTheTickDoes() {
    int position = 0;
    int length = 0;
    for (int i = 0; i < 2; ++i) {
        position = status("status mpeg position");
        send("set mpeg time format frames");
        length = status("status mpeg length");
    }
    return position != length;
}

long wakeups() {
    long sum = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream file(task.path() / "status");
        std::string word;
        while (file >> word) {
            if (word != "voluntary_ctxt_switches:") continue;
            long count = 0;
            file >> count;
            sum += count;
        }
    }
    return sum;
}

long residentKilobytes() {
    std::ifstream file("/proc/self/status");
    std::string word;
    while (file >> word) {
        if (word != "VmRSS:") continue;
        long size = 0;
        file >> size;
        return size;
    }
    return 0;
}

enum class Ticks { Asking, None };

void measureWakeups(const char* what, int seconds, Ticks ticks) {
    const long before = wakeups();
    const auto start = Clock::now();
    while (millisecondsSince(start) < seconds * 1000) {
        std::this_thread::sleep_for(tick);
        if (ticks == Ticks::Asking) askAsTheTickDoes();
    }
    std::printf("wakeups_%s %.2f\n", what,
                static_cast<double>(wakeups() - before) * 1000 / millisecondsSince(start));
}

int playWhole(const char* path) {
    open(path);
    send("play mpeg from 1 to " + std::to_string(status("status mpeg length")));
    do
        std::this_thread::sleep_for(tick);
    while (askAsTheTickDoes());
    return 0;
}

int countWakeups(const char* path) {
    open(path);
    send("play mpeg from 1 to " + std::to_string(status("status mpeg length")));
    std::this_thread::sleep_for(tick);
    measureWakeups("playing", 10, Ticks::Asking);
    std::printf("resident_kilobytes %ld\n", residentKilobytes());
    send("Pause mpeg");
    std::this_thread::sleep_for(tick);
    measureWakeups("paused", 5, Ticks::Asking);
    send("Stop mpeg");
    send("Close mpeg");
    std::this_thread::sleep_for(tick);
    measureWakeups("idle", 5, Ticks::None);
    return 0;
}

double scanByLibrary(const char* path) {
    const auto start = Clock::now();
    mpg123_handle* handle = mpg123_new(nullptr, nullptr);
    mpg123_param(handle, MPG123_ADD_FLAGS, MPG123_QUIET, 0.0);
    mpg123_open(handle, path);
    mpg123_scan(handle);
    mpg123_delete(handle);
    return millisecondsSince(start);
}

double openByPlayer(const char* path) {
    const auto start = Clock::now();
    platform::media::Decoder decoder;
    decoder.open(path);
    return millisecondsSince(start);
}

int measureFiles(const char* path) {
    double scan = scanByLibrary(path);
    double own = openByPlayer(path);
    for (int i = 0; i < 5; ++i) {
        scan = std::min(scan, scanByLibrary(path));
        own = std::min(own, openByPlayer(path));
    }
    std::printf("scan_by_mpg123_ms %.3f\nopen_ms %.3f\n", scan, own);

    platform::media::Decoder decoder;
    decoder.open(path);
    std::vector<std::byte> samples(1152 * decoder.format().bytesPerFrame());
    std::minstd_rand random(1);
    std::vector<double> times;
    for (int i = 0; i < 200; ++i) {
        const auto start = Clock::now();
        decoder.seek(static_cast<std::int64_t>(random()) % decoder.frames());
        decoder.read(samples.data(), 1152);
        times.push_back(millisecondsSince(start));
    }
    std::sort(times.begin(), times.end());
    std::printf("seek_median_ms %.3f\nseek_most_ms %.3f\n", times[100], times.back());
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    const std::string what = count == 3 ? arguments[1] : "";
    if (what == "files") return measureFiles(arguments[2]);
    if (what == "play") return playWhole(arguments[2]);
    if (what == "wakeups") return countWakeups(arguments[2]);
    std::fprintf(stderr, "sound_bench files|play|wakeups FILE\n");
    return 2;
}
