#include "playback/volume_words.h"

#include "runtime/rounding.h"

namespace volume {
namespace {

constexpr double largest = 2147483647;
constexpr double bothWords = 65537;

} // namespace

std::uint32_t safeWord(std::uint32_t word) { return word == SilencingWord ? NearlyFullWord : word; }

double percentOf(std::uint32_t word) {
    double d = static_cast<std::int32_t>(word);
    if (d < 0) {
        d = -(d + largest);
        d = largest - d;
    }
    return d / bothWords / 2 / 32767 * 100;
}

std::uint32_t wordOf(double level) {
    double x = level * bothWords;
    x = x + x;
    if (x > largest) {
        x = largest - x;
        x = -(x + largest);
    }
    return static_cast<std::uint32_t>(runtime::roundToInt32(x).value());
}

} // namespace volume
