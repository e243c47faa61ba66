#include "platform/simulated/world.h"
#include "toolkit/cursor.h"
#include "toolkit/form.h"
#include "toolkit/image.h"
#include "toolkit/picture_box.h"
#include "toolkit/text_box.h"

#include <doctest/doctest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using simulated::world;
using toolkit::TextBox;

namespace {

/// A letter of this font is 6 by 14 pixels on the simulated platform.
const platform::Font font{"Tahoma", 9, true, false};
constexpr std::int32_t letterWidth = 6;
constexpr std::int32_t rowHeight = 14;

toolkit::FormData formOfAnySize() {
    toolkit::FormData data;
    data.bounds = {0, 0, 3000, 3000};
    return data;
}

/// A text box of 106 pixels, which leave room for 16 letters, on a form of its own.
struct Box {
    explicit Box(const std::string& text, std::int32_t width = 106, std::int32_t left = 0) {
        simulated::reset();
        REQUIRE(platform::measureText(font, "x") == platform::Size{letterWidth, rowHeight});
        box.place(form, "Text1",
                  {static_cast<toolkit::Twips>(left) * 15, 0,
                   static_cast<toolkit::Twips>(width) * 15, 3000},
                  true, "");
        box.setText(text, font, toolkit::Blue, toolkit::White);
        form.add(box);
    }

    std::vector<simulated::Text::Drawn> rows() {
        world.text.drawn.clear();
        form.Show();
        simulated::picture(form.hWnd());
        return world.text.drawn;
    }

    TextBox box;
    toolkit::Form form{formOfAnySize()};
};

std::vector<std::string> textsOf(const std::vector<simulated::Text::Drawn>& rows) {
    std::vector<std::string> texts;
    for (const auto& row : rows)
        texts.push_back(row.text);
    return texts;
}

} // namespace

TEST_CASE("a text box folds a line at the last blank that fits") {
    Box box("one two three four five ");
    CHECK(textsOf(box.rows()) == std::vector<std::string>{"one two three", "four five"});
}

TEST_CASE("a line that fits exactly is not folded, blanks behind it don't count") {
    Box box("123456 890123456   \r\n123456 8901234567");
    CHECK(textsOf(box.rows()) ==
          std::vector<std::string>{"123456 890123456", "123456", "8901234567"});
    // To the very pixel: six letters and the margins.
    Box narrow("12 456", 6 * letterWidth + 6);
    CHECK(textsOf(narrow.rows()) == std::vector<std::string>{"12 456"});
    Box narrower("12 456", 6 * letterWidth + 5);
    CHECK(textsOf(narrower.rows()) == std::vector<std::string>{"12", "456"});
    Box further("12 456", 6 * letterWidth + 5, 40);
    CHECK(textsOf(further.rows()) == std::vector<std::string>{"12", "456"});
}

TEST_CASE("a word wider than the text box has a row of its own") {
    Box box("a 12345678901234567890 b");
    CHECK(textsOf(box.rows()) == std::vector<std::string>{"a", "12345678901234567890", "b"});
}

TEST_CASE("an empty line of a text box takes its row") {
    Box box("a\r\n\r\nb\r\n");
    const auto rows = box.rows();
    REQUIRE(textsOf(rows) == std::vector<std::string>{"a", "b"});
    CHECK(rows[1].origin.y - rows[0].origin.y == 2 * rowHeight);
}

TEST_CASE("a text box centres its lines") {
    Box box("ab\r\nabcdef");
    const auto rows = box.rows();
    REQUIRE(rows.size() == 2);
    for (const auto& row : rows) {
        const auto length = static_cast<std::int32_t>(row.text.size());
        CHECK(row.origin.x == (106 - length * letterWidth) / 2);
    }
}

