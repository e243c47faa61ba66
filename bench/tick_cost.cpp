// Prints what one tick of a playing player costs on the simulated platform: microseconds of its own
// code, painting included, and queries of the device. Then the same for an idle player.
#include "app/modMain.h"
#include "platform/simulated/world.h"
#include "playback/Mpeg.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>

namespace {

using simulated::world;

constexpr int ticks = 20'000;
constexpr std::uint64_t interval = 966; // ms

struct Cost {
    double microseconds = 0;
    double queries = 0;
};

Cost costOfATick() {
    std::size_t queries = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < ticks; ++i) {
        world.media.forgetCommands();
        simulated::clearLog();
        world.text.drawn.clear();
        simulated::advance(interval);
        for (const std::string& command : world.media.commands())
            queries += command.starts_with("status") ? 1U : 0U;
    }
    const std::chrono::duration<double, std::micro> taken =
        std::chrono::steady_clock::now() - start;
    return {taken.count() / ticks, static_cast<double>(queries) / ticks};
}

} // namespace

int main() {
    simulated::reset();
    ModMain program;
    // No longer than the counter of seconds can show.
    world.media.addFile("C:\\a.mp3", std::int64_t{ticks} * interval + 1000);
    world.desktop.commandLine = "C:\\a.mp3";
    program.Main();
    const Cost playing = costOfATick();
    program.engine->StopM();
    const Cost idle = costOfATick();
    std::printf("%.2f %.1f %.2f %.1f\n", playing.microseconds, playing.queries, idle.microseconds,
                idle.queries);
}
