#include "platform/linux/media/early.h"
#include "platform/media.h"
#include "tests/sound/support/patience.h"
#include "tests/sound/support/player_calls.h"
#include "tests/sound/support/sound_files.h"
#include "tests/sound/support/sound_server.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <string>

using namespace sound_test;

namespace {

constexpr std::uint32_t noSoundServer = 279;

const std::string& longTone() {
    static const std::string path = encode("long", tone(440, 30'000), "-b 128");
    return path;
}

/// Takes the server away and waits until the player has noticed.
void takeAway(SoundServer& server) {
    server.kill();
    REQUIRE(waitUntil([] { return platform::waveOutGetNumDevs() == 0; }));
}

bool moves() {
    const int from = position();
    return waitUntil([&] { return position() > from + 50; });
}

void stopAndClose() {
    CHECK(send("Stop mpeg") == 0);
    CHECK(send("Close mpeg") == 0);
}

} // namespace

TEST_CASE("without a server there is no wave device, and no file opens") {
    const SoundServer server(SoundServer::Begin::Absent);
    const std::string& file = longTone(); // its encoder takes its own time
    Patience patience;
    CHECK(patience([] { return platform::waveOutGetNumDevs(); }) == 0);
    std::uint32_t volume = 0;
    CHECK(patience([&] { return platform::waveOutGetVolume(0, &volume); }) != 0);
    CHECK(patience([] { return platform::waveOutSetVolume(0, 0); }) != 0);
    CHECK(patience([&] { return openFile(file); }) == noSoundServer);
    CHECK(position() == -1);
    CHECK(patience.longest < 3);
}

TEST_CASE("the way to the server is begun before anything asks for sound") {
    const SoundServer server;
    platform::media::connectEarly();
    CHECK(waitUntil([&] {
        return server.control("list clients").find("Orvan Music Player") != std::string::npos;
    }));
    CHECK(platform::waveOutGetNumDevs() == 1);
}

TEST_CASE("a server that comes after the way to it was begun is found") {
    SoundServer server(SoundServer::Begin::Absent);
    platform::media::connectEarly();
    REQUIRE(openFile(longTone()) == noSoundServer);
    server.start();
    const OpenFile file(longTone());
    REQUIRE(playAll() == 0);
    CHECK(moves());
}

TEST_CASE("a server that comes later is found") {
    SoundServer server(SoundServer::Begin::Absent);
    REQUIRE(openFile(longTone()) == noSoundServer);
    server.start();
    CHECK(platform::waveOutGetNumDevs() == 1);
    const OpenFile file(longTone());
    REQUIRE(playAll() == 0);
    CHECK(moves());
}

TEST_CASE("while the server is away the place stays, and play goes on there when it is back") {
    SoundServer server;
    const OpenFile file(longTone());
    REQUIRE(playAll() == 0);
    REQUIRE(waitUntil([] { return position() > 400; }));
    takeAway(server);
    Patience patience;
    int last = 0;
    for (int i = 0; i < 50; ++i) {
        const int now = patience([] { return position(); });
        CHECK(now >= last);
        last = now;
    }
    CHECK(last >= 400);
    CHECK(last < 20'000);
    CHECK(patience([] { return send("seek mpeg to 5000"); }) == 0);
    CHECK(patience([] { return send("Play mpeg"); }) == noSoundServer);
    CHECK(position() == 5000);
    server.start();
    CHECK(send("Play mpeg") == 0);
    CHECK(moves());
    server.kill();
    server.start();
    CHECK(moves());
    CHECK(patience.longest < 3);
}

TEST_CASE("the server is killed and started a hundred times in play, and the next file plays") {
    SoundServer server;
    const std::string& file = longTone(); // its encoder takes its own time
    Patience patience;
    for (int i = 0; i < 100; ++i) {
        CAPTURE(i);
        REQUIRE(patience([&] { return openFile(file); }) == 0);
        REQUIRE(patience([] { return playAll(); }) == 0);
        REQUIRE(waitUntil([] { return position() > 20; }));
        server.kill();
        CHECK(patience([] { return position(); }) >= 20);
        if (i % 2 == 0) {
            stopAndClose();
            server.start();
        } else {
            server.start();
            patience([] { return send("Pause mpeg"); });
            stopAndClose();
        }
    }
    CHECK(patience.longest < 3);
}

TEST_CASE("a paused file goes on at its place after the server was killed") {
    SoundServer server;
    const OpenFile file(longTone());
    REQUIRE(send("play mpeg from 10000 to 30000") == 0);
    REQUIRE(waitUntil([] { return position() > 10'100; }));
    REQUIRE(send("Pause mpeg") == 0);
    const int held = position();
    takeAway(server);
    CHECK(position() == held);
    CHECK(send("Resume mpeg") == noSoundServer);
    server.start();
    CHECK(position() == held);
    CHECK(send("Resume mpeg") == 0);
    REQUIRE(waitUntil([&] { return position() > held; }));
    CHECK(position() < held + 5000);
}

TEST_CASE("a suspended output holds the place, and goes on from it") {
    const SoundServer server;
    const OpenFile file(longTone());
    REQUIRE(playAll() == 0);
    REQUIRE(waitUntil([] { return position() > 300; }));
    server.control("suspend-sink out 1");
    int last = -1;
    CHECK(waitUntil([&] {
        const int now = position();
        const bool stands = now == last;
        last = now;
        return stands;
    }));
    CHECK(last < 3000);
    CHECK(send("Pause mpeg") == 0);
    CHECK(send("Resume mpeg") == 0);
    server.control("suspend-sink out 0");
    CHECK(moves());
}

TEST_CASE("a stream that the mixer moves to another output plays on to its end") {
    const SoundServer server;
    const OpenFile file(write("moved.wav", wave(tone(440, 3000))));
    REQUIRE(playAll() == 0);
    REQUIRE(waitUntil([] { return position() > 300; }));
    server.control("load-module module-null-sink sink_name=other rate=48000");
    const std::string list = server.control("list short sink-inputs");
    server.control("move-sink-input " + list.substr(0, list.find('\t')) + " other");
    CHECK(waitUntil([] { return position() == 3000; }));
}

TEST_CASE("a stream that the mixer kills comes back at its place") {
    const SoundServer server;
    const OpenFile file(longTone());
    REQUIRE(send("play mpeg from 5000 to 30000") == 0);
    REQUIRE(waitUntil([] { return position() > 5200; }));
    server.control("unload-module module-null-sink");
    server.control("load-module module-null-sink sink_name=out");
    CHECK(moves());
    CHECK(position() >= 5200);
    CHECK(position() < 15'000);
}

TEST_CASE("a server that hangs holds no call for long, and sounds again when it goes on") {
    SoundServer server;
    const OpenFile file(longTone());
    REQUIRE(playAll() == 0);
    REQUIRE(waitUntil([] { return position() > 200; }));
    server.freeze();
    Patience patience;
    for (const char* command : {"Pause mpeg", "Resume mpeg", "seek mpeg to 9000", "Play mpeg",
                                "Pause mpeg", "Stop mpeg", "Close mpeg"}) {
        CAPTURE(command);
        CHECK(patience([&] { return send(command); }) == 0);
        patience([] { return position(); });
    }
    std::uint32_t volume = 0;
    CHECK(patience([&] { return platform::waveOutGetVolume(0, &volume); }) != 0);
    CHECK(patience([] { return platform::waveOutSetVolume(0, 0xFFFFFFFF); }) != 0);
    Patience shorter;
    for (int i = 0; i < 20; ++i)
        CHECK(shorter([] { return platform::waveOutSetVolume(0, 0xFFFFFFFF); }) != 0);
    CHECK(shorter.total < 20 * 0.25);
    patience([] { return openFile(longTone()); });
    patience([] { return playAll(); });
    CHECK(patience.longest < 3);
    server.thaw();
    CHECK(waitUntil([] { return position() > 100; }));
}