TEST_CASE("a picture box crops what it holds, and the pointer doesn't reach it") {
    Box box("");
    toolkit::PictureBox viewport;
    TextBox inside;
    int presses = 0;
    viewport.place(box.form, "Picture1", {1800, 1500, 300, 300}, true, "");
    viewport.setBackColour(toolkit::Yellow);
    inside.place(box.form, "Text2", {-150, 150, 3000, 3000}, true, "");
    inside.setText("", font, toolkit::Blue, toolkit::Red);
    viewport.hold(inside);
    box.form.add(viewport);
    viewport.MouseDown = [&](const auto&) { ++presses; };
    inside.MouseDown = [](const auto&) { FAIL("the pointer reached the held control"); };
    box.form.Show();
    const platform::Picture picture = simulated::picture(box.form.hWnd());
    CHECK(picture.row(105)[125] == toolkit::pixelOf(toolkit::Yellow));
    CHECK(picture.row(110)[120] == toolkit::pixelOf(toolkit::Red));
    CHECK(picture.row(119)[139] == toolkit::pixelOf(toolkit::Red));
    CHECK(picture.row(119)[140] == toolkit::pixelOf(toolkit::Black));
    CHECK(picture.row(120)[139] == toolkit::pixelOf(toolkit::Black));
    CHECK(picture.row(99)[130] == toolkit::pixelOf(toolkit::Black));
    const platform::Rect area = viewport.area();
    simulated::click(box.form.hWnd(), area.left + 12, area.top + 15);
    CHECK(presses == 1);
}

TEST_CASE("an image with alpha lets its form shine through") {
    simulated::reset();
    toolkit::FormData data = formOfAnySize();
    data.backColour = toolkit::White;
    toolkit::Image image;
    toolkit::Form form{data};
    platform::Picture picture(4, 1);
    picture.pixels = {0xFF0000FFU, 0x000000FFU, 0x800000FFU, 0xFFFFFFFFU};
    image.place(form, "Image1", {0, 0, 60, 15}, true, "");
    image.setPicture(picture);
    form.add(image);
    form.Show();
    const platform::Picture shown = simulated::picture(form.hWnd());
    CHECK(shown.row(0)[0] == 0xFF0000FFU);
    CHECK(shown.row(0)[1] == 0xFFFFFFFFU);
    CHECK(shown.row(0)[2] == 0xFF7F7FFFU);
    CHECK(shown.row(0)[3] == 0xFFFFFFFFU);
}

TEST_CASE("anything but a pointer file decodes to no pointer") {
    std::vector<std::byte> file(766);
    CHECK(toolkit::decodeCursor(file).picture.empty());
    CHECK(toolkit::decodeCursor({}).picture.empty());
}

TEST_CASE("a pointer file is taken apart pixel by pixel, its lowest row first") {
    std::vector<std::byte> file(766);
    const auto put = [&](std::size_t at, unsigned value) {
        file.at(at) = static_cast<std::byte>(value);
    };
    put(2, 2);  // a pointer
    put(10, 5); // where it points
    put(12, 9);
    put(14, 231); // what belongs to the file's next number
    put(18, 22);
    put(26, 32);
    put(36, 4);
    for (unsigned colour = 0; colour < 16; ++colour)
        for (unsigned part = 0; part < 3; ++part)
            put(62 + 4 * colour + part, 10 * colour + part);
    const auto colourAt = [](unsigned index) { return (index * 7 + index / 32) % 16; };
    for (unsigned index = 0; index < 1024; index += 2)
        put(126 + index / 2, colourAt(index) << 4U | colourAt(index + 1));
    put(638, 0x81); // the mask's first eight pixels: two that shine through

    const platform::PointerShape shape = toolkit::decodeCursor(file);
    CHECK(shape.hotSpot == platform::Point{5, 9});
    REQUIRE(shape.picture.width == 32);
    REQUIRE(shape.picture.height == 32);
    int wrong = 0;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x) {
            const auto index = static_cast<unsigned>((31 - y) * 32 + x);
            const unsigned blue = 10 * colourAt(index);
            const bool through = index == 0 || index == 7;
            const platform::Pixel wanted =
                through ? 0 : 0xFF000000U | (blue + 2) << 16U | (blue + 1) << 8U | blue;
            wrong += shape.picture.row(y)[x] == wanted ? 0 : 1;
        }
    CHECK(wrong == 0);
}
