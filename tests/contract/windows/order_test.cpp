#include "platform/desktop.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <string>
#include <vector>

using platform::compareInUsersLanguage;

TEST_CASE("names stand in the order of the user's language, whatever their case") {
    const std::vector<std::string> ordered = {"_new",       "apple", "Day",
                                              "\u00C9tude", "Fugue", "Zebra"};
    std::vector<std::string> names(ordered.rbegin(), ordered.rend());
    std::sort(names.begin(), names.end(), [](const std::string& first, const std::string& second) {
        return compareInUsersLanguage(first, second) < 0;
    });
    CHECK(names == ordered);
    CHECK(compareInUsersLanguage("[1]", "apple") < 0);
}

TEST_CASE("names that differ in case only are equal in the user's order") {
    CHECK(compareInUsersLanguage("\u00C9tude", "\u00E9tude") == 0);
    CHECK(compareInUsersLanguage("SONG", "song") == 0);
    CHECK(compareInUsersLanguage("", "") == 0);
    CHECK(compareInUsersLanguage("a", "b") < 0);
    CHECK(compareInUsersLanguage("b", "a") > 0);
    CHECK(compareInUsersLanguage("", "a") < 0);
}
