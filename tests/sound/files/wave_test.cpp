#include "platform/linux/media/decoder.h"
#include "tests/sound/files/reference.h"
#include "tests/sound/support/sound_files.h"

#include <cstring>
#include <doctest/doctest.h>

using namespace platform;
using namespace sound_test;

namespace {

std::int64_t framesToTheEnd(media::Decoder& decoder) {
    std::vector<std::byte> samples(std::size_t{8} * 1000);
    std::int64_t frames = 0;
    if (!decoder.seek(0)) return -1;
    while (const std::size_t got = decoder.read(samples.data(), 1000))
        frames += static_cast<std::int64_t>(got);
    return frames;
}

void checkLength(const std::string& path, std::int64_t frames) {
    CAPTURE(path);
    media::Decoder decoder;
    REQUIRE(decoder.open(path) == MediaError::None);
    CHECK(decoder.frames() == frames);
    CHECK(framesBySndfile(path) == frames);
    CHECK(framesToTheEnd(decoder) == frames);
}

Bytes dataOf(const Samples& samples) {
    Bytes data(samples.values.size() * 2, '\0');
    std::memcpy(data.data(), samples.values.data(), data.size());
    return data;
}

} // namespace

TEST_CASE("a WAV has its own samples from any place on") {
    const Samples samples = noise(2000);
    media::Decoder decoder;
    REQUIRE(decoder.open(write("plain.wav", wave(samples))) == MediaError::None);
    CHECK(decoder.frames() == 88'200);
    for (const std::int64_t from : {0, 1, 44'099, 44'100, 88'199}) {
        REQUIRE(decoder.seek(from));
        std::vector<std::int16_t> some(200);
        const std::size_t got = decoder.read(reinterpret_cast<std::byte*>(some.data()), 100);
        CHECK(static_cast<std::int64_t>(got) == std::min<std::int64_t>(100, 88'200 - from));
        CHECK(std::equal(some.begin(), some.begin() + static_cast<std::ptrdiff_t>(got * 2),
                         samples.values.begin() + from * 2));
    }
}

TEST_CASE("a WAV of any width of sample has its true length") {
    for (const int bits : {8, 16, 24, 32}) {
        const Bytes data(static_cast<std::size_t>(bits) / 8 * 2 * 5000, '\x11');
        checkLength(write(std::to_string(bits) + ".wav",
                          riff(chunk("fmt ", waveFormat(1, 2, 44100, bits)) + chunk("data", data))),
                    5000);
    }
    for (const int bits : {32, 64}) {
        const Bytes data(static_cast<std::size_t>(bits) / 8 * 2 * 5000, '\0');
        checkLength(write("float.wav",
                          riff(chunk("fmt ", waveFormat(3, 2, 44100, bits)) + chunk("data", data))),
                    5000);
    }
    for (const int tag : {6, 7}) { // A-law, mu-law
        const Bytes data(std::size_t{2} * 5000, '\x55');
        checkLength(write("law.wav",
                          riff(chunk("fmt ", waveFormat(tag, 2, 8000, 8)) + chunk("data", data))),
                    5000);
    }
}

TEST_CASE("a WAV of any number of channels and any rate plays on two sides") {
    for (const int channels : {1, 2, 3, 4, 5, 6, 7, 8, 208})
        checkLength(write("channels.wav", wave(tone(440, 500, 8000, channels))), 4000);
    for (const int rate : {8000, 11025, 22050, 32000, 48000, 96000, 192000})
        checkLength(write("rate.wav", wave(tone(440, 1000, rate))), rate);
}

TEST_CASE("chunks around the data do not sound") {
    const Samples samples = tone(440, 1000);
    const Bytes format = chunk("fmt ", waveFormat(1, 2, 44100, 16));
    const Bytes list = chunk("LIST", "INFO" + Bytes(1001, 'y'));
    checkLength(write("chunks.wav", riff(list + chunk("junk", Bytes(333, 'x')) + format +
                                         chunk("zzzz", "q") + chunk("data", dataOf(samples)) +
                                         list + chunk("id3 ", "ID3" + Bytes(500, 'z')))),
                44'100);
}

TEST_CASE("a data size past the end of the file means the end of the file") {
    const Bytes format = chunk("fmt ", waveFormat(1, 2, 44100, 16));
    const Bytes data = dataOf(tone(440, 1000));
    for (const std::uint32_t claimed : {10'000'000U, 0xFFFFFFFFU})
        checkLength(write("past.wav", riff(format + chunk("data", data, claimed))), 44'100);
    Bytes cut = wave(tone(440, 1000));
    cut.resize(cut.size() - 3);
    checkLength(write("cut.wav", cut), 44'099);
}

TEST_CASE("a WAV without sound does not open") {
    const Bytes format = chunk("fmt ", waveFormat(1, 2, 44100, 16));
    for (const Bytes& bytes :
         {riff(""), riff(format), riff(format + chunk("data", "")), Bytes("RIFF"),
          riff(chunk("fmt ", waveFormat(1, 0, 44100, 16)) + chunk("data", "abcdefgh")),
          riff(chunk("fmt ", waveFormat(1, 2, 0, 16)) + chunk("data", "abcdefgh")),
          riff(chunk("fmt ", waveFormat(1, 2, 2'000'000'000, 16)) + chunk("data", "abcdefgh"))}) {
        media::Decoder decoder;
        CHECK(decoder.open(write("bad.wav", bytes)) == MediaError::NotAudio);
    }
}

TEST_CASE("an MP3 in a WAV's clothes plays as the MP3 that it is") {
    const Bytes frames = readAll(encode("inner", noise(2000), "-b 128"));
    media::Decoder decoder;
    REQUIRE(decoder.open(write("clothes.wav", riff(chunk("fmt ", waveFormat(0x55, 2, 44100, 0)) +
                                                   chunk("data", frames)))) == MediaError::None);
    CHECK(decoder.frames() == 88'200);
}

TEST_CASE("a WAV behind an ID3 tag plays as the WAV that it is") {
    media::Decoder decoder;
    const Bytes tag = Bytes("ID3\x03\0\0\0\0\x01\x00", 10) + Bytes(128, 't');
    REQUIRE(decoder.open(write("tagged.wav", tag + wave(tone(440, 1000)))) == MediaError::None);
    CHECK(decoder.frames() == 44'100);
}
