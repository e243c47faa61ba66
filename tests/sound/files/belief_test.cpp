// What is music and what is not: files that hold no sound, however much they look like it, and
// music that is hard to find.
#include "platform/linux/media/decoder.h"
#include "tests/sound/files/decoded.h"
#include "tests/sound/files/layer_one.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <ctime>
#include <doctest/doctest.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <vector>

using namespace platform;
using namespace sound_test;

namespace {

MediaError openError(const std::string& path) {
    media::Decoder decoder;
    return decoder.open(path);
}

/// A wave of levels from -1 to 1, without end.
using Wave = std::function<double(int frame)>;

std::vector<Wave> waves() {
    constexpr double turn = 6.283185307179586;
    static std::minstd_rand random(4);
    const auto dice = [] {
        return static_cast<double>(random()) / std::minstd_rand::max() * 2 - 1;
    };
    return {
        [](int i) { return 0.9 * std::sin(turn * 440 * i / 44100); },
        [](int i) { return 0.0003 * std::sin(turn * 100 * i / 44100); },
        [](int i) { return i % 50 < 25 ? 1.0 : -1.0; },
        [](int i) { return i % 441 < 220 ? 0.0 : -0.00004; },
        [](int i) { return (i % 100) / 50.0 - 1; },
        [](int i) { return 0.8 * std::sin(turn * i * (100 + i / 200.0) / 44100); },
        [=](int) { return 0.9 * dice(); },
        [=](int) { return 0.0003 * dice(); },
        [=](int) { return 0.001 * dice(); },
        [=](int i) { return 0.01 * dice() + 0.5 * std::sin(turn * 60 * i / 44100); },
    };
}

enum class Order { Little, Big };

/// Samples without any header, as a program leaves them that was told to.
Bytes bareSamples(const Wave& wave, int channels, int bytes, Order order) {
    Bytes all;
    for (int i = 0; i < 60'000; ++i) {
        const double most = std::pow(2.0, 8 * bytes - 1) - 1;
        const auto value = static_cast<std::int64_t>(std::floor(wave(i) * most));
        Bytes sample;
        for (int byte = 0; byte < bytes; ++byte)
            sample += static_cast<char>(value >> 8 * byte & 0xFF);
        if (order == Order::Big) std::ranges::reverse(sample);
        for (int channel = 0; channel < channels; ++channel)
            all += sample;
    }
    return all;
}

/// The program that runs, and the libraries that it uses.
std::set<std::string> programs() {
    std::set<std::string> paths{std::filesystem::read_symlink("/proc/self/exe").native()};
    std::ifstream maps("/proc/self/maps");
    std::string line;
    while (std::getline(maps, line)) {
        const std::size_t name = line.find('/');
        if (name != std::string::npos && line.find(".so") != std::string::npos)
            paths.insert(line.substr(name));
    }
    return paths;
}

} // namespace

TEST_CASE("samples that have lost their header are not music") {
    int files = 0;
    for (const Wave& wave : waves()) {
        for (const int channels : {1, 2}) {
            for (const int bytes : {1, 2, 3, 4}) {
                for (const Order order : {Order::Little, Order::Big}) {
                    if (bytes == 1 && order == Order::Big) continue;
                    CAPTURE(files);
                    const Bytes samples = bareSamples(wave, channels, bytes, order);
                    CHECK(openError(write("bare.mp3", samples)) == MediaError::NotAudio);
                    ++files;
                }
            }
        }
    }
    CHECK(files == 140);
}

TEST_CASE("a long file of quiet samples is not searched for long") {
    Bytes samples = bareSamples(waves()[8], 2, 2, Order::Big);
    while (samples.size() < 8'000'000)
        samples += samples;
    const std::string path = write("quiet.mp3", samples);
    // The processor's time: other programs don't count.
    const std::clock_t start = std::clock();
    CHECK(openError(path) == MediaError::NotAudio);
    const std::clock_t searched = std::clock();
    int sum = 0;
    for (const char sample : samples)
        sum += sample;
    const std::clock_t read = std::clock();
    CAPTURE(sum);
    CAPTURE(searched - start);
    CAPTURE(read - searched);
    CHECK(searched - start < 3 * (read - searched));
}

TEST_CASE("programs and their libraries are not music") {
    const auto paths = programs();
    CHECK(paths.size() > 5);
    for (const std::string& path : paths) {
        CAPTURE(path);
        CHECK(openError(path) == MediaError::NotAudio);
    }
}

