#include "platform/linux/media/block_queue.h"
#include "platform/linux/media/down_mix.h"
#include "platform/linux/media/mpeg_frames.h"
#include "platform/linux/media/play_clock.h"
#include "platform/linux/media/volume_words.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <doctest/doctest.h>
#include <thread>
#include <vector>

using namespace platform::media;

TEST_CASE("every volume word comes back from the server's scale as it went there") {
    for (std::uint32_t side = 0; side <= 0xFFFF; ++side) {
        const std::uint32_t word = side | (0xFFFF - side) << 16;
        if (volumeWordOf(serverVolumeOf(word)) == word) continue;
        CAPTURE(side);
        FAIL("the word changed");
    }
}

TEST_CASE("the volume word's ends are the server's 0 and 100 %, left in the low word") {
    CHECK(serverVolumeOf(0x0000FFFF).left == 65536);
    CHECK(serverVolumeOf(0x0000FFFF).right == 0);
    CHECK(serverVolumeOf(0x80000000).right == 32769);
    CHECK(volumeWordOf({70'000, 65536}) == 0xFFFFFFFF);
}

TEST_CASE("a length is rounded once, to the nearest thousandth") {
    CHECK(lengthInThousandths(44100, 44100) == 1000);
    CHECK(lengthInThousandths(22, 44100) == 0);
    CHECK(lengthInThousandths(23, 44100) == 1);
    CHECK(lengthInThousandths(44100LL * 86400, 44100) == 86'400'000);
}

TEST_CASE("a thousandth becomes the nearest frame, a frame the thousandth that it lies in") {
    CHECK(framesOfThousandths(1, 44100) == 44);
    CHECK(framesOfThousandths(1000, 44100) == 44100);
    CHECK(thousandthsOfFrames(44099, 44100) == 999);
    CHECK(thousandthsOfFrames(44100, 44100) == 1000);
}

TEST_CASE("the clock carries the server's report on while the sound moves") {
    PlayClock clock;
    clock.restart(48000);
    CHECK(clock.heard(5'000'000, 1'000'000) == 0);
    clock.correct(4800, 1'000'000, PlayClock::Motion::Running);
    CHECK(clock.heard(1'500'000, 1'000'000) == 4800 + 24000);
    clock.halt(2'000'000);
    CHECK(clock.heard(9'000'000, 1'000'000) == 4800 + 48000);
}

TEST_CASE("the clock never runs backwards, nor past what the server was given") {
    PlayClock clock;
    clock.restart(48000);
    clock.correct(48000, 0, PlayClock::Motion::Running);
    CHECK(clock.heard(1'000'000, 1'000'000) == 96000);
    clock.correct(90000, 1'000'000, PlayClock::Motion::Running);
    CHECK(clock.heard(1'000'000, 1'000'000) == 96000);
    CHECK(clock.heard(1'200'000, 1'000'000) == 99600);
    CHECK(clock.heard(9'000'000, 100'000) == 100'000);
}

TEST_CASE("blocks cross from one thread to another whole and in order") {
    constexpr std::uint32_t count = 20'000;
    BlockQueue queue(sizeof(std::uint32_t));
    std::thread writer([&] {
        for (std::uint32_t i = 0; i < count;) {
            Block* block = queue.back();
            if (block == nullptr) {
                std::this_thread::yield();
                continue;
            }
            block->request = i;
            std::memcpy(block->data.get(), &i, sizeof i);
            queue.push();
            ++i;
        }
    });
    std::uint32_t wrong = 0;
    for (std::uint32_t i = 0; i < count;) {
        Block* block = queue.front();
        if (block == nullptr) {
            std::this_thread::yield();
            continue;
        }
        std::uint32_t held = 0;
        std::memcpy(&held, block->data.get(), sizeof held);
        if (block->request != i || held != i) ++wrong;
        queue.pop();
        ++i;
    }
    writer.join();
    CHECK(wrong == 0);
}

TEST_CASE("a full queue takes no more, an empty one gives none") {
    BlockQueue queue(1);
    CHECK(queue.front() == nullptr);
    for (std::size_t i = 0; i < BlockQueue::capacity; ++i) {
        REQUIRE(queue.back() != nullptr);
        queue.push();
    }
    CHECK(queue.back() == nullptr);
    queue.pop();
    CHECK(queue.back() != nullptr);
}

TEST_CASE("one channel sounds on both sides, many are shared out and never overflow") {
    const std::array<short, 2> mono{-3, 7};
    std::array<short, 4> both{};
    mixDown(mono.data(), 1, 2, both.data());
    CHECK(both == std::array<short, 4>{-3, -3, 7, 7});

    for (const std::size_t channels : {3U, 4U, 5U, 6U, 7U, 8U, 9U, 208U}) {
        CAPTURE(channels);
        const std::vector<short> loudest(channels, 32767);
        std::array<short, 2> mixed{};
        mixDown(loudest.data(), channels, 1, mixed.data());
        CHECK(mixed[0] > 20'000);
        CHECK(mixed[1] > 20'000);

        std::vector<float> leftOnly(channels, 0.0F);
        leftOnly[0] = 1.0F;
        std::array<float, 2> sides{};
        mixDown(leftOnly.data(), channels, 1, sides.data());
        CHECK(sides[0] > 0.0F);
        CHECK(sides[1] == 0.0F);
    }
}

TEST_CASE("an MPEG header tells rate, channels and size, and nothing else counts as one") {
    const auto header = readMpegHeader(0xFFFB9064); // MPEG-1 layer III, 128 kbit/s, 44100 Hz, joint
    REQUIRE(header);
    CHECK(header->rate == 44100);
    CHECK(header->channels == 2);
    CHECK(header->samples == 1152);
    CHECK(header->bytes == 417);
    CHECK(header->sideBytes == 32);

    const auto low = readMpegHeader(0xFFE318C4); // MPEG-2.5 layer III, 8 kbit/s, 8000 Hz, mono
    REQUIRE(low);
    CHECK(low->rate == 8000);
    CHECK(low->channels == 1);
    CHECK(low->samples == 576);
    CHECK(low->bytes == 72);

    for (const std::uint32_t word : {0x00000000U, 0xFFFFFFFFU, 0xFFEB9064U, 0xFFF99064U,
                                     0xFFFBF064U, 0xFFFB9C64U, 0xFF7B9064U}) {
        CAPTURE(word);
        CHECK_FALSE(readMpegHeader(word));
    }
}
