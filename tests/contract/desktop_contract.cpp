#include "platform/desktop.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>
#include <vector>

using platform::compareInUsersLanguage;

TEST_CASE("names stand in the order of the user's language: signs, then letters of any case") {
    std::vector<std::string> names = {"Foxtrot", "[1]",   "alpha", "\xC3\x89tude",
                                      "echo",    "Bravo", "_new"};
    std::sort(names.begin(), names.end(), [](const std::string& first, const std::string& second) {
        return compareInUsersLanguage(first, second) < 0;
    });
    // Languages don't agree on the order of the signs themselves.
    std::sort(names.begin(), names.begin() + 2);
    CHECK(names == std::vector<std::string>{"[1]", "_new", "alpha", "Bravo", "echo", "\xC3\x89tude",
                                            "Foxtrot"});
}

TEST_CASE("texts that differ in case alone are equal in the user's language, no others are") {
    CHECK(compareInUsersLanguage("Music", "mUSIC") == 0);
    CHECK(compareInUsersLanguage("\xC3\x89tude", "\xC3\xA9TUDE") == 0);
    CHECK(compareInUsersLanguage("", "") == 0);
    CHECK(compareInUsersLanguage("etude", "\xC3\xA9tude") != 0);
    CHECK(compareInUsersLanguage("a", "ab") < 0);
    CHECK(compareInUsersLanguage("ab", "a") > 0);
}
