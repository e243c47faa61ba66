#include "platform/media.h"
#include "platform/system.h"
#include "tests/contract/world.h"

#include <cstdint>
#include <cstring>
#include <doctest/doctest.h>
#include <string>

using namespace platform;

namespace {

std::uint32_t send(const std::string& command) {
    return mciSendStringA(command.c_str(), nullptr, 0, 0);
}

std::string ask(const std::string& command) {
    char reply[255] = {};
    const std::uint32_t error =
        mciSendStringA(command.c_str(), reply, static_cast<std::uint32_t>(sizeof reply), 0);
    return error == 0 ? reply : "error";
}

int position() {
    const std::string reply = ask("status mpeg position");
    REQUIRE(reply != "error");
    return std::stoi(reply);
}

std::string shortName(const std::string& path) {
    char buffer[255] = {};
    const std::uint32_t length = GetShortPathNameA(path.c_str(), buffer, 255);
    return std::string(buffer, length);
}

std::uint32_t open(const std::string& path) {
    return send("open " + shortName(path) +
                " type MpegVideo Alias mpeg parent 1001 Style 1073741824");
}

/// A device with a file of this length open, closed at the end.
struct OpenDevice {
    explicit OpenDevice(int milliseconds) {
        REQUIRE(open(contract::makeWave("a tone.wav", milliseconds)) == 0);
        REQUIRE(send("set mpeg time format frames") == 0);
    }
    OpenDevice(const OpenDevice&) = delete;
    OpenDevice& operator=(const OpenDevice&) = delete;
    ~OpenDevice() { send("Close mpeg"); }
};

} // namespace

TEST_CASE("an open file tells its length and stands at 0") {
    const OpenDevice device(2500);
    CHECK(ask("status mpeg length") == "2500");
    CHECK(ask("status mpeg position") == "0");
}

TEST_CASE("command words count in any case, blanks are folded, trailing ones ignored") {
    const OpenDevice device(2500);
    CHECK(ask("STATUS  mpeg   LENGTH") == "2500");
    CHECK(ask("Status MPEG Length" + std::string(200, ' ')) == "2500");
    CHECK(send("  sToP mpeg ") == 0);
}

TEST_CASE("a reply is cut to its buffer and ends in a nul") {
    const OpenDevice device(2500);
    char reply[4] = {'x', 'x', 'x', 'x'};
    CHECK(mciSendStringA("status mpeg length", reply, 3, 0) == 0);
    CHECK(std::string(reply, 4) == std::string("25\0x", 4));
}

TEST_CASE("play moves the position on until it is exactly the length, and there it stays") {
    const OpenDevice device(600);
    CHECK(send("play mpeg from 1 to 600") == 0);
    CHECK(contract::waitUntil([] { return position() >= 100; }));
    CHECK(contract::waitUntil([] { return position() == 600; }));
    contract::letPass(100);
    CHECK(position() == 600);
}

TEST_CASE("play ends exactly where it was told to") {
    const OpenDevice device(2000);
    CHECK(send("play mpeg from 1 to 300") == 0);
    CHECK(contract::waitUntil([] { return position() == 300; }));
    contract::letPass(200);
    CHECK(position() == 300);
}

TEST_CASE("the position never runs backwards in steady play") {
    const OpenDevice device(600);
    REQUIRE(send("play mpeg from 1 to 600") == 0);
    int last = 0;
    CHECK(contract::waitUntil([&] {
        const int current = position();
        CHECK(current >= last);
        last = current;
        return current == 600;
    }));
}

TEST_CASE("the position never runs ahead of the time that has passed") {
    const OpenDevice device(5000);
    const std::uint64_t start = contract::clock();
    REQUIRE(send("play mpeg from 1 to 5000") == 0);
    CHECK(contract::waitUntil([&] {
        const int reached = position();
        CHECK(reached <= 1 + static_cast<int>(contract::clock() - start) + 30);
        return reached > 600;
    }));
}

TEST_CASE("pause holds the position, resume lets it go on") {
    const OpenDevice device(5000);
    REQUIRE(send("play mpeg from 1 to 5000") == 0);
    REQUIRE(contract::waitUntil([] { return position() > 50; }));
    CHECK(send("Pause mpeg") == 0);
    // A sound server may say only now where it stopped.
    contract::letPass(200);
    const int held = position();
    contract::letPass(300);
    CHECK(position() == held);
    CHECK(send("Resume mpeg") == 0);
    CHECK(contract::waitUntil([&] { return position() > held; }));
}

TEST_CASE("play after pause goes on from the held position") {
    const OpenDevice device(5000);
    REQUIRE(send("play mpeg from 2000 to 5000") == 0);
    REQUIRE(contract::waitUntil([] { return position() > 2050; }));
    REQUIRE(send("Pause mpeg") == 0);
    const int held = position();
    CHECK(send("Play mpeg") == 0);
    CHECK(contract::waitUntil([&] { return position() > held; }));
    CHECK(position() < 4900);
}

TEST_CASE("a seek stands exactly where it was sent, and play goes on from there") {
    const OpenDevice device(5000);
    CHECK(send("seek mpeg to 4400") == 0);
    CHECK(ask("status mpeg position") == "4400");
    CHECK(send("Play mpeg") == 0);
    CHECK(contract::waitUntil([] { return position() == 5000; }));
}

