#include "platform/simulated/world.h"
#include "runtime/errors.h"
#include "tests/runner/error_of.h"
#include "toolkit/text_file.h"

#include <cstddef>
#include <doctest/doctest.h>
#include <string>

using simulated::world;

TEST_CASE("a file that can't be opened leaves its number free") {
    simulated::reset();
    toolkit::TextFiles files;
    CHECK(errorOf([&] { files.OpenForInput(1, "C:\\none.txt"); }) == runtime::FileNotFound);
    CHECK(files.FreeFile() == 1);
    CHECK(errorOf([&] { files.Close(1); }) == runtime::BadFileNumber);
}

TEST_CASE("a number is open once, for what it was opened for, until it is closed") {
    simulated::reset();
    world.files.addFile("C:\\in.txt", "line\n");
    toolkit::TextFiles files;
    files.OpenForInput(1, "C:\\in.txt");
    files.OpenForOutput(2, "C:\\out.txt");
    CHECK(files.FreeFile() == 3);
    for (const int number : {1, 2}) {
        CAPTURE(number);
        const runtime::Int16 taken(number);
        CHECK(errorOf([&] { files.OpenForInput(taken, "C:\\in.txt"); }) ==
              runtime::FileAlreadyOpen);
        CHECK(errorOf([&] { files.OpenForOutput(taken, "C:\\other.txt"); }) ==
              runtime::FileAlreadyOpen);
    }
    CHECK(errorOf([&] { files.PrintLine(1, "x"); }) == runtime::BadFileNumber);
    CHECK(errorOf([&] { static_cast<void>(files.LineInput(2)); }) == runtime::BadFileNumber);
    CHECK(errorOf([&] { files.PrintLine(3, "x"); }) == runtime::BadFileNumber);
    CHECK(errorOf([&] { static_cast<void>(files.LineInput(3)); }) == runtime::BadFileNumber);
    CHECK(files.LineInput(1) == "line");
    files.PrintLine(2, "written");
    files.Close(1);
    files.Close(2);
    CHECK(world.files.text("C:\\out.txt") == "written\n");
    CHECK_FALSE(world.files.exists("C:\\other.txt"));
    for (const int number : {1, 2, 3})
        CHECK(errorOf([&] { files.Close(runtime::Int16(number)); }) == runtime::BadFileNumber);
}

TEST_CASE("of a file without an end no more than 64 MiB are taken in") {
    constexpr std::size_t most = std::size_t{64} * 1024 * 1024;
    simulated::reset();
    world.files.addFile("C:\\endless.txt", std::string(most + 1, 'x'));
    toolkit::TextFiles files;
    files.OpenForInput(1, "C:\\endless.txt");
    CHECK(files.LineInput(1).size() == most);
}
