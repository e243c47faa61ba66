#include "runtime/number_text.h"
#include "tests/runner/error_of.h"

#include <cmath>
#include <doctest/doctest.h>
#include <limits>
#include <string>
#include <string_view>

using runtime::leadingNumber;
using runtime::numberOf;
using runtime::textOf;
using runtime::twoDigits;

TEST_CASE("whole numbers read as plain decimals") {
    CHECK(textOf(runtime::Int16(-32768)) == "-32768");
    CHECK(textOf(runtime::Int16(0)) == "0");
    CHECK(textOf(runtime::Int32(1073741824)) == "1073741824");
    CHECK(textOf(runtime::Int32(-1)) == "-1");
}

TEST_CASE("reals read with up to 15 digits, without zeros at the end") {
    struct Row {
        double value;
        const char* text;
    };
    const Row rows[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {1.0, "1"},
        {-2.5, "-2.5"},
        {0.5, "0.5"},
        {-0.05, "-0.05"},
        {100.0, "100"},
        {2400.0, "2400"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3.0, "0.333333333333333"},
        {2.0 / 3.0, "0.666666666666667"},
        {123456789012345.0, "123456789012345"},
        {999999999999999.0, "999999999999999"},
        {999999999999999.9, "1E+15"},
        {1e15, "1E+15"},
        {1.5e20, "1.5E+20"},
        {-1e100, "-1E+100"},
        {1e300, "1E+300"},
        {0.0001, "0.0001"},
        {0.00012345, "0.00012345"},
        {0.00001, "1E-05"},
        {-1.5e-7, "-1.5E-07"},
        {9.9999999999999999e-5, "0.0001"},
        {1e-300, "1E-300"},
        {99.99999999999999, "100"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.value);
        CHECK(textOf(row.value, '.') == row.text);
    }
}

TEST_CASE("singles read with up to 7 digits") {
    struct Row {
        float value;
        const char* text;
    };
    const Row rows[] = {
        {0.1F, "0.1"},
        {2400.1875F, "2400.188"},
        {1234567.0F, "1234567"},
        {12345678.0F, "1.234568E+07"},
        {1.0F / 3.0F, "0.3333333"},
        {-15.0F, "-15"},
        {1e-5F, "1E-05"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.value);
        CHECK(textOf(row.value, '.') == row.text);
    }
}

TEST_CASE("texts of reals carry the locale's decimal sign") {
    CHECK(textOf(2.5, ',') == "2,5");
    CHECK(textOf(2.5F, ',') == "2,5");
    CHECK(textOf(1.5e20, ',') == "1,5E+20");
    CHECK(textOf(3.0, ',') == "3");
}

TEST_CASE("a value that is no finite number has no text") {
    CHECK(errorOf([] { return textOf(std::nan(""), '.'); }) == runtime::Overflow);
    CHECK(errorOf([] { return textOf(HUGE_VAL, '.'); }) == runtime::Overflow);
    CHECK(errorOf([] { return textOf(-HUGE_VALF, '.'); }) == runtime::Overflow);
}

TEST_CASE("a whole text reads as a number") {
    struct Row {
        const char* text;
        double value;
    };
    const Row rows[] = {
        {"0", 0},
        {"12", 12},
        {"-1", -1},
        {"+7", 7},
        {" 12 ", 12},
        {"\t3\t", 3},
        {"2.5", 2.5},
        {".5", 0.5},
        {"5.", 5},
        {"-.25", -0.25},
        {"1e3", 1000},
        {"1E+3", 1000},
        {"25E-1", 2.5},
        {"00012", 12},
        {"1E-400", 0},
        {"0e999", 0},
        {"0.0001e3", 0.1},
        {"1E-99999999999999999999", 0},
        {"10000000000000000000000", 1e22},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        CHECK(numberOf(row.text, '.') == row.value);
    }
}

