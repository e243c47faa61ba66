#include "platform/files.h"
#include "platform/linux/paths.h"
#include "platform/linux/utf8.h"

#include <doctest/doctest.h>

#include <random>
#include <string>
#include <string_view>

using platform::fromHost;
using platform::leadingCharacterLength;
using platform::toHost;

namespace {

/// Bytes that matter to the codec, far more often than chance would bring them.
std::string randomHostPath(std::mt19937& random) {
    static const std::string telling = "/\\* \n\r\t\x01\x1F\x7F.a\xC3\xA9\xEF\x80\x81\xAF\x9C\x83"
                                       "\xBF\xED\xA0\xF0\x9F\x8E\xB5\xF4\x90\xC0\xE0\xFF\xFE";
    std::string path(std::uniform_int_distribution<std::size_t>(0, 24)(random), '\0');
    std::uniform_int_distribution<std::size_t> pick(0, telling.size() - 1);
    std::uniform_int_distribution<int> any(1, 255);
    for (char& c : path)
        c = random() % 4 == 0 ? static_cast<char>(any(random)) : telling[pick(random)];
    return path;
}

bool wellFormed(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = leadingCharacterLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

bool inPlayerForm(std::string_view path) {
    for (const char c : path)
        if ((c >= 0 && c < 0x20) || c == '/' || c == '*') return false;
    return wellFormed(path);
}

} // namespace

TEST_CASE("an ordinary host path only changes its separators") {
    CHECK(fromHost("/home/ann/Music/a b.mp3") == "\\home\\ann\\Music\\a b.mp3");
    CHECK(toHost("\\home\\ann\\Music\\a b.mp3") == "/home/ann/Music/a b.mp3");
    CHECK(fromHost("/") == "\\");
    CHECK(fromHost("").empty());
    CHECK(toHost("").empty());
    CHECK(fromHost("sub/na\xC3\xAFve \xF0\x9F\x8E\xB5.mp3") ==
          "sub\\na\xC3\xAFve \xF0\x9F\x8E\xB5.mp3");
}

TEST_CASE("a byte that the player's form has no room for becomes a private-use character") {
    CHECK(fromHost("a\\b") == "a\xEF\x81\x9C"
                              "b"); // U+F05C
    CHECK(fromHost("a*b") == "a\xEF\x80\xAA"
                             "b"); // U+F02A
    CHECK(fromHost("a\nb") == "a\xEF\x80\x8A"
                              "b"); // U+F00A
    CHECK(fromHost("a\xE9"
                   "b") == "a\xEF\x83\xA9"
                           "b"); // U+F0E9
}

TEST_CASE("a host name that holds a stand-in character of its own survives") {
    const std::string name = "a\xEF\x81\x9C"
                             "b"; // as a file server may have written it
    CHECK(fromHost(name) != fromHost("a\\b"));
    CHECK(toHost(fromHost(name)) == name);
}

TEST_CASE("private-use characters that stand for nothing pass as they are") {
    for (const std::string name :
         {"\xEF\x80\xA0", "\xEF\x81\x81", "\xEF\x84\x80", "\xEE\x80\x80"}) {
        CHECK(fromHost(name) == name);
        CHECK(toHost(name) == name);
    }
}

TEST_CASE("every single byte and every pair of bytes comes back from the player's form") {
    for (int first = 1; first < 256; ++first) {
        const std::string one(1, static_cast<char>(first));
        REQUIRE(toHost(fromHost(one)) == one);
        for (int second = 1; second < 256; ++second) {
            const std::string two = one + static_cast<char>(second);
            REQUIRE(toHost(fromHost(two)) == two);
            REQUIRE(inPlayerForm(fromHost(two)));
        }
    }
}

TEST_CASE("every three bytes that begin like a private-use character come back") {
    for (int second = 1; second < 256; ++second)
        for (int third = 1; third < 256; ++third) {
            const std::string name{'\xEF', static_cast<char>(second), static_cast<char>(third)};
            REQUIRE(toHost(fromHost(name)) == name);
            REQUIRE(inPlayerForm(fromHost(name)));
        }
}

TEST_CASE("any host path at all comes back byte for byte, and its form back from the host") {
    std::mt19937 random(20240229);
    for (int i = 0; i < 200000; ++i) {
        const std::string path = randomHostPath(random);
        const std::string form = fromHost(path);
        REQUIRE(toHost(form) == path);
        REQUIRE(inPlayerForm(form));
        REQUIRE(fromHost(toHost(form)) == form);
    }
}

TEST_CASE("a broken player path still turns into some host path") {
    CHECK(toHost("a\xFFz") == "a\xFFz");
    CHECK(toHost("a\xEF\x81") == "a\xEF\x81");
    CHECK(toHost("a/b") == "a/b");
}

TEST_CASE("only well-formed UTF-8 counts as a character") {
    CHECK(leadingCharacterLength("a") == 1);
    CHECK(leadingCharacterLength("\xC2\x80") == 2);
    CHECK(leadingCharacterLength("\xE0\xA0\x80") == 3);
    CHECK(leadingCharacterLength("\xED\x9F\xBF") == 3);
    CHECK(leadingCharacterLength("\xF4\x8F\xBF\xBF") == 4);
    CHECK(leadingCharacterLength("") == 0);
    CHECK(leadingCharacterLength("\x80") == 0);
    CHECK(leadingCharacterLength("\xC1\xBF") == 0);         // overlong
    CHECK(leadingCharacterLength("\xE0\x9F\xBF") == 0);     // overlong
    CHECK(leadingCharacterLength("\xED\xA0\x80") == 0);     // a surrogate
    CHECK(leadingCharacterLength("\xF0\x8F\xBF\xBF") == 0); // overlong
    CHECK(leadingCharacterLength("\xF4\x90\x80\x80") == 0); // past the last number
    CHECK(leadingCharacterLength("\xF5\x80\x80\x80") == 0);
    CHECK(leadingCharacterLength("\xE2\x82") == 0); // cut short
}

TEST_CASE("people are told the host's path") {
    CHECK(platform::pathForPeople("\\home\\me\\My \xEF\x80\xAA.mps") == "/home/me/My *.mps");
}
