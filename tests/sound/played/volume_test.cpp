#include "platform/media.h"
#include "tests/sound/support/player_calls.h"
#include "tests/sound/support/sound_files.h"
#include "tests/sound/support/sound_server.h"

#include <cstdint>
#include <cstdlib>
#include <doctest/doctest.h>
#include <filesystem>
#include <string>

using namespace sound_test;

namespace {

bool finished() { return position() == length(); }

std::uint32_t volumeNow() {
    std::uint32_t word = 0;
    REQUIRE(platform::waveOutGetVolume(0, &word) == 0);
    return word;
}

bool setInAnotherRun(std::uint32_t word) {
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").native();
    const std::string command = "'" + program + "' --volume " + std::to_string(word);
    // NOLINTNEXTLINE(bugprone-command-processor): a test's own fixed words
    return std::system(command.c_str()) == 0;
}

} // namespace

TEST_CASE("each side has its own volume, and the server's mixer shows it") {
    const SoundServer server;
    REQUIRE(platform::waveOutGetNumDevs() == 1);
    REQUIRE(platform::waveOutSetVolume(0, 0x8000FFFF) == 0);
    Recording recording;
    const OpenFile file(write("sides.wav", wave(tone(440, 1500))));
    REQUIRE(playAll() == 0);
    REQUIRE(waitUntil([] { return position() > 200; }));
    const std::string inputs = server.control("list sink-inputs");
    CHECK(inputs.find("Orvan Music Player") != std::string::npos);
    CHECK(inputs.find("65536 / 100%") != std::string::npos);
    CHECK(inputs.find("32769 /  50%") != std::string::npos);
    REQUIRE(waitUntil(finished));
    const auto heard = recording.finish();
    const auto stretches = stretchesOf(heard, 2000);
    REQUIRE(stretches.size() == 1);
    CHECK(levelOf(heard, stretches[0], 0) == doctest::Approx(11585).epsilon(0.02));
    CHECK(levelOf(heard, stretches[0], 1) == doctest::Approx(11585.0 / 8).epsilon(0.05));
}

TEST_CASE("the sound says whose it is and what is played, and its volume stays the player's own") {
    const SoundServer server;
    REQUIRE(platform::waveOutGetNumDevs() == 1);
    const OpenFile file(write("A tune with \u00fc.wav", wave(tone(440, 5000))));
    REQUIRE(playAll() == 0);
    REQUIRE(waitUntil([] { return position() > 100; }));
    const std::string inputs = server.control("list sink-inputs");
    for (const std::string word :
         {"application.name = \"Orvan Music Player\"", "application.id = \"orvan\"",
          "application.icon_name = \"orvan\"", "media.role = \"music\"",
          "media.name = \"A tune with \u00fc.wav\"", "media.title = \"A tune with \u00fc.wav\"",
          "module-stream-restore.id = \"sink-input-by-application-name:Orvan Music Player\""}) {
        CAPTURE(word);
        CHECK(inputs.find(word) != std::string::npos);
    }
}

TEST_CASE("every volume set reads back, with a file playing and without") {
    const SoundServer server;
    REQUIRE(platform::waveOutGetNumDevs() == 1);
    const auto roundTrips = [](std::uint32_t word) {
        std::uint32_t back = 0;
        return platform::waveOutSetVolume(0, word) == 0 &&
               platform::waveOutGetVolume(0, &back) == 0 && back == word;
    };
    for (const std::uint32_t word :
         {0x00000000U, 0x7E907E90U, 0x80008002U, 0xFD20FD22U, 0xFFFEFFFFU})
        CHECK(roundTrips(word));
    const OpenFile file(write("volume.wav", wave(tone(440, 5000))));
    REQUIRE(playAll() == 0);
    REQUIRE(waitUntil([] { return position() > 100; }));
    for (const std::uint32_t word : {0x00000000U, 0x7E907E90U, 0x80008002U, 0xFFFEFFFFU})
        CHECK(roundTrips(word));
}

TEST_CASE("a change in the desktop's mixer is seen, and kept for the next file") {
    const SoundServer server;
    REQUIRE(platform::waveOutGetNumDevs() == 1);
    REQUIRE(platform::waveOutSetVolume(0, 0xFFFFFFFF) == 0);
    std::uint32_t volume = 0;
    {
        const OpenFile file(write("mixer.wav", wave(tone(440, 5000))));
        REQUIRE(playAll() == 0);
        REQUIRE(waitUntil([] { return position() > 100; }));
        const std::string list = server.control("list short sink-inputs");
        server.control("set-sink-input-volume " + list.substr(0, list.find('\t')) + " 16384 49152");
        CHECK(waitUntil(
            [&] { return platform::waveOutGetVolume(0, &volume) == 0 && volume == 0xBFFF4000; }));
    }
    CHECK(platform::waveOutGetVolume(0, &volume) == 0);
    CHECK(volume == 0xBFFF4000);
}

TEST_CASE("the volume is kept over the end of the player, and over the end of the server") {
    SoundServer server;
    REQUIRE(setInAnotherRun(0x4000C000));
    CHECK(volumeNow() == 0x4000C000);
    server.end();
    REQUIRE(waitUntil([] { return platform::waveOutGetNumDevs() == 0; }));
    server.start();
    REQUIRE(platform::waveOutGetNumDevs() == 1);
    CHECK(volumeNow() == 0x4000C000);

    const OpenFile file(write("kept.wav", wave(tone(440, 5000))));
    REQUIRE(playAll() == 0);
    REQUIRE(waitUntil([] { return position() > 100; }));
    const std::string inputs = server.control("list sink-inputs");
    CHECK(inputs.find("front-left: 49153 /  75%") != std::string::npos);
    CHECK(inputs.find("front-right: 16384 /  25%") != std::string::npos);
    CHECK(volumeNow() == 0x4000C000);
}