TEST_CASE("under a comma the comma is the decimal sign, and the point is none") {
    CHECK(numberOf("2,5", ',') == 2.5);
    CHECK(numberOf(",5", ',') == 0.5);
    CHECK(errorOf([] { return numberOf("2.5", ','); }) == runtime::TypeMismatch);
    CHECK(errorOf([] { return numberOf("2,5", '.'); }) == runtime::TypeMismatch);
}

TEST_CASE("a text that is no number raises error 13") {
    for (const char* text :
         {"",    " ",  "x",   "-",    "+",     ".",  "-.",   "12x", "x12", "1 2",  "--1",
          "+-1", "1e", "1e+", "1..2", "1.2.3", "e5", "0x10", "inf", "nan", "1e5.0"}) {
        CAPTURE(text);
        CHECK(errorOf([&] { return numberOf(text, '.'); }) == runtime::TypeMismatch);
    }
}

TEST_CASE("a number too large for a real raises error 6") {
    for (const char* text :
         {"1e309", "-1e309", "10.0e400", "0.5e999", "1E99999999999999999999", "0.001e320"}) {
        CAPTURE(text);
        CHECK(errorOf([&] { return numberOf(text, '.'); }) == runtime::Overflow);
    }
    CHECK(errorOf([] { return numberOf(std::string(400, '9'), '.'); }) == runtime::Overflow);
    // Its digits outweigh its exponent.
    const std::string digits(701, '7');
    CHECK(errorOf([&] { return numberOf(digits + "e-300", '.'); }) == runtime::Overflow);
}

TEST_CASE("a number too small for a real reads as 0") {
    CHECK(numberOf("10.0e-400", '.') == 0.0);
    CHECK(numberOf("0." + std::string(400, '0') + "1", '.') == 0.0);
    CHECK(numberOf("-1e-999", '.') == 0.0);
    CHECK(numberOf("0." + std::string(700, '0') + "1e300", '.') == 0.0);
}

TEST_CASE("a text reads as the number that it starts with") {
    struct Row {
        const char* text;
        double value;
    };
    const Row rows[] = {
        {"5000", 5000}, {"  42 apples", 42}, {"12.5x", 12.5}, {"12,5", 12},   {"-7-", -7},
        {"1e2z", 100},  {"1e", 1},           {"1e+", 1},      {"1.2.3", 1.2}, {"+3", 3},
        {"", 0},        {"apples", 0},       {"-", 0},        {".", 0},       {"- 5", 0},
        {"3*", 3},      {".5.", 0.5},        {"5.e2", 500},   {"\t9", 9},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        CHECK(leadingNumber(row.text) == row.value);
    }
}

TEST_CASE("the pattern of two digits rounds and pads") {
    struct Row {
        double value;
        const char* text;
    };
    const Row rows[] = {
        {0, "00"},
        {5, "05"},
        {59, "59"},
        {99, "99"},
        {100, "100"},
        {12345, "12345"},
        {-1, "-01"},
        {-12, "-12"},
        {-123, "-123"},
        {0.4, "00"},
        {0.5, "00"},
        {1.5, "02"},
        {2.5, "02"},
        {98.5, "98"},
        {99.5, "100"},
        {-0.4, "00"},
        {-0.5, "00"},
        {-1.5, "-02"},
        {59.6, "60"},
        {1e18, "1000000000000000000"},
        {1e20, "100000000000000000000"},
        {-1e20, "-100000000000000000000"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.value);
        CHECK(twoDigits(row.value) == row.text);
    }
    CHECK(twoDigits(1e308).size() == 309);
}

TEST_CASE("the pattern of two digits has no text for what is no number") {
    CHECK(errorOf([] { return twoDigits(std::nan("")); }) == runtime::Overflow);
    CHECK(errorOf([] { return twoDigits(HUGE_VAL); }) == runtime::Overflow);
}

TEST_CASE("a number ends with its text, whatever lies behind that in memory") {
    for (const char* const longer : {"12.5", "12E5", "12e-5", "1234"})
        CHECK(numberOf(std::string_view(longer).substr(0, 2), '.') == 12.0);
}
