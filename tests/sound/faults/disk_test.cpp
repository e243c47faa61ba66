#include "tests/sound/support/patience.h"
#include "tests/sound/support/player_calls.h"
#include "tests/sound/support/sound_files.h"
#include "tests/sound/support/sound_server.h"
#include "tests/sound/support/stalled_file.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <doctest/doctest.h>
#include <string>

using namespace sound_test;

namespace {

constexpr std::uint32_t tookTooLong = 290;

bool finished() { return position() == length(); }

/// Waits until the position has not moved for a while.
bool comesToStand() {
    int last = -1;
    int looks = 0;
    return waitUntil([&] {
        const int now = position();
        looks = now == last ? looks + 1 : 0;
        last = now;
        return looks > 30;
    });
}

std::int64_t byteOf(int milliseconds) {
    return static_cast<std::int64_t>(4 * framesOf(milliseconds));
}

} // namespace

TEST_CASE("a disk that stalls in play makes a pause, and no sample is lost over it") {
    const SoundServer server;
    const Samples source = loudNoise(4500);
    const std::string path = write("stalls.wav", wave(source));
    StalledFile stalled(path, byteOf(3000));
    Recording recording;
    const OpenFile file(path);
    REQUIRE(send("play mpeg from 0 to 4500") == 0);
    REQUIRE(stalled.holdsSomebody());
    REQUIRE(waitUntil([] { return position() > 2000; }));
    REQUIRE(comesToStand());
    const int stood = position();
    CHECK(stood <= 3000);
    stalled.answer();
    int last = stood;
    CHECK(waitUntil([&] {
        const int now = position();
        CHECK(now >= last);
        last = now;
        return now == 4500;
    }));

    const auto heard = recording.finish();
    const auto stretches = stretchesOf(heard, 20);
    REQUIRE(stretches.size() == 2);
    // Where sound sets in, the recording misses what the server's output took back.
    const auto place = placeOf(heard, stretches[0], source.values);
    REQUIRE(place);
    CHECK(*place < seam);
    const std::size_t broken = *place + stretches[0].frames();
    CHECK(broken == framesOf(stood));
    const auto next = placeOf(heard, stretches[1], source.values);
    REQUIRE(next);
    CHECK(*next >= broken);
    CHECK(*next < broken + seam);
    CHECK(*next + stretches[1].frames() == framesOf(4500));
}

