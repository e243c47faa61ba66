#include "platform/media.h"

#include <cstdint>
#include <doctest/doctest.h>
#include <string>

/// "--volume WORD" stands for another run of the player: it sets the volume and ends.
int main(int argumentCount, char** arguments) {
    if (argumentCount == 3 && std::string(arguments[1]) == "--volume") {
        const auto word = static_cast<std::uint32_t>(std::stoul(arguments[2]));
        return static_cast<int>(platform::waveOutSetVolume(0, word));
    }
    return doctest::Context(argumentCount, arguments).run();
}
