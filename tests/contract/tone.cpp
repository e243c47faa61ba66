#include "tests/contract/tone.h"

#include <cmath>

namespace contract {
namespace {

void append(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

} // namespace

std::string toneFile(std::uint32_t milliseconds) {
    constexpr std::uint32_t rate = 44100;
    const std::uint32_t frames = rate / 100 * (milliseconds / 10);
    std::string bytes = "RIFF";
    append(bytes, 36 + frames * 2, 4);
    bytes += "WAVEfmt ";
    append(bytes, 16, 4);
    append(bytes, 1, 2);
    append(bytes, 1, 2);
    append(bytes, rate, 4);
    append(bytes, rate * 2, 4);
    append(bytes, 2, 2);
    append(bytes, 16, 2);
    bytes += "data";
    append(bytes, frames * 2, 4);
    for (std::uint32_t i = 0; i < frames; ++i) {
        const double sample = 8000.0 * std::sin(i * 440.0 * 6.283185307179586 / rate);
        append(bytes, static_cast<std::uint32_t>(std::lround(sample)), 2);
    }
    return bytes;
}

} // namespace contract
