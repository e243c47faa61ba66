#include "tests/behaviour/player.h"

#include <cstddef>
#include <string>
#include <vector>

using behaviour::fatalMessageOf;
using behaviour::Player;
using simulated::world;

namespace {

const std::string file = "C:\\Orvan\\MyPlayerSettings.mps";

constexpr const char* noNumber = "x";
constexpr const char* tooLarge = "1E400";

/// The fatal message of a start with a line that is right but for two fields.
std::string fatalStartWith(std::size_t first, const std::string& text, std::size_t second,
                           const std::string& otherText) {
    std::vector<std::string> fields = {"3", "0", "0", "",  "120", "90",  "0",
                                       "0", "",  "0", "0", "120", "1320"};
    fields.at(first) = text;
    fields.at(second) = otherText;
    std::string line;
    for (const std::string& field : fields)
        line += field + "*";
    Player player;
    world.files.addFile(file, line + "\n");
    return fatalMessageOf([&] { player.start(); }).value_or("none");
}

bool starts(const std::string& message, const std::string& start) {
    return message.starts_with("Run-time error " + start);
}

} // namespace

TEST_CASE("of two fields that can't be taken the error is that of the one that is taken first") {
    const std::vector<std::size_t> inTheirOrder = {1, 2, 4, 5, 11, 12, 6, 7, 9, 10};
    for (std::size_t i = 1; i < inTheirOrder.size(); ++i) {
        const std::size_t first = inTheirOrder[i - 1];
        const std::size_t second = inTheirOrder[i];
        CAPTURE(first);
        CAPTURE(second);
        CHECK(starts(fatalStartWith(first, noNumber, second, tooLarge), "13"));
        CHECK(starts(fatalStartWith(first, tooLarge, second, noNumber), "6"));
    }
}

TEST_CASE("a track list that lacks its end is met behind the volume and before the places") {
    const std::string noEnd = "C:\\a.mp3";
    CHECK(starts(fatalStartWith(2, noNumber, 3, noEnd), "13"));
    CHECK(starts(fatalStartWith(3, noEnd, 4, noNumber), "6"));
}
