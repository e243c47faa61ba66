#include "platform/linux/media/decoder.h"
#include "tests/sound/files/decoded.h"
#include "tests/sound/files/layer_one.h"
#include "tests/sound/files/reference.h"
#include "tests/sound/support/sound_files.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <doctest/doctest.h>
#include <initializer_list>
#include <random>
#include <string>
#include <utility>

using namespace platform;
using namespace sound_test;

namespace {

void checkWhole(const std::string& path) {
    CAPTURE(path);
    const auto all = decodeByMpg123(path);
    media::Decoder decoder;
    REQUIRE(decoder.open(path) == MediaError::None);
    CHECK(decoder.frames() == framesOf(all));
    const auto own = decode(decoder, 0, static_cast<std::size_t>(decoder.frames()) + 10);
    CHECK(framesOf(own) == decoder.frames());
    if (own.size() <= all.size()) CHECK(widestGap(own, all, 0) == 0);
}

/// The last bit may round either way: the library's filter rounds by where it was started.
void checkPlaces(const std::string& path) {
    CAPTURE(path);
    const auto all = decodeByMpg123(path);
    media::Decoder decoder;
    REQUIRE(decoder.open(path) == MediaError::None);
    REQUIRE(decoder.frames() == framesOf(all));
    std::minstd_rand random(3);
    for (int i = 0; i < 200; ++i) {
        const auto from = static_cast<std::int64_t>(random()) % decoder.frames();
        const auto some = decode(decoder, from, 3000);
        CAPTURE(from);
        CHECK(framesOf(some) == std::min<std::int64_t>(3000, decoder.frames() - from));
        CHECK(widestGap(some, all, from) <= 1);
    }
}

Bytes together(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts)
        all += part;
    return all;
}

struct Encoding {
    const char* name;
    const char* options;
    int rate = 44100;
    int channels = 2;
};

const Encoding encodings[] = {
    {"cbr", "-b 128"},
    {"vbr", "-V 4"},
    {"abr", "--abr 150"},
    {"cbr-headerless", "-b 192 -t"},
    {"vbr-headerless", "-V 4 -t"},
    {"mono", "-b 64", 44100, 1},
    {"mpeg2", "-b 48", 22050, 2},
    {"mpeg2-low", "-b 8 -m m", 16000, 1},
    {"mpeg25", "-b 16", 11025, 2},
    {"mpeg25-low", "-b 8", 8000, 1},
    {"crc", "-b 96 -p", 32000, 2},
    {"free-format", "-b 200 --freeformat"},
    {"48000", "-b 320", 48000, 2},
};

} // namespace

TEST_CASE("an MP3 has the length and the samples of a full decode, with any header or none") {
    for (const Encoding& encoding : encodings)
        checkWhole(
            encode(encoding.name, noise(4321, encoding.rate, encoding.channels), encoding.options));
}

