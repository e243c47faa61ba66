#include "platform/linux/media/decoder.h"
#include "tests/sound/files/reference.h"
#include "tests/sound/support/sound_files.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <doctest/doctest.h>
#include <fstream>
#include <random>
#include <sndfile.h>
#include <string>
#include <vector>

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

/// Any place sounds as it does when the file is decoded from its start.
void checkPlaces(const std::string& path) {
    CAPTURE(path);
    media::Decoder decoder;
    REQUIRE(decoder.open(path) == MediaError::None);
    const std::size_t size = decoder.format().bytesPerFrame();
    const auto frames = static_cast<std::size_t>(decoder.frames());
    std::vector<std::byte> all(frames * size);
    REQUIRE(decoder.seek(0));
    REQUIRE(decoder.read(all.data(), frames) == frames);
    std::minstd_rand random(3);
    std::vector<std::byte> some(300 * size);
    for (int i = 0; i < 200; ++i) {
        const std::size_t from = random() % frames;
        const std::size_t count = std::min<std::size_t>(300, frames - from);
        CAPTURE(from);
        REQUIRE(decoder.seek(static_cast<std::int64_t>(from)));
        REQUIRE(decoder.read(some.data(), 300) == count);
        CHECK(std::memcmp(some.data(), all.data() + from * size, count * size) == 0);
    }
}

void checkLength(const std::string& path, std::int64_t frames) {
    CAPTURE(path);
    media::Decoder decoder;
    REQUIRE(decoder.open(path) == MediaError::None);
    CHECK(decoder.frames() == frames);
    CHECK(framesBySndfile(path) == frames);
    CHECK(framesToTheEnd(decoder) == frames);
}

