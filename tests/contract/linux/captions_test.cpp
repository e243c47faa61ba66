#include "platform/text.h"
#include "tests/contract/world.h"

#include <algorithm>
#include <cstdint>
#include <doctest/doctest.h>
#include <string>

using namespace platform;

namespace {

constexpr std::int32_t margin = 12;
constexpr Pixel black = 0xFF000000U;
constexpr Pixel yellow = 0xFFFFFF00U;

/// What a text leaves on a picture, in pixels of its box: rows that it is not allowed to reach are
/// open above and below, so that a letter reaching out shows.
struct Ink {
    std::int32_t count = 0;
    std::int32_t top = 1000;
    std::int32_t bottom = -1000;
    std::int32_t right = -1000;
};

Ink inkOf(const Font& font, const char* text, Size box) {
    Picture picture(box.width + 2 * margin, box.height + 2 * margin);
    std::fill(picture.pixels.begin(), picture.pixels.end(), black);
    const std::int32_t spare = box.height - measureText(font, text).height;
    drawText(picture, {margin, 0, margin + box.width, picture.height},
             {margin, margin + std::min(spare, 0) / 2}, font, yellow, text);
    Ink ink;
    for (std::int32_t y = 0; y < picture.height; ++y)
        for (std::int32_t x = 0; x < picture.width; ++x) {
            if (picture.row(y)[x] == black) continue;
            ++ink.count;
            ink.top = std::min(ink.top, y - margin);
            ink.bottom = std::max(ink.bottom, y - margin);
            ink.right = std::max(ink.right, x - margin);
        }
    return ink;
}

} // namespace

TEST_CASE("every caption fits its box, to the last letter and its tail") {
    const Font terminal{"Terminal", 6, true, true};
    const Font upright{"Terminal", 6, true, false};
    const Font clock{"MS Sans Serif", 12, false, false};
    const Font alarm{"MS Sans Serif", 9.75, false, false};
    // The playlist's labels end at the list's first row, 8 pixels below their top.
    const Size state{49, 8};
    const Size played{73, 8};
    const Size time{49, 17};
    struct Row {
        Font font;
        const char* text;
        Size box;
    };
    const Row rows[] = {
        {terminal, "Shuffle", {49, 9}},
        {terminal, "Repeat", {49, 9}},
        {clock, "Timer off", {73, 17}},
        {clock, "Timer Off", {73, 17}},
        {clock, "Timer On", {73, 17}},
        {clock, "-00:03", time},
        {clock, "-88:48", time},
        {clock, "100:00", time},
        {clock, "-100:00", time},
        {clock, "-888:48", time},
        {clock, "--01:-05", time},
        {clock, "23:59", {57, 17}},
        {clock, "123:-04", {57, 17}},
        {alarm, "Hour", {33, 17}},
        {alarm, "Minute", {41, 17}},
        {alarm, "Set", {41, 17}},
        {alarm, "Unset", {41, 17}},
        {upright, "Playing", state},
        {upright, "Paused", state},
        {upright, "Idle", state},
        {upright, "32767 / 32767", played},
    };
    for (const Row& row : rows) {
        CAPTURE(std::string(row.text));
        const Ink ink = inkOf(row.font, row.text, row.box);
        CHECK(ink.count > 20);
        CHECK(ink.top >= 0);
        CHECK(ink.bottom < row.box.height);
        // A letter that was cut would end in the last column.
        const bool wider = measureText(row.font, row.text).width > row.box.width;
        CHECK(ink.right < (wider ? row.box.width - 1 : row.box.width));
    }
}
