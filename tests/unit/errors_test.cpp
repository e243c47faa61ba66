#include "runtime/errors.h"
#include "tests/runner/error_of.h"

#include <doctest/doctest.h>
#include <string>

using runtime::NumberedError;

TEST_CASE("a numbered error has its description, without a full stop") {
    struct Row {
        int number;
        const char* description;
    };
    const Row rows[] = {
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {7, "Out of memory"},
        {9, "Subscript out of range"},
        {11, "Division by zero"},
        {13, "Type mismatch"},
        {52, "Bad file name or number"},
        {53, "File not found"},
        {55, "File already open"},
        {57, "Device I/O error"},
        {61, "Disk full"},
        {62, "Input past end of file"},
        {67, "Too many files"},
        {70, "Permission denied"},
        {75, "Path/File access error"},
        {76, "Path not found"},
        {1000, "Application-defined or object-defined error"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.number);
        CHECK(std::string(NumberedError{row.number}.description()) == row.description);
    }
}

TEST_CASE("raising throws the error with its number") {
    CHECK(errorOf([] { runtime::raise(runtime::DiskFull); }) == 61);
}

TEST_CASE("a file operation's result raises unless it is 0") {
    CHECK(errorOf([] { runtime::raiseIfFailed(0); }) == 0);
    CHECK(errorOf([] { runtime::raiseIfFailed(53); }) == 53);
}
