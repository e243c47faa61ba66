#include "mainwindow/volume.h"
#include "playback/volume_words.h"

#include <doctest/doctest.h>
#include <utility>

#include <cstdint>

TEST_CASE("each place of the volume thumb has its level and its word") {
    struct Row {
        float left;
        double level;
        std::uint32_t word;
    };
    const Row rows[] = {
        {2400, 0, 0x00000000U},     {2415, 810, 0x06540654U},   {2700, 16200, 0x7E907E90U},
        {2985, 31590, 0xF6CCF6CEU}, {3000, 32400, 0xFD20FD22U},
    };
    for (const Row& row : rows) {
        CAPTURE(row.left);
        CHECK(volume::levelOf(row.left) == row.level);
        CHECK(volume::safeWord(volume::wordOf(row.level)) == row.word);
    }
    CHECK(volume::safeWord(volume::wordOf(volume::StopLevel)) == 0xFFFEFFFFU);
    CHECK(volume::safeWord(volume::wordOf(16384)) == 0x80008002U);
}

TEST_CASE("the volume thumb's share of its travel is kept within it, wherever the thumb stands") {
    CHECK(volume::shareOf(2400) == 0);
    CHECK(volume::shareOf(2550) == 0.25);
    CHECK(volume::shareOf(3000) == 1);
    for (const float left : {2399.0F, 2385.0F, 0.0F, -30.0F})
        CHECK(volume::shareOf(left) == 0);
    for (const float left : {3001.0F, 3015.0F, 9000.0F})
        CHECK(volume::shareOf(left) == 1);
    for (const double share : {0.0, 0.25, 0.5, 1.0})
        CHECK(volume::shareOf(volume::leftOf(share)) == share);
    CHECK(volume::leftOf(0.001) == 2401); // to the nearest twip
    CHECK(volume::leftOf(0.0008) == 2400);
}

TEST_CASE("one pixel of travel is 810 levels, and both channels stay within two of each other") {
    for (int pixel = 0; pixel <= 40; ++pixel) {
        CAPTURE(pixel);
        const double level = volume::levelOf(2400.0F + 15.0F * static_cast<float>(pixel));
        CHECK(level == 810 * pixel);
        const std::uint32_t word = volume::wordOf(level);
        const std::uint32_t left = word & 0xFFFFU;
        const std::uint32_t right = word >> 16U;
        CHECK(left - right <= 2);
        CHECK((left == 2 * static_cast<std::uint32_t>(level) || left == right + 2));
    }
}

TEST_CASE("a word above half counts as two less than its unsigned value") {
    const std::pair<std::uint32_t, double> words[] = {
        {0x00000000U, 0},          {0x7FFFFFFFU, 2147483647}, {0x80000000U, 2147483646},
        {0x80008000U, 2147516414}, {0xFFFEFFFFU, 4294901757}, {0xFFFFFFFFU, 4294967293}};
    for (const auto& row : words) {
        CAPTURE(row.first);
        CHECK(volume::percentOf(row.first) == row.second / 65537 / 2 / 32767 * 100);
    }
}

TEST_CASE("of all words only the one that silences the left channel is replaced") {
    CHECK(volume::safeWord(0xFFFF0000U) == 0xFFFEFFFFU);
    for (const std::uint32_t word : {0x00000000U, 0x0000FFFFU, 0x7FFFFFFFU, 0x80000000U,
                                     0xFFFEFFFFU, 0xFFFF0001U, 0xFFFFFFFFU}) {
        CAPTURE(word);
        CHECK(volume::safeWord(word) == word);
    }
}
