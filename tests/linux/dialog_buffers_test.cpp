#include "platform/linux/dialog_buffers.h"

#include <doctest/doctest.h>

#include <algorithm>
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

/// A buffer as the open dialog gets it, with something in it that must not stay.
struct Buffer {
    explicit Buffer(std::uint32_t size) : text(size, '#') {}

    bool write(const std::vector<std::string>& paths) {
        return writeSelection(paths, text.data(), static_cast<std::uint32_t>(text.size()), offsets);
    }
    /// What is there in front of the nuls that fill the rest; all of the rest has to be nuls.
    [[nodiscard]] std::string withoutFill() const {
        return text.substr(0, text.find_last_not_of('\0') + 1);
    }
    [[nodiscard]] bool untouched() const {
        return std::all_of(text.begin(), text.end(), [](char c) { return c == '#'; });
    }

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

TEST_CASE("one file is its full path and nuls to the end") {
    Buffer buffer(32);
    REQUIRE(buffer.write({"\\music\\a b.mp3"}));
    CHECK(buffer.withoutFill() == "\\music\\a b.mp3");
    CHECK(buffer.offsets.name == 7);
    CHECK(buffer.offsets.extension == 11);
}

TEST_CASE("several files are their folder and their bare names, each ended by a nul") {
    Buffer buffer(32);
    REQUIRE(buffer.write({"\\music\\b.mp3", "\\music\\a.wav"}));
    CHECK(buffer.withoutFill() == "\\music\0b.mp3\0a.wav"s);
    CHECK(buffer.offsets.name == 7);
}

TEST_CASE("several files in the root have a folder that ends in a separator") {
    Buffer buffer(32);
    REQUIRE(buffer.write({"\\a.mp3", "\\b.mp3"}));
    CHECK(buffer.withoutFill() == "\\\0a.mp3\0b.mp3"s);
}

TEST_CASE("a selection has to fit with its last nul") {
    Buffer exact(8);
    REQUIRE(exact.write({"\\a\\1234"}) == true);
    CHECK(exact.text == "\\a\\1234\0"s);
    Buffer small(7);
    CHECK_FALSE(small.write({"\\a\\1234"}));
    CHECK(small.untouched());
}

TEST_CASE("several files have to fit with two nuls behind the last name") {
    Buffer exact(8); // \a nul b nul c nul nul
    REQUIRE(exact.write({"\\a\\b", "\\a\\c"}));
    CHECK(exact.text == "\\a\0b\0c\0\0"s);
    Buffer small(7);
    CHECK_FALSE(small.write({"\\a\\b", "\\a\\c"}));
    CHECK(small.untouched());
}

TEST_CASE("nothing chosen, or files of different folders, is no selection") {
    Buffer buffer(64);
    CHECK_FALSE(buffer.write({}));
    CHECK_FALSE(buffer.write({"\\one\\a.mp3", "\\two\\b.mp3"}));
    CHECK_FALSE(buffer.write({"\\a.mp3", "\\one\\b.mp3"}));
    CHECK(buffer.untouched());
}

TEST_CASE("a text is written with its nul or not at all") {
    std::string buffer = "####";
    CHECK(platform::writeText("abc", buffer.data(), 4));
    CHECK(buffer == "abc\0"s);
    CHECK_FALSE(platform::writeText("wxyz", buffer.data(), 4));
    CHECK_FALSE(platform::writeText("", buffer.data(), 0));
    CHECK(buffer == "abc\0"s);
}
