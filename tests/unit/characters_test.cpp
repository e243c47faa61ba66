#include "runtime/characters.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>
#include <vector>

using runtime::characterCount;
using runtime::firstCharacters;

TEST_CASE("a character counts once, whatever its bytes") {
    CHECK(characterCount("") == 0);
    CHECK(characterCount("abc") == 3);
    CHECK(characterCount("\u0416\u00E9") == 2);
    CHECK(characterCount("\u97F3\u697D") == 2);
    CHECK(characterCount("\U0001F3B5x") == 2);
    CHECK(characterCount(std::string("a\0b", 3)) == 3);
}

TEST_CASE("a byte that belongs to no character counts as one") {
    CHECK(characterCount("\x80") == 1);
    CHECK(characterCount("\x80\x80\x80") == 3);
    CHECK(characterCount("\xFF\xFE") == 2);
    CHECK(characterCount("\xD0") == 1);
    CHECK(characterCount("\xD0x") == 2);
    CHECK(characterCount("\xE9\x9F") == 2);
    CHECK(characterCount("\xE9\x9Fx") == 3);
    CHECK(characterCount("\xF0\x9F\x8E") == 3);
    CHECK(characterCount("\xD0\xD0\x96") == 2);
}

TEST_CASE("a text is cut between characters") {
    CHECK(firstCharacters("a\u0416\u97F3\U0001F3B5z", 0).empty());
    CHECK(firstCharacters("a\u0416\u97F3\U0001F3B5z", 1) == "a");
    CHECK(firstCharacters("a\u0416\u97F3\U0001F3B5z", 2) == "a\u0416");
    CHECK(firstCharacters("a\u0416\u97F3\U0001F3B5z", 3) == "a\u0416\u97F3");
    CHECK(firstCharacters("a\u0416\u97F3\U0001F3B5z", 4) == "a\u0416\u97F3\U0001F3B5");
    CHECK(firstCharacters("a\u0416\u97F3\U0001F3B5z", 9) == "a\u0416\u97F3\U0001F3B5z");
    CHECK(firstCharacters("\x80x", 1) == "\x80");
    // Nothing behind the text is looked at.
    const std::vector<char> letters = {'a', 'b'};
    CHECK(firstCharacters({letters.data(), letters.size()}, 9) == "ab");
    CHECK(characterCount(std::string_view("\xE9\x9F\xB3").substr(0, 2)) == 2);
}

TEST_CASE("the first byte announces how many there are, to both ends of each length") {
    for (const char* const two : {"\xC0\x80", "\xDF\xBF"})
        CHECK(characterCount(two) == 1);
    for (const char* const three : {"\xE0\x80\x80", "\xEF\xBF\xBF"})
        CHECK(characterCount(three) == 1);
    for (const char* const four : {"\xF0\x80\x80\x80", "\xF7\xBF\xBF\xBF"})
        CHECK(characterCount(four) == 1);
    CHECK(characterCount("\xF8\x80\x80\x80") == 4);
    CHECK(characterCount("\xBF\x80") == 2);
}
