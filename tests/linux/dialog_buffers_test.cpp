#include "platform/linux/dialog_buffers.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using namespace std::string_literals;
using platform::dialogFilter;
using platform::NameFilter;
using platform::parseNameFilters;
using platform::SelectionOffsets;
using platform::writeSelection;

namespace {

/// A buffer of so many characters as the open dialog gets it.
struct Buffer {
    explicit Buffer(std::uint32_t characters) : size(characters), text(4 * characters, '#') {}

    bool write(const std::vector<std::string>& paths) {
        return writeSelection(paths, text.data(), size, offsets);
    }
    /// What was written; the rest of the buffer is as it was.
    [[nodiscard]] std::string written() const {
        return text.substr(0, text.find_last_not_of('#') + 1);
    }
    [[nodiscard]] bool untouched() const {
        return std::all_of(text.begin(), text.end(), [](char c) { return c == '#'; });
    }

    std::uint32_t size;
    std::string text;
    SelectionOffsets offsets;
};

} // namespace

TEST_CASE("the filter text is pairs of a label and its patterns") {
    CHECK(parseNameFilters("Supported audio\0*.MP3;*.wav;\0\0") ==
          std::vector<NameFilter>{{"Supported audio", {"*.MP3", "*.wav"}}});
    CHECK(parseNameFilters("One\0*.a\0Two\0*.b;;*.c\0\0") ==
          std::vector<NameFilter>{{"One", {"*.a"}}, {"Two", {"*.b", "*.c"}}});
    CHECK(parseNameFilters("Bare\0\0\0") == std::vector<NameFilter>{{"Bare", {}}});
    CHECK(parseNameFilters("\0").empty());
    CHECK(parseNameFilters(nullptr).empty());
}

TEST_CASE("the dialog's patterns match names in any case") {
    CHECK(dialogFilter({"Supported audio", {"*.MP3", "*.wav"}}) ==
          "Supported audio (*.[mM][pP]3 *.[wW][aA][vV])");
    CHECK(dialogFilter({"All", {"*.*"}}) == "All (*)");
    CHECK(dialogFilter({"None", {}}) == "None (*)");
}

TEST_CASE("one file is its full path and a nul") {
    Buffer buffer(32);
    REQUIRE(buffer.write({"\\music\\a b.mp3"}));
    CHECK(buffer.written() == "\\music\\a b.mp3\0"s);
    CHECK(buffer.offsets.name == 7);
    CHECK(buffer.offsets.extension == 11);
}

TEST_CASE(
    "several files are their folder and their bare names, each with a nul, and one nul more") {
    Buffer buffer(32);
    REQUIRE(buffer.write({"\\music\\b.mp3", "\\music\\a.wav"}));
    CHECK(buffer.written() == "\\music\0b.mp3\0a.wav\0\0"s);
    CHECK(buffer.offsets.name == 7);
}

TEST_CASE("several files in the root have a folder that ends in a separator") {
    Buffer buffer(32);
    REQUIRE(buffer.write({"\\a.mp3", "\\b.mp3"}));
    CHECK(buffer.written() == "\\\0a.mp3\0b.mp3\0\0"s);
}

TEST_CASE("a selection has to fit with its last nul") {
    Buffer exact(8);
    REQUIRE(exact.write({"\\a\\1234"}) == true);
    CHECK(exact.written() == "\\a\\1234\0"s);
    Buffer small(7);
    CHECK_FALSE(small.write({"\\a\\1234"}));
    CHECK(small.untouched());
}

TEST_CASE("several files have to fit with two nuls behind the last name") {
    Buffer exact(8); // \a nul b nul c nul nul
    REQUIRE(exact.write({"\\a\\b", "\\a\\c"}));
    CHECK(exact.written() == "\\a\0b\0c\0\0"s);
    Buffer small(7);
    CHECK_FALSE(small.write({"\\a\\b", "\\a\\c"}));
    CHECK(small.untouched());
}

TEST_CASE("a selection and its offsets are counted in characters, whatever their bytes") {
    for (const std::string name :
         {"abc", "\xD0\xB6\xD1\x83\xD0\xBA", "\xE9\x9F\xB3\xE6\xA5\xBD\xE8\xAA\x9E",
          "\xF0\x9F\x8E\xB5\xF0\x9F\x8E\xB6\xF0\x9F\x8E\xBC"}) {
        const std::string path = '\\' + name + '\\' + name + ".mp3";
        Buffer exact(13);
        REQUIRE(exact.write({path}));
        CHECK(exact.written() == path + '\0');
        CHECK(exact.offsets.name == 5);
        CHECK(exact.offsets.extension == 9);
        Buffer small(12);
        CHECK_FALSE(small.write({path}));
        CHECK(small.untouched());
        Buffer several(4 + 1 + 3 + 1 + 4 + 1 + 1);
        REQUIRE(several.write({'\\' + name + '\\' + name, '\\' + name + '\\' + name + 'x'}));
        CHECK(several.offsets.name == 5);
    }
}

TEST_CASE("nothing chosen, or files of different folders, is no selection") {
    Buffer buffer(64);
    CHECK_FALSE(buffer.write({}));
    CHECK_FALSE(buffer.write({"\\one\\a.mp3", "\\two\\b.mp3"}));
    CHECK_FALSE(buffer.write({"\\a.mp3", "\\one\\b.mp3"}));
    CHECK(buffer.untouched());
}

TEST_CASE("a text is written with its nul or not at all") {
    std::string buffer(16, '#');
    CHECK(platform::writeText("abc", buffer.data(), 4));
    CHECK(buffer == "abc\0"s + std::string(12, '#'));
    CHECK_FALSE(platform::writeText("wxyz", buffer.data(), 4));
    CHECK_FALSE(platform::writeText("", buffer.data(), 0));
    CHECK(buffer == "abc\0"s + std::string(12, '#'));
    CHECK(
        platform::writeText("\xF0\x9F\x8E\xB5\xF0\x9F\x8E\xB5\xF0\x9F\x8E\xB5", buffer.data(), 4));
}
