#include "runtime/errors.h"
#include "runtime/text_lines.h"

#include <doctest/doctest.h>

TEST_CASE("the first line of a text ends before its line end") {
    CHECK(runtime::firstLine("one\r\ntwo\r\n") == "one");
    CHECK(runtime::firstLine("one\ntwo\n") == "one");
    CHECK(runtime::firstLine("one") == "one");
    CHECK(runtime::firstLine("\n").empty());
}

TEST_CASE("a text file with nothing in it has no first line") {
    CHECK_THROWS_AS(runtime::firstLine(""), runtime::NumberedError);
}