TEST_CASE("200 places of an MP3 sound as in a full decode, with any header or none") {
    for (const Encoding& encoding : encodings)
        checkPlaces(encode(encoding.name, noise(20'000, encoding.rate, encoding.channels),
                           encoding.options));
}

TEST_CASE("layer II plays as layer III does") {
    for (const int rate : {22050, 44100, 48000}) {
        const std::string path = encodeLayerTwo("two", noise(5000, rate));
        checkWhole(path);
        checkPlaces(path);
    }
}

TEST_CASE("layer I plays as layer III does") {
    for (const LayerOne& kind : {LayerOne{}, LayerOne{.channels = 1}, LayerOne{.padded = true},
                                 LayerOne{.channels = 1, .freeFormat = true},
                                 LayerOne{.channels = 1, .freeFormat = true, .padded = true}}) {
        const std::string path = write("one.mp1", layerOne(kind));
        checkWhole(path);
        checkPlaces(path);
        media::Decoder decoder;
        REQUIRE(decoder.open(path) == MediaError::None);
        CHECK(decoder.frames() == std::int64_t{384} * kind.frames);
    }
}

TEST_CASE("two frames and a few bytes are sound enough") {
    const Bytes frames = readAll(encode("few", noise(500), "-b 128 -t"));
    for (const std::size_t bytes : {835U, 836U, 838U})
        checkWhole(write("two.mp3", frames.substr(0, bytes)));
}

TEST_CASE("what the encoder put around the sound is left out") {
    media::Decoder decoder;
    REQUIRE(decoder.open(encode("exact", noise(5000), "-b 128")) == MediaError::None);
    CHECK(decoder.frames() == 220'500);
}

TEST_CASE("a first frame that only looks like an encoder's header sounds") {
    Bytes frames = readAll(encode("first", noise(1000), "-b 128 -t"));
    const std::string plain = write("plain.mp3", frames);
    frames.replace(36, 12, Bytes("Xing\0\0\0\x01\0\0\0\x05", 12));
    media::Decoder decoder;
    REQUIRE(decoder.open(plain) == MediaError::None);
    const std::int64_t whole = decoder.frames();
    REQUIRE(decoder.open(write("looks.mp3", frames)) == MediaError::None);
    CHECK(decoder.frames() == whole);
}

TEST_CASE("a header that claims more or fewer frames than there are does not decide") {
    const Bytes good = readAll(encode("honest", noise(4000), "-V 4"));
    const std::size_t mark = good.find("Xing");
    REQUIRE(mark != Bytes::npos);
    for (const char claimed : {'\0', '\x01', '\x7F'}) {
        Bytes wrong = good;
        wrong[mark + 8] = '\0';
        wrong[mark + 9] = claimed;
        wrong[mark + 10] = '\0';
        wrong[mark + 11] = '\x0A';
        const std::string path = write("claims.mp3", wrong);
        media::Decoder decoder;
        REQUIRE(decoder.open(path) == MediaError::None);
        CHECK(decoder.frames() >= 176'400);
        CHECK(decoder.frames() < 176'400 + 2 * 1152);
        CHECK(decoder.frames() == framesOf(decodeByMpg123(path)));
        // Told of too few frames, the library drops samples in mid-stream.
        if (claimed != '\0') checkWhole(path);
    }
}

TEST_CASE("a download that was cut plays to where it was cut") {
    const Bytes whole = readAll(encode("whole", noise(4000), "-V 4"));
    for (const std::size_t part : {3U, 5U, 7U}) {
        const std::string path = write("cut.mp3", whole.substr(0, whole.size() * part / 8 + 11));
        checkWhole(path);
        checkPlaces(path);
    }
}

TEST_CASE("tags do not sound, however long and whatever is in them") {
    const Bytes sound = readAll(encode("tagged", noise(3000), "-b 128"));
    const auto id3 = [&](std::size_t size) {
        Bytes body;
        while (body.size() < size)
            body += sound;
        Bytes head = "ID3";
        head += {'\x03', '\0', '\0'};
        for (const int shift : {21, 14, 7, 0})
            head += static_cast<char>(size >> shift & 0x7F);
        return head + body.substr(0, size);
    };
    const auto ape = [&](char headFlag) {
        const Bytes items = sound.substr(0, 20'000);
        const std::size_t size = items.size() + 32;
        Bytes mark = "APETAGEX";
        mark += {'\xD0', '\x07', '\0', '\0'};
        for (const int shift : {0, 8, 16, 24})
            mark += static_cast<char>(size >> shift & 0xFF);
        mark += {'\x01', '\0', '\0', '\0'};
        return std::pair{mark + Bytes("\0\0\0\xA0", 4) + Bytes(8, '\0'),
                         items + mark + Bytes({'\0', '\0', '\0', headFlag}) + Bytes(8, '\0')};
    };
    const Bytes id3v1 = "TAG" + Bytes(125, 'x');
    Bytes lyrics = "LYRICSBEGIN" + sound.substr(0, 3000);
    lyrics += "003011LYRICS200";
    const auto [apeHead, apeRest] = ape('\x80');

    struct Row {
        const char* name;
        Bytes bytes;
    };
    for (const Row& row : {
             Row{"one.mp3", id3(400'000) + sound},
             Row{"twice.mp3", together({id3(300'000), id3(500'000), sound})},
             Row{"v1.mp3", sound + id3v1},
             Row{"ape.mp3", together({sound, apeHead, apeRest, id3v1})},
             Row{"ape-headless.mp3", sound + ape('\0').second},
             Row{"ape-first.mp3", together({apeHead, apeRest, sound})},
             Row{"lyrics.mp3", together({sound, lyrics, id3v1})},
             Row{"all.mp3", together({id3(1000), sound, apeHead, apeRest, lyrics, id3v1})},
         }) {
        CAPTURE(row.name);
        media::Decoder decoder;
        REQUIRE(decoder.open(write(row.name, row.bytes)) == MediaError::None);
        CHECK(decoder.frames() == 132'300);
    }
}

TEST_CASE("garbage before and between the frames is passed over") {
    const Bytes sound = readAll(encode("clean", noise(3000), "-b 128"));
    std::minstd_rand random(5);
    Bytes garbage(100'000, '\0');
    for (char& c : garbage)
        c = static_cast<char>(random() >> 8 & 0x7F);

    media::Decoder decoder;
    REQUIRE(decoder.open(write("before.mp3", garbage + sound)) == MediaError::None);
    CHECK(decoder.frames() == 132'300);
    REQUIRE(decoder.open(write("zeros.mp3", Bytes(2'000'000, '\0') + sound)) == MediaError::None);
    CHECK(decoder.frames() == 132'300);

    const std::size_t middle = std::size_t{417} * 50;
    REQUIRE(decoder.open(write("between.mp3", sound.substr(0, middle) + garbage +
                                                  sound.substr(middle))) == MediaError::None);
    CHECK(decoder.frames() > 132'300 - 3 * 1152);
    const auto own = decode(decoder, 0, 200'000);
    CHECK(framesOf(own) == decoder.frames());
}

TEST_CASE("a change of rate or channels in mid-stream plays on to an end") {
    const Bytes plain = readAll(encode("plain", noise(2000), "-b 128 -t"));
    struct Row {
        const char* name;
        Bytes second;
        std::int64_t atLeast;
    };
    for (const Row& row :
         {Row{"slower.mp3", readAll(encode("slow", noise(2000, 22050), "-b 64 -t")), 160'000},
          Row{"faster.mp3", readAll(encode("fast", noise(2000, 48000), "-b 128 -t")), 160'000},
          Row{"narrower.mp3", readAll(encode("narrow", noise(2000, 44100, 1), "-b 64 -t")),
              176'000}}) {
        CAPTURE(row.name);
        media::Decoder decoder;
        REQUIRE(decoder.open(write(row.name, plain + row.second)) == MediaError::None);
        CHECK(decoder.frames() > row.atLeast);
        CHECK(decoder.frames() < 190'000);
        for (const std::int64_t from : {std::int64_t{0}, std::int64_t{100'000}}) {
            const auto own = decode(decoder, from, 400'000);
            CHECK(framesOf(own) <= decoder.frames() - from);
            CHECK(framesOf(own) > (decoder.frames() - from) * 9 / 10);
        }
    }
}

TEST_CASE("a file without sound does not open") {
    const Bytes disorder = chaos(300'000);
    struct Row {
        const char* name;
        Bytes bytes;
    };
    for (const Row& row :
         {Row{"empty.mp3", ""}, Row{"text.mp3", "These are words, not sound.\n"},
          Row{"chaos.mp3", disorder}, Row{"zeros-only.mp3", Bytes(500'000, '\0')},
          Row{"ones.mp3", Bytes(500'000, '\xFF')},
          Row{"picture.mp3", "\x89PNG\r\n\x1A\n" + disorder},
          Row{"tag.mp3", Bytes("ID3\x03\0\0\0\0\x10\0", 10) + disorder.substr(0, 2048)},
          Row{"info.mp3", readAll(encode("short", noise(100), "-b 128")).substr(0, 417)}}) {
        CAPTURE(row.name);
        media::Decoder decoder;
        CHECK(decoder.open(write(row.name, row.bytes)) == MediaError::NotAudio);
    }
    media::Decoder decoder;
    CHECK(decoder.open(folder() + "nowhere.mp3") == MediaError::FileNotFound);
    CHECK(decoder.open(folder()) == MediaError::FileUnreadable);
}
