#include "tests/sound/support/player_calls.h"

#include "platform/media.h"
#include "platform/system.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace sound_test {
namespace {

std::string playersPath(std::string hostPath) {
    std::replace(hostPath.begin(), hostPath.end(), '/', '\\');
    return hostPath;
}

} // namespace

std::uint32_t send(const std::string& command) {
    return platform::mciSendStringA(command.c_str(), nullptr, 0, 0);
}

void expectFile(const std::string& hostPath) { platform::expectFile(playersPath(hostPath)); }

std::uint32_t openFile(const std::string& hostPath) {
    char name[256] = {};
    const std::uint32_t size =
        platform::GetShortPathNameA(playersPath(hostPath).c_str(), name, 255);
    return send("open " + std::string(name, size) +
                " type MpegVideo Alias mpeg parent 1 Style 1073741824");
}

int status(const std::string& item) {
    char reply[255] = {};
    if (platform::mciSendStringA(("status mpeg " + item).c_str(), reply, sizeof reply, 0) != 0)
        return -1;
    return std::atoi(reply);
}

std::uint32_t playAll() { return send("play mpeg from 1 to " + std::to_string(length())); }

OpenFile::OpenFile(const std::string& hostPath) {
    if (const auto error = openFile(hostPath); error != 0)
        throw std::runtime_error("open gave " + std::to_string(error));
}

} // namespace sound_test
