#include "platform/media.h"

#include "platform/linux/media/device.h"
#include "platform/linux/media/early.h"
#include "platform/linux/media/stream_volume.h"
#include "platform/linux/paths.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace platform {
namespace {

// What the wave device answers, besides 0.
constexpr std::uint32_t badDevice = 2;
constexpr std::uint32_t noDriver = 6;

struct Sound {
    media::Output output;
    media::Device device{output};
    media::StreamVolume volume{output};
};

/// Never taken apart: the server's thread and decoders may outlive everything else.
Sound& sound() {
    static Sound& it = *new Sound;
    return it;
}

void copyCut(std::string_view from, char* to, std::uint32_t size) {
    if (to == nullptr || size == 0) return;
    const std::size_t count = std::min<std::size_t>(from.size(), size - 1);
    std::memcpy(to, from.data(), count);
    to[count] = '\0';
}

bool reachServer() { return sound().output.server().reach(); }

} // namespace

void media::connectEarly() { sound().output.server().connectEarly(); }

void expectFile(const std::string& path) { sound().device.expect(toHost(path)); }

std::uint32_t mciSendStringA(const char* command, char* reply, std::uint32_t replySize,
                             WindowHandle) {
    const media::Device::Answer answer =
        sound().device.send(command == nullptr ? std::string_view() : std::string_view(command));
    copyCut(answer.reply, reply, replySize);
    return static_cast<std::uint32_t>(answer.error);
}

bool mciGetErrorStringA(std::uint32_t error, char* text, std::uint32_t size) {
    const std::string_view sentence = mediaErrorText(error);
    if (sentence.empty()) return false;
    copyCut(sentence, text, size);
    return true;
}

std::uint32_t waveOutGetNumDevs() { return reachServer() ? 1 : 0; }

std::uint32_t waveOutGetVolume(std::uint32_t device, std::uint32_t* volume) {
    if (device != 0) return badDevice;
    if (!reachServer()) return noDriver;
    const auto word = sound().volume.get();
    if (!word) return noDriver;
    *volume = *word;
    return 0;
}

std::uint32_t waveOutSetVolume(std::uint32_t device, std::uint32_t volume) {
    if (device != 0) return badDevice;
    return reachServer() && sound().volume.set(volume) ? 0 : noDriver;
}

} // namespace platform
