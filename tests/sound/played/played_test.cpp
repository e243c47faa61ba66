#include "tests/sound/support/player_calls.h"
#include "tests/sound/support/sound_files.h"
#include "tests/sound/support/sound_server.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <doctest/doctest.h>
#include <string>
#include <vector>

using namespace sound_test;

namespace {

/// How many frames from the stretch's start on are one piece of the source.
std::size_t unbroken(const std::vector<std::int16_t>& recorded, Stretch stretch,
                     const std::vector<std::int16_t>& source, std::size_t place) {
    std::size_t frame = 0;
    while (frame < stretch.frames() &&
           recorded[2 * (stretch.start + frame)] == source[2 * (place + frame)])
        ++frame;
    return frame;
}

bool finished() { return position() == length(); }

} // namespace

TEST_CASE("a tone sounds at its pitch on both sides, whole and without a gap") {
    const SoundServer server;
    for (const std::string& path : {write("tone.wav", wave(tone(440, 2000))),
                                    write("mono.wav", wave(tone(440, 2000, 44100, 1))),
                                    encode("tone-cbr", tone(440, 2000), "-b 128"),
                                    encode("tone-vbr", tone(440, 2000), "-V 4"),
                                    encode("tone-mono", tone(440, 2000, 44100, 1), "-b 64")}) {
        CAPTURE(path);
        Recording recording;
        const OpenFile file(path);
        CHECK(length() == 2000);
        REQUIRE(playAll() == 0);
        REQUIRE(waitUntil(finished));
        const auto heard = recording.finish();
        const auto stretches = stretchesOf(heard, 220);
        REQUIRE(stretches.size() == 1);
        CHECK(stretches[0].frames() > 88'200 - seam);
        CHECK(stretches[0].frames() <= 88'200);
        for (const int channel : {0, 1}) {
            CHECK(frequencyOf(heard, stretches[0], channel) == doctest::Approx(440).epsilon(0.01));
            CHECK(levelOf(heard, stretches[0], channel) == doctest::Approx(11585).epsilon(0.06));
        }
    }
}

TEST_CASE("play from A to B starts and stops at the very samples") {
    const SoundServer server;
    const Samples source = loudNoise(3000);
    const OpenFile file(write("span.wav", wave(source)));
    Recording recording;
    REQUIRE(send("play mpeg from 500 to 1250") == 0);
    REQUIRE(waitUntil([] { return position() == 1250; }));
    const auto heard = recording.finish();
    const auto stretches = stretchesOf(heard, 20);
    REQUIRE(stretches.size() == 1);
    const auto place = placeOf(heard, stretches[0], source.values);
    REQUIRE(place);
    CHECK(*place >= framesOf(500));
    CHECK(*place < framesOf(500) + seam);
    CHECK(*place + stretches[0].frames() == framesOf(1250));
}

TEST_CASE("a file that was expected sounds as any other, whatever is asked of it") {
    const SoundServer server;
    const Samples source = loudNoise(4000);
    const std::string path = write("expected.wav", wave(source));
    struct Asked {
        int from;
        int to;
    };
    for (const auto [from, to] :
         {Asked{1, 4000}, Asked{0, 4000}, Asked{1, 1250}, Asked{700, 4000}}) {
        CAPTURE(from);
        CAPTURE(to);
        expectFile(path);
        Recording recording;
        const OpenFile file(path);
        CHECK(length() == 4000);
        REQUIRE(send("play mpeg from " + std::to_string(from) + " to " + std::to_string(to)) == 0);
        REQUIRE(waitUntil([to] { return position() == to; }));
        const auto heard = recording.finish();
        const auto stretches = stretchesOf(heard, 20);
        REQUIRE(stretches.size() == 1);
        const auto place = placeOf(heard, stretches[0], source.values);
        REQUIRE(place);
        CHECK(*place >= framesOf(from));
        CHECK(*place < framesOf(from) + seam);
        CHECK(*place + stretches[0].frames() == framesOf(to));
    }
}

TEST_CASE("another file than the expected one sounds, and nothing of that one") {
    const SoundServer server;
    const Samples source = loudNoise(1000);
    expectFile(write("expected.wav", wave(tone(440, 3000))));
    Recording recording;
    const OpenFile file(write("another.wav", wave(source)));
    CHECK(length() == 1000);
    REQUIRE(playAll() == 0);
    REQUIRE(waitUntil(finished));
    const auto heard = recording.finish();
    const auto stretches = stretchesOf(heard, 20);
    REQUIRE(stretches.size() == 1);
    CHECK(placeOf(heard, stretches[0], source.values));
}

TEST_CASE("after a seek exactly the asked place sounds, and the old one no longer than 50 ms") {
    const SoundServer server;
    const Samples source = loudNoise(8000);
    const OpenFile file(write("seek.wav", wave(source)));
    Recording recording;
    REQUIRE(send("play mpeg from 0 to 8000") == 0);
    REQUIRE(waitUntil([] { return position() > 700; }));
    const int before = position();
    REQUIRE(send("seek mpeg to 7200") == 0);
    REQUIRE(send("Play mpeg") == 0);
    REQUIRE(waitUntil(finished));
    const auto heard = recording.finish();
    const auto stretches = stretchesOf(heard, 8820);
    REQUIRE(stretches.size() == 1);

    constexpr std::size_t rest = framesOf(800);
    const std::size_t end = stretches[0].end;
    CHECK(placeOf(heard, {end - (rest - seam), end}, source.values) == framesOf(7200) + seam);

    const std::size_t begin = stretches[0].start;
    const auto place = placeOf(heard, {begin, begin + 4410}, source.values);
    REQUIRE(place);
    CHECK(*place < seam);
    const std::size_t old = unbroken(heard, stretches[0], source.values, *place);
    CHECK(*place + old + seam >= framesOf(before));
    CHECK(*place + old < framesOf(before + 50));
    // Between the old place and the new one there is no hole longer than the seam.
    CHECK(stretches[0].frames() - old < rest + seam);
}

TEST_CASE("a pause is silence, and nothing of the sound is lost over it") {
    const SoundServer server;
    const Samples source = loudNoise(2000);
    const OpenFile file(write("pause.wav", wave(source)));
    Recording recording;
    REQUIRE(send("play mpeg from 0 to 2000") == 0);
    REQUIRE(waitUntil([] { return position() > 600; }));
    REQUIRE(send("Pause mpeg") == 0);
    const int held = position();
    int looks = 0;
    CHECK(waitUntil([&] { return position() != held || ++looks > 60; }));
    CHECK(position() == held);
    REQUIRE(send("Resume mpeg") == 0);
    REQUIRE(waitUntil(finished));
    const auto heard = recording.finish();
    const auto stretches = stretchesOf(heard, 20);
    REQUIRE(stretches.size() == 2);
    CHECK(stretches[1].start - stretches[0].end > framesOf(200));
    const auto first = placeOf(heard, stretches[0], source.values);
    const auto second = placeOf(heard, stretches[1], source.values);
    REQUIRE(first);
    REQUIRE(second);
    CHECK(*first < seam);
    const std::size_t paused = *first + stretches[0].frames();
    CHECK(paused < framesOf(held + 50));
    CHECK(*second < paused + seam);
    CHECK(*second + seam > paused);
    CHECK(*second + stretches[1].frames() == framesOf(2000));
}

TEST_CASE("the next file follows a stopped one without a leftover, to its very last sample") {
    const SoundServer server;
    const Samples first = tone(440, 4000);
    const Samples second = loudNoise(700);
    Recording recording;
    {
        const OpenFile file(write("first.wav", wave(first)));
        REQUIRE(playAll() == 0);
        REQUIRE(waitUntil([] { return position() > 500; }));
        REQUIRE(send("Stop mpeg") == 0);
    }
    const OpenFile file(write("second.wav", wave(second)));
    REQUIRE(send("play mpeg from 0 to 700") == 0);
    REQUIRE(waitUntil(finished));
    const auto heard = recording.finish();
    const auto stretches = stretchesOf(heard, 44'100);
    REQUIRE(stretches.size() == 1);
    const std::size_t end = stretches[0].end;
    const Stretch tail{end - (framesOf(700) - seam), end};
    CHECK(placeOf(heard, tail, second.values) == seam);
    // What stands before it is the first file's half second.
    CHECK(stretches[0].frames() < framesOf(700) + framesOf(1000));
}

TEST_CASE("the position is the length only once the end has sounded") {
    const SoundServer server;
    const OpenFile file(encode("end", tone(440, 1500), "-b 128"));
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    REQUIRE(playAll() == 0);
    int last = 0;
    REQUIRE(waitUntil([&] {
        const int now = position();
        CHECK(now >= last);
        last = now;
        return now == 1500;
    }));
    const std::chrono::duration<double> passed = Clock::now() - start;
    CHECK(passed.count() > 1.49);
    CHECK(passed.count() < 2.5);
    CHECK(position() == 1500);
    REQUIRE(playAll() == 0);
    CHECK(position() < 1000);
}
