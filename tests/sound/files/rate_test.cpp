// Tracks that change their rate on the way: the second part sounds at the first one's rate.
#include "platform/linux/media/decoder.h"
#include "tests/sound/files/decoded.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <doctest/doctest.h>
#include <numbers>
#include <random>
#include <string>
#include <vector>

using namespace platform;
using namespace sound_test;

namespace {

Samples chord(int milliseconds, int rate) {
    Samples all = tone(440, milliseconds, rate);
    for (const double hertz : {1800.0, 3300.0}) {
        const Samples more = tone(hertz, milliseconds, rate);
        for (std::size_t i = 0; i < all.values.size(); ++i)
            all.values[i] = static_cast<std::int16_t>(all.values[i] / 2 + more.values[i] / 3);
    }
    return all;
}

/// The left side between two samples, from very many around them.
double between(const std::vector<std::int16_t>& samples, double place, double cut) {
    const auto middle = static_cast<std::int64_t>(std::floor(place));
    constexpr std::int64_t reach = 2000;
    double sum = 0;
    for (std::int64_t i = middle - reach + 1; i <= middle + reach; ++i) {
        const double far = place - static_cast<double>(i);
        const double angle = std::numbers::pi * far * cut;
        const double window = 0.5 + 0.5 * std::cos(std::numbers::pi * far / (reach + 1));
        sum += samples[static_cast<std::size_t>(i) * 2] * cut * window *
               (angle == 0 ? 1 : std::sin(angle) / angle);
    }
    return sum;
}

struct Change {
    int first;
    int second;
};

constexpr Change changes[] = {{44100, 48000}, {44100, 22050}, {48000, 44100},
                              {44100, 32000}, {32000, 48000}, {22050, 44100}};

} // namespace

TEST_CASE("behind a change of rate every place is the one that was asked for, to the very end") {
    for (const Change& change : changes) {
        CAPTURE(change.first);
        CAPTURE(change.second);
        const std::string one = encode("one", noise(2000, change.first), "-b 128 -t");
        const std::string two = encode("two", noise(3000, change.second), "-b 128 -t");
        const std::int64_t oneFrames = framesOf(decodeAll(one));
        const std::int64_t twoFrames = framesOf(decodeAll(two));
        const std::string path = write("changes.mp3", readAll(one) + readAll(two));
        media::Decoder decoder;
        REQUIRE(decoder.open(path) == MediaError::None);
        CHECK(decoder.format().rate == change.first);
        const std::int64_t told = decoder.frames() - oneFrames;
        CHECK(std::abs(static_cast<double>(told) -
                       static_cast<double>(twoFrames) * change.first / change.second) <= 0.5);
        const auto all = decodeAll(path);
        REQUIRE(framesOf(all) == decoder.frames());
        std::minstd_rand random(3);
        for (int i = 0; i < 60; ++i) {
            const auto from = static_cast<std::int64_t>(random()) % decoder.frames();
            const auto some = decode(decoder, from, 3000);
            CAPTURE(from);
            CHECK(framesOf(some) == std::min<std::int64_t>(3000, decoder.frames() - from));
            CHECK(widestGap(some, all, from) <= 2);
        }
    }
}

TEST_CASE("a second part of another rate sounds as it does alone, but for a thousandth") {
    for (const Change& change : changes) {
        CAPTURE(change.first);
        CAPTURE(change.second);
        const std::string one = encode("one", noise(1000, change.first), "-b 128 -t");
        const std::string two = encode("two", chord(2000, change.second), "-b 128 -t");
        const std::int64_t oneFrames = framesOf(decodeAll(one));
        const auto alone = decodeAll(two);
        const auto all = decodeAll(write("changes.mp3", readAll(one) + readAll(two)));
        const double step = static_cast<double>(change.second) / change.first;
        double power = 0;
        double faults = 0;
        for (int i = 0; i < 2000; ++i) {
            const std::int64_t frame = change.first / 2 + i;
            const double wanted =
                between(alone, static_cast<double>(frame) * step, std::min(1.0, 1 / step));
            const double got = all[static_cast<std::size_t>(oneFrames + frame) * 2];
            power += wanted * wanted;
            faults += (wanted - got) * (wanted - got);
        }
        CHECK(power / 2000 > 1e6);
        CHECK(10 * std::log10(faults / power) < -60);
    }
}

TEST_CASE("joined files of two rates play both, and their tags stay silent") {
    const Bytes one = readAll(encode("one", noise(1000), "-b 128 -t"));
    const Bytes two = readAll(encode("two", noise(1000, 48000), "-b 128 -t"));
    const Bytes id3 = Bytes("ID3\x03\0\0\0\0\x10\0", 10) + chaos(2048, 8);
    const Bytes id3v1 = "TAG" + Bytes(125, 'x');
    const auto plain = decodeAll(write("plain.mp3", one + two));
    const auto tagged = decodeAll(write("tagged.mp3", id3 + one + id3v1 + id3 + two + id3v1));
    CHECK(framesOf(plain) > 85'000);
    REQUIRE(framesOf(tagged) == framesOf(plain));
    CHECK(widestGap(tagged, plain, 0) == 0);
}

TEST_CASE("several changes of rate play one after the other") {
    const Bytes low = readAll(encode("low", noise(500, 22050), "-b 64 -t"));
    const Bytes high = readAll(encode("high", noise(500, 48000), "-b 128 -t"));
    const std::string path = write("often.mp3", low + high + low + high + low);
    media::Decoder decoder;
    REQUIRE(decoder.open(path) == MediaError::None);
    const std::int64_t lowFrames = framesOf(decodeAll(write("low.mp3", low)));
    const std::int64_t highFrames = framesOf(decodeAll(write("high.mp3", high)));
    CHECK(std::abs(decoder.frames() - 3 * lowFrames - 2 * highFrames * 22050 / 48000) <= 2);
    CHECK(framesOf(decodeAll(path)) == decoder.frames());
}