/// Plays exactly these 16-bit samples of two channels.
void checkOwnSamples(const std::string& path, const Bytes& data) {
    CAPTURE(path);
    media::Decoder decoder;
    REQUIRE(decoder.open(path) == MediaError::None);
    const std::size_t frames = data.size() / 4;
    CHECK(decoder.frames() == static_cast<std::int64_t>(frames));
    std::vector<std::byte> samples(data.size() + 400);
    REQUIRE(decoder.seek(0));
    REQUIRE(decoder.read(samples.data(), frames + 100) == frames);
    CHECK(std::memcmp(samples.data(), data.data(), data.size()) == 0);
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

TEST_CASE("a WAV of every make sounds at any place as from its start") {
    struct Row {
        const char* name;
        int format;
        int channels = 2;
        int rate = 44100;
    };
    for (const Row& row : {
             Row{"big-16.wav", SF_FORMAT_WAV | SF_ENDIAN_BIG | SF_FORMAT_PCM_16},
             Row{"big-24.wav", SF_FORMAT_WAV | SF_ENDIAN_BIG | SF_FORMAT_PCM_24, 1, 96000},
             Row{"big-float.wav", SF_FORMAT_WAV | SF_ENDIAN_BIG | SF_FORMAT_FLOAT},
             Row{"64-bit-sizes.wav", SF_FORMAT_RF64 | SF_FORMAT_PCM_16},
             Row{"64-bit-sizes-float.wav", SF_FORMAT_RF64 | SF_FORMAT_FLOAT, 6, 48000},
             Row{"extended-8.wav", SF_FORMAT_WAVEX | SF_FORMAT_PCM_U8, 1, 8000},
             Row{"extended-24.wav", SF_FORMAT_WAVEX | SF_FORMAT_PCM_24, 6},
             Row{"extended-32.wav", SF_FORMAT_WAVEX | SF_FORMAT_PCM_32, 8, 192000},
             Row{"extended-double.wav", SF_FORMAT_WAVEX | SF_FORMAT_DOUBLE, 208, 8000},
             Row{"extended-a-law.wav", SF_FORMAT_WAVEX | SF_FORMAT_ALAW, 2, 8000},
             Row{"extended-mu-law.wav", SF_FORMAT_WAVEX | SF_FORMAT_ULAW, 1, 11025},
             Row{"ima-adpcm.wav", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM},
             Row{"ima-adpcm-mono.wav", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM, 1, 8000},
             Row{"ms-adpcm.wav", SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM},
             Row{"ms-adpcm-mono.wav", SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM, 1, 22050},
         }) {
        const std::string path =
            writeBySndfile(row.name, noise(700, row.rate, row.channels), row.format);
        checkLength(path, framesBySndfile(path));
        checkPlaces(path);
    }
}

TEST_CASE("telephone codings that can't be searched play from any place, and have their length") {
    struct Row {
        const char* name;
        int format;
        int rate = 8000;
    };
    for (const Row& row : {
             Row{"gsm.wav", SF_FORMAT_WAV | SF_FORMAT_GSM610},
             Row{"gsm-11025.wav", SF_FORMAT_WAV | SF_FORMAT_GSM610, 11025},
             Row{"gsm.aiff", SF_FORMAT_AIFF | SF_FORMAT_GSM610},
             Row{"g721.wav", SF_FORMAT_WAV | SF_FORMAT_G721_32},
             Row{"g721.snd", SF_FORMAT_AU | SF_FORMAT_G721_32},
             Row{"g723-24.snd", SF_FORMAT_AU | SF_FORMAT_G723_24},
             Row{"g723-40.snd", SF_FORMAT_AU | SF_FORMAT_G723_40},
             Row{"nms-16.wav", SF_FORMAT_WAV | SF_FORMAT_NMS_ADPCM_16},
             Row{"nms-24.wav", SF_FORMAT_WAV | SF_FORMAT_NMS_ADPCM_24},
             Row{"nms-32.wav", SF_FORMAT_WAV | SF_FORMAT_NMS_ADPCM_32},
             Row{"dwvw.aiff", SF_FORMAT_AIFF | SF_FORMAT_DWVW_16},
         }) {
        const std::string path = writeBySndfile(row.name, noise(3123, row.rate, 1), row.format);
        checkLength(path, framesBySndfile(path));
        CHECK(framesBySndfile(path) >= std::int64_t{3123} * row.rate / 1000);
        checkPlaces(path);
    }
}

TEST_CASE("a telephone recording that was cut short plays to where it was cut") {
    const Bytes whole = readAll(
        writeBySndfile("whole.wav", noise(4000, 8000, 1), SF_FORMAT_WAV | SF_FORMAT_GSM610));
    const std::size_t data = whole.find("data") + 8;
    const std::string path = write("cut-gsm.wav", whole.substr(0, data + std::size_t{65} * 20 + 7));
    media::Decoder decoder;
    REQUIRE(decoder.open(path) == MediaError::None);
    CHECK(decoder.frames() >= 20 * 320);
    CHECK(decoder.frames() <= 21 * 320);
    CHECK(framesToTheEnd(decoder) == decoder.frames());
    checkPlaces(path);
}

TEST_CASE("a WAV whose writer never came back to fill in its sizes plays whole") {
    const Bytes format = chunk("fmt ", waveFormat(1, 2, 44100, 16));
    const Bytes data = dataOf(noise(1000));
    for (const std::uint32_t claimed : {0U, 0xFFFFFFFFU, 0x7FFFFFFFU, 0x80000000U})
        for (const Bytes& sizeOfAll : {Bytes(4, '\0'), Bytes(4, '\xFF'), Bytes("\x24\0\0\0", 4)}) {
            Bytes bytes = riff(format + chunk("data", data, claimed));
            bytes.replace(4, 4, sizeOfAll);
            checkOwnSamples(write("open.wav", bytes), data);
            bytes.replace(0, 4, "RF64");
            checkOwnSamples(write("open-64.wav", bytes), data);
        }

    Bytes packed =
        readAll(writeBySndfile("open-ima.wav", noise(1000), SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM));
    const std::string closed = write("closed-ima.wav", packed);
    packed.replace(packed.find("data") + 4, 4, 4, '\0');
    checkPlaces(write("open-ima.wav", packed));
    media::Decoder whole;
    media::Decoder open;
    REQUIRE(whole.open(closed) == MediaError::None);
    REQUIRE(open.open(folder() + "open-ima.wav") == MediaError::None);
    CHECK(open.frames() == whole.frames());
}

TEST_CASE("chunks out of order, twice, with gaps or nonsense between them hide no sound") {
    const Bytes format = chunk("fmt ", waveFormat(1, 2, 44100, 16));
    const Bytes data = dataOf(noise(500));
    Bytes uneven = chunk("LIST", "INFOodd");
    uneven.pop_back();
    for (const Bytes& chunks : {
             chunk("data", data) + format,
             format + chunk("data", data) + chunk("data", data),
             uneven + format + chunk("data", data),
             format + Bytes(6, '\0') + chunk("data", data),
             chunk("junk", "", 0xFFFFFFF0) + format + Bytes(333, '\xE4') + chunk("data", data),
             uneven + format + uneven + chunk("data", data),
         })
        checkOwnSamples(write("disorder.wav", riff(chunks)), data);
}

TEST_CASE("a chunk that is cut short hides no sound before it, and holds nobody up") {
    const Bytes format = chunk("fmt ", waveFormat(1, 2, 44100, 16));
    const Bytes data = dataOf(noise(500));
    const Bytes list = chunk("LIST", "INFOI" + Bytes(90, '\xFF'), 1885);
    checkOwnSamples(write("cut-list.wav", riff(format + chunk("data", data) + list)), data);
    media::Decoder decoder;
    CHECK(decoder.open(write("list.wav", riff(list))) == MediaError::NotAudio);
    CHECK(decoder.open(write("list-first.wav", riff(list + format))) == MediaError::NotAudio);
}

TEST_CASE("a WAV of more than four gigabytes has its true length, and its end is found") {
    const std::string path = folder() + "long.wav";
    constexpr std::int64_t frames = 1'250'000'000;
    Bytes sizes(28, '\0');
    for (std::size_t i = 0; i < 8; ++i)
        sizes[8 + i] = static_cast<char>(frames * 4 >> 8 * i & 0xFF);
    Bytes head = riff(chunk("ds64", sizes) + chunk("fmt ", waveFormat(1, 2, 44100, 16)) +
                      chunk("data", "", 0xFFFFFFFF));
    head.replace(0, 4, "RF64");
    {
        std::ofstream file(path, std::ios::binary);
        file << head;
        file.seekp(static_cast<std::streamoff>(head.size()) + frames * 4 - 4);
        file << "last" << chunk("LIST", "INFO" + Bytes(100, 'y'));
    }
    media::Decoder decoder;
    REQUIRE(decoder.open(path) == MediaError::None);
    CHECK(decoder.frames() == frames);
    REQUIRE(decoder.seek(frames - 1));
    std::array<std::byte, 8> samples{};
    CHECK(decoder.read(samples.data(), 2) == 1);
    CHECK(std::memcmp(samples.data(), "last", 4) == 0);
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
         {riff(""), riff(format), riff(format + chunk("data", "")),
          riff(format + chunk("data", "") + chunk("LIST", "INFO" + Bytes(99, 'y'))), Bytes("RIFF"),
          riff(chunk("fmt ", waveFormat(1, 0, 44100, 16)) + chunk("data", "abcdefgh")),
          riff(chunk("fmt ", waveFormat(1, 2, 0, 16)) + chunk("data", "abcdefgh")),
          riff(chunk("fmt ", waveFormat(1, 2, 2'000'000'000, 16)) + chunk("data", "abcdefgh"))}) {
        media::Decoder decoder;
        CHECK(decoder.open(write("bad.wav", bytes)) == MediaError::NotAudio);
    }
}

TEST_CASE("an MP3 in a WAV's clothes plays as the MP3 that it is, and the clothes do not sound") {
    const Bytes frames = readAll(encode("inner", noise(2000), "-b 128"));
    const Bytes described =
        waveFormat(0x55, 2, 44100, 0) + Bytes("\x0C\0\x01\0\x02\0\0\0\xA1\x01\x01\0\x71\x05", 14);
    for (const Bytes& format : {waveFormat(0x55, 2, 44100, 0), described}) {
        for (const Bytes& more : {Bytes(), chunk("id3 ", "ID3" + frames.substr(1000, 9000))}) {
            media::Decoder decoder;
            const Bytes chunks = chunk("fmt ", format) + chunk("data", frames) + more;
            REQUIRE(decoder.open(write("clothes.wav", riff(chunks))) == MediaError::None);
            CHECK(decoder.frames() == 88'200);
            CHECK(framesToTheEnd(decoder) == 88'200);
        }
    }
}

TEST_CASE("a WAV behind an ID3 tag plays as the WAV that it is") {
    media::Decoder decoder;
    const Bytes tag = Bytes("ID3\x03\0\0\0\0\x01\x00", 10) + Bytes(128, 't');
    REQUIRE(decoder.open(write("tagged.wav", tag + wave(tone(440, 1000)))) == MediaError::None);
    CHECK(decoder.frames() == 44'100);
}