TEST_CASE("text and tables that repeat are not music") {
    Bytes wide = "\xFF\xFE";
    for (int i = 0; i < 100'000; ++i)
        wide += {static_cast<char>('a' + i % 26), '\0'};
    CHECK(openError(write("text.mp3", wide)) == MediaError::NotAudio);
    // Each row begins like a frame of layer I or of free format, and is as long as the next.
    for (const char second : {'\xFF', '\xFD', '\xFB', '\xF3', '\xF5', '\xF7'}) {
        for (const std::size_t size : {24U, 60U, 172U, 882U}) {
            Bytes table = "a table";
            for (int row = 0; row < 500; ++row) {
                Bytes cells = chaos(size, 7);
                cells.replace(0, 4, Bytes({'\xFF', second, '\0', '\x40'}));
                table += cells;
            }
            CAPTURE(size);
            CHECK(openError(write("table.mp3", table)) == MediaError::NotAudio);
            CHECK(openError(write("table.mp3", table + chaos(2'000'000))) == MediaError::NotAudio);
        }
    }
}

TEST_CASE("a table of ever-new rows in a longer file is not music") {
    for (const char second : {'\xFD', '\xF5'}) {
        for (const std::size_t size : {24U, 60U, 172U, 882U}) {
            Bytes file = "a table";
            for (unsigned row = 0; row < 500; ++row)
                file += Bytes({'\xFF', second, '\0', '\x40'}) + chaos(size - 4, row + 1);
            CAPTURE(size);
            file += chaos(2'000'000);
            CHECK(openError(write("table.mp3", file)) == MediaError::NotAudio);
        }
    }
}

TEST_CASE("frames in a row whose insides can't be are not music") {
    for (const Bytes& head : {Bytes("\xFF\xFB\x90\x00", 4), Bytes("\xFF\xFB\x90\xC0", 4)}) {
        Bytes file;
        for (unsigned frame = 0; frame < 100; ++frame)
            file += head + chaos(413, frame + 1);
        CHECK(openError(write("hollow.mp3", file)) == MediaError::NotAudio);
    }
    Bytes file;
    for (unsigned frame = 0; frame < 100; ++frame)
        file += Bytes("\xFF\xFF\x50\x00", 4) + chaos(168, frame + 1);
    CHECK(openError(write("hollow.mp1", file)) == MediaError::NotAudio);
}

TEST_CASE("a tag that runs past its file's end is not music, nor is the picture in it") {
    for (const unsigned seed : {1U, 2U, 3U, 4U, 5U, 6U}) {
        Bytes picture = chaos(100'000, seed);
        // Frames that stand in the data by chance.
        for (std::size_t at = 5000; at + 4000 < picture.size(); at += 4000) {
            picture.replace(at, 4, "\xFF\xFB\x90\x40");
            picture.replace(at + 417, 4, "\xFF\xFB\x90\x40");
            picture.replace(at + 834, 4, "\xFF\xFB\x90\x40");
        }
        const Bytes head("ID3\x03\0\0\0\x7F\x7F\x7F"
                         "APIC",
                         14);
        CHECK(openError(write("only.mp3", head + picture)) == MediaError::NotAudio);
    }
}

TEST_CASE("music behind a tag whose size is wrong is found") {
    const Bytes sound = readAll(encode("wrong-size", noise(2000), "-b 128"));
    const Bytes head("ID3\x03\0\0\0\x7F\x7F\x7F", 10);
    media::Decoder decoder;
    REQUIRE(decoder.open(write("found.mp3", head + Bytes(500, 'x') + sound)) == MediaError::None);
    CHECK(decoder.frames() == 88'200);
}

TEST_CASE("music of every kind is found behind tags, pictures and junk") {
    struct Row {
        const char* name;
        Bytes sound;
    };
    for (const Row& row : {
             Row{"three", readAll(encode("three", noise(3000), "-V 4 -t"))},
             Row{"free", readAll(encode("free", noise(3000), "-b 160 --freeformat -t"))},
             Row{"two", readAll(encodeLayerTwo("two", noise(3000)))},
             Row{"mpeg2", readAll(encode("mpeg2", noise(3000, 22050), "-b 48 -t"))},
             Row{"mpeg25", readAll(encode("mpeg25", noise(3000, 8000), "-b 8 -t"))},
             Row{"one", layerOne({})},
             Row{"one-free", layerOne({.channels = 1, .freeFormat = true, .padded = true})},
         }) {
        CAPTURE(row.name);
        const auto clean = decodeAll(write("clean.mp3", row.sound));
        const Bytes tag = Bytes("ID3\x03\0\0\0\0\x08\0", 10) + chaos(1024);
        const Bytes picture = "\xFF\xD8\xFF\xE0" + chaos(200'000, 3) + "\xFF\xD9";
        for (const Bytes& before : {tag, picture, tag + picture, Bytes(50'000, '\0'),
                                    Bytes(50'000, '\xFF'), Bytes("one byte", 1)}) {
            const auto own = decodeAll(write("hidden.mp3", before + row.sound));
            REQUIRE(framesOf(own) == framesOf(clean));
            CHECK(widestGap(own, clean, 0) == 0);
        }
    }
}

TEST_CASE("a short file of a rare kind is music if it is nothing else") {
    CHECK(openError(write("few.mp1", layerOne({.frames = 5}))) == MediaError::None);
    CHECK(openError(write("few.mp1", layerOne({.frames = 5}) + chaos(500))) ==
          MediaError::NotAudio);
}