TEST_CASE("a seek in a pause stands where it was sent, and play goes on from there") {
    const OpenDevice device(5000);
    REQUIRE(send("play mpeg from 1 to 5000") == 0);
    REQUIRE(contract::waitUntil([] { return position() > 50; }));
    REQUIRE(send("Pause mpeg") == 0);
    CHECK(send("seek mpeg to 3000") == 0);
    CHECK(ask("status mpeg position") == "3000");
    contract::letPass(200);
    CHECK(ask("status mpeg position") == "3000");
    CHECK(send("Play mpeg") == 0);
    CHECK(contract::waitUntil([] { return position() > 3000; }));
    CHECK(position() < 4900);
}

TEST_CASE("a seek stops the play") {
    const OpenDevice device(5000);
    REQUIRE(send("play mpeg from 1 to 5000") == 0);
    REQUIRE(contract::waitUntil([] { return position() > 20; }));
    CHECK(send("seek mpeg to 3000") == 0);
    contract::letPass(200);
    CHECK(position() == 3000);
}

TEST_CASE("a track that has ended plays again from its start") {
    constexpr int length = 2000; // more than a busy machine lets pass between two calls
    const OpenDevice device(length);
    const std::string play = "play mpeg from 1 to " + std::to_string(length);
    REQUIRE(send("seek mpeg to 1800") == 0);
    REQUIRE(send("play mpeg from 1800 to " + std::to_string(length)) == 0);
    REQUIRE(contract::waitUntil([] { return position() == length; }));
    CHECK(send(play) == 0);
    CHECK(position() < length);
    CHECK(contract::waitUntil([] { return position() == length; }));
}

TEST_CASE("positions outside the file are refused and change nothing") {
    const OpenDevice device(2000);
    REQUIRE(send("seek mpeg to 700") == 0);
    CHECK(send("seek mpeg to 2001") != 0);
    CHECK(send("seek mpeg to -1") != 0);
    CHECK(send("play mpeg from 1 to 2001") != 0);
    CHECK(send("play mpeg from 1 to -1") != 0);
    CHECK(send("play mpeg from 2001") != 0);
    contract::letPass(100);
    CHECK(ask("status mpeg position") == "700");
}

TEST_CASE("unknown words are refused") {
    const OpenDevice device(2000);
    for (const char* command :
         {"", "   ", "mpeg", "juggle mpeg", "status mpeg", "status mpeg weight", "seek mpeg",
          "seek mpeg to", "seek mpeg to x", "seek mpeg to 1x", "play mpeg from", "play mpeg at 5",
          "set mpeg time format bananas", "stop mpeg now", "stop"}) {
        CAPTURE(std::string(command));
        CHECK(send(command) != 0);
    }
}

TEST_CASE("one alias holds one file at a time") {
    const OpenDevice device(2000);
    CHECK(open(contract::makeWave("second.wav", 500)) != 0);
    CHECK(ask("status mpeg length") == "2000");
    CHECK(send("close mpeg") == 0);
    CHECK(open(contract::makeWave("second.wav", 500)) == 0);
    CHECK(ask("status mpeg length") == "500");
}

TEST_CASE("a closed device refuses everything but open") {
    CHECK(ask("status mpeg length") == "error");
    CHECK(ask("status mpeg position") == "error");
    for (const char* command : {"play mpeg", "Pause mpeg", "Resume mpeg", "Stop mpeg", "Close mpeg",
                                "seek mpeg to 1", "set mpeg time format frames"}) {
        CAPTURE(std::string(command));
        CHECK(send(command) != 0);
    }
}

TEST_CASE("a path with a doubled separator opens as the same path with one") {
    std::string path = contract::makeWave("a tone.wav", 2500);
    path.insert(path.rfind('\\'), 1, '\\');
    REQUIRE(open(path) == 0);
    REQUIRE(send("set mpeg time format frames") == 0);
    CHECK(ask("status mpeg length") == "2500");
    CHECK(send("Close mpeg") == 0);
}

TEST_CASE("a file that isn't there or is no sound doesn't open") {
    CHECK(open(contract::scratchFolder() + "\\none.wav") != 0);
    CHECK(send("open  type MpegVideo Alias mpeg parent 1001 Style 1073741824") != 0);
    CHECK(open(contract::makeFile("text.wav", "These are words.")) != 0);
    CHECK(ask("status mpeg length") == "error");
}

TEST_CASE("every error has a text, cut to its buffer") {
    const std::uint32_t error = send("Stop mpeg");
    REQUIRE(error != 0);
    char text[128] = {};
    CHECK(mciGetErrorStringA(error, text, 128));
    CHECK(std::strlen(text) > 5);
    char small[4] = {'x', 'x', 'x', 'x'};
    CHECK(mciGetErrorStringA(error, small, 3));
    CHECK(small[2] == '\0');
    CHECK(small[3] == 'x');
    CHECK_FALSE(mciGetErrorStringA(4'000'000'000U, text, 128));
}

TEST_CASE("the volume of the first wave device reads back as it was set") {
    REQUIRE(waveOutGetNumDevs() >= 1);
    // A sound server remembers the volume for the tests to come.
    std::uint32_t before = 0;
    REQUIRE(waveOutGetVolume(0, &before) == 0);
    CHECK(waveOutSetVolume(0, 0x80008002U) == 0);
    std::uint32_t volume = 0;
    CHECK(waveOutGetVolume(0, &volume) == 0);
    CHECK(volume == 0x80008002U);
    CHECK(waveOutSetVolume(0, before) == 0);
}

TEST_CASE("a wave device that isn't there gives an error") {
    std::uint32_t volume = 0;
    CHECK(waveOutGetVolume(waveOutGetNumDevs(), &volume) != 0);
    CHECK(waveOutSetVolume(waveOutGetNumDevs(), 0) != 0);
}
