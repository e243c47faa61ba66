#include "platform/simulated/world.h"

#include <cstdint>
#include <cstdio>
#include <string>

namespace platform {
namespace {

using simulated::world;

constexpr std::uint32_t NoSuchDevice = 2;

void record(const std::string& call) {
    world.sound.calls.push_back(call);
    simulated::note("volume " + call);
}

} // namespace

std::uint32_t waveOutGetNumDevs() {
    return world.sound.countForced.value_or(static_cast<std::uint32_t>(world.sound.devices.size()));
}

std::uint32_t waveOutGetVolume(std::uint32_t device, std::uint32_t* volume) {
    record("get " + std::to_string(device));
    if (device >= world.sound.devices.size()) return NoSuchDevice;
    const simulated::Sound::Device& asked = world.sound.devices[device];
    if (asked.result == 0) *volume = asked.volume;
    return asked.result;
}

std::uint32_t waveOutSetVolume(std::uint32_t device, std::uint32_t volume) {
    char word[9];
    std::snprintf(word, sizeof word, "%08X", volume);
    record("set " + std::to_string(device) + ' ' + word);
    if (device >= world.sound.devices.size()) return NoSuchDevice;
    simulated::Sound::Device& asked = world.sound.devices[device];
    if (asked.result == 0) asked.volume = volume;
    return asked.result;
}

} // namespace platform