TEST_CASE("while the disk stalls every command answers at once, and the next file plays") {
    const SoundServer server;
    for (const char* name : {"stalls.mp3", "stalls.wav"}) {
        CAPTURE(name);
        const bool packed = std::string(name).ends_with("mp3");
        const Samples sound = tone(440, 9000);
        const std::string path =
            packed ? encode("stalls", sound, "-b 320") : write(name, wave(sound));
        Patience patience;
        REQUIRE(openFile(path) == 0);
        StalledFile stalled(path, packed ? 120'000 : byteOf(3000));
        REQUIRE(playAll() == 0);
        REQUIRE(stalled.holdsSomebody());
        for (const char* command :
             {"Pause mpeg", "Resume mpeg", "seek mpeg to 8000", "Play mpeg", "Pause mpeg",
              "play mpeg from 1 to 9000", "Resume mpeg", "Stop mpeg", "Play mpeg", "Close mpeg"}) {
            CAPTURE(command);
            CHECK(patience([&] { return send(command); }) == 0);
            patience([] { return position(); });
        }
        {
            const OpenFile next(write("next.wav", wave(tone(880, 300))));
            REQUIRE(patience([] { return playAll(); }) == 0);
            CHECK(waitUntil(finished));
        }
        CHECK(patience.longest < 1);
    }
}

TEST_CASE("a file whose disk stalls at the open holds nobody for long, and the next file plays") {
    const SoundServer server;
    const std::string path = encode("stalled", tone(440, 3000), "-b 128");
    Patience patience;
    {
        const StalledFile stalled(path, 0);
        CHECK(patience([&] { return openFile(path); }) == tookTooLong);
        CHECK(stalled.holdsSomebody());
        CHECK(position() == -1);
        const OpenFile next(write("next.wav", wave(tone(880, 300))));
        REQUIRE(playAll() == 0);
        CHECK(waitUntil(finished));
    }
    CHECK(patience.longest < 1.5);
    const OpenFile again(path);
    CHECK(length() == 3000);
}

TEST_CASE("a file whose disk stalled at the open opens when it is asked for again") {
    const SoundServer server;
    const std::string path = encode("woken", tone(440, 3000), "-b 128");
    StalledFile stalled(path, 0);
    Patience patience;
    CHECK(patience([&] { return openFile(path); }) == tookTooLong);
    CHECK(patience([&] { return openFile(path); }) == tookTooLong);
    stalled.answer();
    CHECK(waitUntil([&] { return patience([&] { return openFile(path); }) == 0; }));
    CHECK(patience.longest < 1.5);
    CHECK(length() == 3000);
    REQUIRE(playAll() == 0);
    CHECK(waitUntil(finished));
    CHECK(send("Close mpeg") == 0);
}

TEST_CASE("a long file on a very slow disk opens before it is read, has its length, and plays") {
    const SoundServer server;
    const Bytes few = readAll(encode("few", noise(20'000), "-b 320 -t"));
    Bytes many;
    for (int i = 0; i < 8; ++i)
        many += few;
    const std::string cbr = write("bare.mp3", many);
    const std::string vbr = encode("vbr", noise(200'000), "-V 0");
    for (const std::string& path : {cbr, vbr}) {
        CAPTURE(path);
        int exact = 0;
        {
            const OpenFile file(path);
            exact = length();
        }
        const SlowFile slow(path, std::chrono::milliseconds(80));
        Patience patience;
        CHECK(waitUntil([&] { return patience([&] { return openFile(path); }) == 0; }));
        CHECK(slow.looks() < 12); // of about a hundred
        CHECK(patience.longest < 1.5);
        CHECK(length() == exact);
        REQUIRE(playAll() == 0);
        CHECK(waitUntil([] { return position() > 300; }));
        CHECK(send("Close mpeg") == 0);
    }
}

TEST_CASE("a file whose length only its every frame tells is never given a wrong one") {
    const SoundServer server;
    const std::string path = encode("vbr-headerless", noise(60'000), "-V 0 -t");
    int exact = 0;
    {
        const OpenFile file(path);
        exact = length();
    }
    const SlowFile slow(path, std::chrono::milliseconds(80));
    Patience patience;
    CHECK(patience([&] { return openFile(path); }) == tookTooLong);
    CHECK(waitUntil([&] { return patience([&] { return openFile(path); }) == 0; }));
    CHECK(patience.longest < 1.5);
    CHECK(length() == exact);
    CHECK(send("Close mpeg") == 0);
}

TEST_CASE("of a file that is expected the first seconds are read before any command asks for it") {
    const SoundServer server;
    const std::string path = write("expected.wav", wave(tone(440, 3000)));
    StalledFile stalled(path, byteOf(1000));
    expectFile(path);
    CHECK(stalled.holdsSomebody());
    stalled.answer();
    const OpenFile file(path);
    CHECK(length() == 3000);
    REQUIRE(playAll() == 0);
    CHECK(waitUntil(finished));
}

TEST_CASE("an expected file whose disk stalls, or that isn't there, holds nobody up") {
    const SoundServer server;
    const std::string path = encode("awaited", tone(440, 3000), "-b 128");
    Patience patience;
    {
        const StalledFile stalled(path, 0);
        patience([&] {
            expectFile(path);
            return 0;
        });
        CHECK(stalled.holdsSomebody());
        CHECK(patience([&] { return openFile(path); }) == tookTooLong);
        patience([&] {
            expectFile(folder() + "nothing.mp3");
            return 0;
        });
        const OpenFile next(write("next.wav", wave(tone(880, 300))));
        REQUIRE(playAll() == 0);
        CHECK(waitUntil(finished));
    }
    CHECK(patience.longest < 1);
    const OpenFile again(path);
    CHECK(length() == 3000);
}
