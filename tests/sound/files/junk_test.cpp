// Music with something else behind it or in its midst: only the music sounds, whole and in its
// time.
#include "platform/linux/media/decoder.h"
#include "tests/sound/files/decoded.h"
#include "tests/sound/files/layer_one.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <doctest/doctest.h>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace platform;
using namespace sound_test;

namespace {

struct Music {
    const char* name;
    Bytes bytes;
    std::size_t half; ///< where a frame in its middle begins
};

/// The start of the first frame from a place on whose header begins with these two bytes, and whose
/// successor's does, `size` bytes or one more behind it.
std::size_t frameFrom(const Bytes& bytes, std::size_t place, std::size_t size) {
    const Bytes mark = bytes.substr(0, 2);
    while (bytes.substr(place, 2) != mark ||
           (bytes.substr(place + size, 2) != mark && bytes.substr(place + size + 1, 2) != mark))
        ++place;
    return place;
}

std::vector<Music> allMusic() {
    const auto with = [](const char* name, Bytes bytes, std::size_t size) {
        const std::size_t half = frameFrom(bytes, bytes.size() / 2, size);
        return Music{name, std::move(bytes), half};
    };
    return {
        with("three", readAll(encode("three", noise(4000), "-b 128 -t")), 417),
        with("mpeg2", readAll(encode("mpeg2", noise(4000, 22050), "-b 48 -t")), 156),
        with("two", readAll(encodeLayerTwo("two", noise(4000))), 626),
        with("one", layerOne({}), 172),
        with("one-free", layerOne({.channels = 1, .freeFormat = true}), 120),
    };
}

std::vector<Bytes> allJunk() {
    Bytes quiet;
    std::minstd_rand random(6);
    for (int i = 0; i < 100'000; ++i)
        quiet += {static_cast<char>(random() >> 9 & 7), static_cast<char>(random() & 64 ? 0 : -1)};
    const Bytes other = readAll(encode("other", noise(2000, 32000), "-b 64 -t"));
    return {chaos(300'000, 1),
            "PK\x03\x04" + chaos(300'000, 2),
            "\xFF\xD8\xFF\xE0" + chaos(100'000, 3),
            "\xFF\xFB\x90\x40" + chaos(3000, 4),
            Bytes(70'000, '\0'),
            Bytes(70'000, '\xFF'),
            quiet,
            chaos(100, 5) + other};
}

} // namespace

TEST_CASE("what stands behind the last frame does not sound") {
    for (const Music& music : allMusic()) {
        CAPTURE(music.name);
        const auto clean = decodeAll(write("clean.mp3", music.bytes));
        int kind = 0;
        for (const Bytes& junk : allJunk()) {
            CAPTURE(kind++);
            const std::string path = write("junk.mp3", music.bytes + junk);
            media::Decoder decoder;
            REQUIRE(decoder.open(path) == MediaError::None);
            const auto mostMore = decoder.format().rate * 30 / 1000;
            CHECK(decoder.frames() >= framesOf(clean));
            CHECK(decoder.frames() <= framesOf(clean) + mostMore);
            const auto own = decodeAll(path);
            CHECK(framesOf(own) == decoder.frames());
            auto sound = own;
            sound.resize(clean.size());
            CHECK(widestGap(sound, clean, 0) == 0);
        }
    }
}

TEST_CASE("what stands between frames does not sound, and places behind it stay what they are") {
    for (const Music& music : allMusic()) {
        CAPTURE(music.name);
        const auto clean = decodeAll(write("clean.mp3", music.bytes));
        int kind = 0;
        for (const Bytes& junk : allJunk()) {
            CAPTURE(kind++);
            // A whole header in front of it: a frame that is none.
            if (junk.starts_with("\xFF\xFB")) continue;
            const Bytes bytes =
                music.bytes.substr(0, music.half) + junk + music.bytes.substr(music.half);
            const std::string path = write("between.mp3", bytes);
            const auto own = decodeAll(path);
            REQUIRE(framesOf(own) == framesOf(clean));
            CHECK(widestGap(own, clean, 0) == 0);
            media::Decoder decoder;
            REQUIRE(decoder.open(path) == MediaError::None);
            for (const std::int64_t tenth : {1, 4, 5, 6, 9}) {
                const std::int64_t from = framesOf(clean) * tenth / 10;
                const auto some = decode(decoder, from, 3000);
                CHECK(framesOf(some) == 3000);
                CHECK(widestGap(some, clean, from) <= 1);
            }
        }
    }
}

TEST_CASE("tags between the frames of joined files do not sound") {
    const Bytes sound = readAll(encode("joined", noise(2000), "-b 128 -t"));
    const Bytes id3 = Bytes("ID3\x03\0\0\0\0\x10\0", 10) + chaos(2048, 8);
    const Bytes id3v1 = "TAG" + Bytes(125, 'x');
    media::Decoder decoder;
    REQUIRE(decoder.open(write("once.mp3", sound)) == MediaError::None);
    const std::int64_t once = decoder.frames();
    REQUIRE(decoder.open(write("twice.mp3", sound + id3v1 + id3 + sound)) == MediaError::None);
    CHECK(decoder.frames() == 2 * once);
}
