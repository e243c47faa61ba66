#include "tests/sound/support/player_calls.h"
#include "tests/sound/support/sound_files.h"
#include "tests/sound/support/sound_server.h"

#include <chrono>
#include <cstdint>
#include <doctest/doctest.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace sound_test;

namespace {

bool finished() { return position() == length(); }

void checkNextFilePlays() {
    const OpenFile file(write("next.wav", wave(tone(880, 300))));
    CHECK(playAll() == 0);
    CHECK(waitUntil(finished));
}

} // namespace

TEST_CASE("a file that is deleted while it plays is heard to its end") {
    const SoundServer server;
    const std::string path = encode("deleted", tone(440, 1200), "-b 128");
    const OpenFile file(path);
    REQUIRE(playAll() == 0);
    std::filesystem::remove(path);
    CHECK(waitUntil(finished));
}

TEST_CASE("a file that is cut or grows while it plays comes to its end, and the next one plays") {
    const SoundServer server;
    for (const char* name : {"shrinks.wav", "shrinks.mp3", "grows.wav"}) {
        CAPTURE(name);
        const bool grows = name[0] == 'g';
        const std::string path = std::string(name).ends_with("mp3")
                                     ? encode("shrinks", tone(440, 8000), "-b 320")
                                     : write(name, wave(tone(440, grows ? 1500 : 8000, 44100)));
        {
            const OpenFile file(path);
            const int whole = length();
            REQUIRE(playAll() == 0);
            REQUIRE(waitUntil([] { return position() > 100; }));
            if (grows)
                std::ofstream(path, std::ios::app | std::ios::binary) << Bytes(500'000, '\x20');
            else
                std::filesystem::resize_file(path, 1000);
            CHECK(waitUntil(finished));
            CHECK(length() == whole);
        }
        checkNextFilePlays();
    }
}

TEST_CASE("a pipe with nobody at its other end does not open, and holds nobody up") {
    const SoundServer server;
    const std::string path = folder() + "pipe.mp3";
    REQUIRE(::mkfifo(path.c_str(), 0600) == 0);
    const auto start = std::chrono::steady_clock::now();
    CHECK(openFile(path) != 0);
    CHECK(std::chrono::steady_clock::now() - start < std::chrono::seconds(2));
    checkNextFilePlays();
}

TEST_CASE("out of file handles a file does not open, and does when there are some again") {
    const SoundServer server;
    const std::string path = write("handles.wav", wave(tone(440, 300)));
    checkNextFilePlays();
    rlimit before{};
    REQUIRE(::getrlimit(RLIMIT_NOFILE, &before) == 0);
    rlimit few = before;
    few.rlim_cur = 3;
    REQUIRE(::setrlimit(RLIMIT_NOFILE, &few) == 0);
    const std::uint32_t error = openFile(path);
    REQUIRE(::setrlimit(RLIMIT_NOFILE, &before) == 0);
    CHECK(error != 0);
    CHECK(position() == -1);
    checkNextFilePlays();
}

TEST_CASE("a tag of a quarter of a gigabyte costs no memory") {
    const SoundServer server;
    const Bytes sound = readAll(encode("small", tone(440, 500), "-b 128"));
    const std::string path = folder() + "huge.mp3";
    {
        std::ofstream file(path, std::ios::binary);
        file << Bytes("ID3\x03\0\0\x7F\x7F\x7F\x76", 10);
        file.seekp((std::int64_t{1} << 28) - 10 + 10 - 1 - 9);
        file << sound;
    }
    checkNextFilePlays(); // what the first file of a process costs is another matter
    rusage before{};
    rusage after{};
    ::getrusage(RUSAGE_SELF, &before);
    {
        const OpenFile file(path);
        CHECK(length() >= 500);
        REQUIRE(playAll() == 0);
        CHECK(waitUntil(finished));
    }
    ::getrusage(RUSAGE_SELF, &after);
    CHECK(after.ru_maxrss - before.ru_maxrss < 20'000);
    checkNextFilePlays();
}

TEST_CASE("a hundred files opened, played and closed in turn leave no handle behind") {
    const SoundServer server;
    const auto handles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    checkNextFilePlays();
    const auto before = handles();
    const std::string path = encode("again", tone(440, 300), "-b 128");
    for (int i = 0; i < 100; ++i) {
        const OpenFile file(path);
        REQUIRE(playAll() == 0);
        if (i % 3 == 0) REQUIRE(waitUntil([] { return position() > 1; }));
    }
    CHECK(waitUntil([&] { return handles() <= before; }));
}
