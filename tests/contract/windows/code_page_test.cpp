#include "platform/windows/code_page.h"

#include <doctest/doctest.h>

#include <string>

using platform::fromCodePage;
using platform::inCodePage;

namespace {

constexpr unsigned western = 1252;
constexpr unsigned cyrillic = 1251;
constexpr unsigned japanese = 932;
constexpr unsigned utf8 = 65001;

const std::string umlauts = "\u00DCbung";
const std::string russian = "\u041F\u0435\u0441\u043D\u044F";
const std::string music = "\u97F3\u697D";
const std::string note = "\U0001F3B5";

} // namespace

TEST_CASE("a text file is in the code page of the process") {
    CHECK(inCodePage("plain", western) == "plain");
    CHECK(inCodePage(umlauts, western) == "\xDC"
                                          "bung");
    CHECK(inCodePage(russian, cyrillic) == "\xCF\xE5\xF1\xED\xFF");
    CHECK(inCodePage(music, japanese) == "\x89\xB9\x8A\x79");
    CHECK(inCodePage(umlauts, utf8) == umlauts);
    CHECK(inCodePage("", western).empty());
}

TEST_CASE("a text file of an earlier run is read in the code page of the process") {
    CHECK(fromCodePage("\xDC"
                       "bung",
                       western) == umlauts);
    CHECK(fromCodePage("\xCF\xE5\xF1\xED\xFF", cyrillic) == russian);
    CHECK(fromCodePage("\x89\xB9\x8A\x79", japanese) == music);
    CHECK(fromCodePage("", western).empty());
}

TEST_CASE("a name that the code page can't hold is saved all the same, and comes back") {
    for (const std::string& text : {russian, music, note, umlauts + russian}) {
        CHECK(inCodePage(text, western) == text);
        CHECK(fromCodePage(text, western) == text);
    }
}

TEST_CASE("a text whose bytes would be read otherwise is no text of the code page") {
    // In this code page these two letters are the bytes of another one.
    const std::string text = "\u00C3\u00A4";
    CHECK(fromCodePage(inCodePage(text, western), western) == text);
}
