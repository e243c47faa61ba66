#include "platform/files.h"
#include "platform/media.h"
#include "platform/simulated/world.h"
#include "platform/system.h"
#include "platform/text.h"
#include "runtime/errors.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

using namespace simulated;

namespace {

std::uint32_t send(const std::string& command) {
    return platform::mciSendStringA(command.c_str(), nullptr, 0, 0);
}

std::string ask(const std::string& command) {
    char reply[64] = {};
    const bool answered = platform::mciSendStringA(command.c_str(), reply, 64, 0) == 0;
    return answered ? reply : "error";
}

} // namespace

TEST_CASE("a file fault is given once, to the next such call") {
    world.files.addFile("C:\\a.txt", "text");
    world.files.nextReadError = runtime::DeviceError;
    CHECK(platform::readFile("C:\\a.txt", 10).error == 57);
    CHECK(platform::readFile("C:\\a.txt", 10).text == "text");
    world.files.nextReplaceError = runtime::PermissionDenied;
    CHECK(platform::replaceFile("C:\\a.txt", "new") == 70);
    CHECK(world.files.text("C:\\a.txt") == "text");
    world.files.nextDeleteError = runtime::PathFileAccess;
    CHECK(platform::deleteFile("C:\\a.txt") == 75);
    CHECK(world.files.exists("C:\\a.txt"));
    world.files.nextListError = runtime::PathNotFound;
    CHECK(platform::listFolders("C:\\").error == 76);
    CHECK(platform::listFolders("C:\\").error == 0);
}

TEST_CASE("a full disk keeps the old contents") {
    world.files.addFile("C:\\a.txt", "old");
    world.files.diskFull = true;
    CHECK(platform::replaceFile("C:\\a.txt", "new") == 61);
    CHECK(world.files.text("C:\\a.txt") == "old");
}

TEST_CASE("files list in the order in which they came, hidden ones not") {
    world.files.addFile("C:\\M\\b.mp3");
    world.files.addFile("C:\\M\\a.MP3");
    world.files.addHiddenFile("C:\\M\\c.mp3");
    CHECK(platform::listFiles("C:\\M", ".mp3").names == std::vector<std::string>{"b.mp3", "a.MP3"});
}

TEST_CASE("a link shows its folder under a further path, unless that leads back") {
    world.files.addFile("C:\\M\\real\\1.mp3");
    world.files.addFolderLink("C:\\M\\link", "C:\\M\\real");
    world.files.addFolderLink("C:\\M\\real\\loop", "C:\\M");
    using Names = std::vector<std::string>;
    CHECK(platform::listFolders("C:\\M").names == Names{"C:\\M\\real", "C:\\M\\link"});
    CHECK(platform::listFiles("C:\\M\\link", ".mp3").names == Names{"1.mp3"});
    CHECK(platform::listFolders("C:\\M\\real").names.empty());
    CHECK(platform::listFolders("C:\\M\\link").names.empty());
    CHECK(platform::listFolders("C:\\").names == Names{"C:\\Orvan", "C:\\M"});
}

TEST_CASE("a path can be given a short name, or none") {
    world.media.addFile("C:\\M\\a song.mp3", 1000);
    world.files.setShortName("C:\\M\\a song.mp3", "C:\\M\\ASONG~1.MP3");
    char name[255] = {};
    CHECK(platform::GetShortPathNameA("C:\\M\\a song.mp3", name, 255) == 16);
    CHECK(std::string(name) == "C:\\M\\ASONG~1.MP3");
    CHECK(send("open C:\\M\\ASONG~1.MP3 type MpegVideo Alias mpeg") == 0);
    CHECK(world.media.openPath() == "C:\\M\\a song.mp3");
    world.files.setShortName("C:\\M\\a song.mp3", "");
    CHECK(platform::GetShortPathNameA("C:\\M\\a song.mp3", name, 255) == 0);
}

TEST_CASE("the position follows the virtual clock to the millisecond") {
    world.media.addFile("C:\\a.mp3", 5000);
    send("open C:\\a.mp3 type MpegVideo Alias mpeg");
    send("play mpeg from 1 to 5000");
    advance(1234);
    CHECK(ask("status mpeg position") == "1235");
    platform::Sleep(1000);
    CHECK(ask("status mpeg position") == "2235");
    advance(2764);
    CHECK(ask("status mpeg position") == "4999");
    CHECK(world.media.playing());
    advance(1);
    CHECK(ask("status mpeg position") == "5000");
    CHECK_FALSE(world.media.playing());
    advance(1000);
    CHECK(ask("status mpeg position") == "5000");
}

TEST_CASE("commands are kept byte for byte") {
    send("Stop mpeg   ");
    CHECK(world.media.commands() == std::vector<std::string>{"Stop mpeg   "});
    CHECK(world.media.trimmedCommands() == std::vector<std::string>{"Stop mpeg"});
    CHECK(log() == std::vector<std::string>{"send Stop mpeg"});
}

TEST_CASE("a scripted failure leaves the device as it was") {
    world.media.addFile("C:\\a.mp3", 5000);
    world.media.fail("open", 290);
    CHECK(send("open C:\\a.mp3 type MpegVideo Alias mpeg") == 290);
    CHECK_FALSE(world.media.open());
    CHECK(send("open C:\\a.mp3 type MpegVideo Alias mpeg") == 0);
    send("play mpeg");
    world.media.fail("STOP MPEG", 277, 2);
    CHECK(send("Stop mpeg") == 277);
    CHECK(send("Stop mpeg") == 277);
    CHECK(world.media.playing());
    CHECK(send("Stop mpeg") == 0);
    CHECK_FALSE(world.media.playing());
}

TEST_CASE("replies and positions can be put in the device's mouth") {
    world.media.addFile("C:\\a.mp3", 5000);
    send("open C:\\a.mp3 type MpegVideo Alias mpeg");
    world.media.answer("status mpeg length", "12 frames");
    CHECK(ask("status mpeg length") == "12 frames");
    CHECK(ask("status mpeg length") == "5000");
    world.media.reportPosition(4999);
    CHECK(ask("status mpeg position") == "4999");
    world.media.reportPosition(std::nullopt);
    CHECK(ask("status mpeg position") == "0");
}

TEST_CASE("wave devices answer as they are told, and calls are on record") {
    world.sound.devices = {{0, 5}, {0x80008000U, 0}};
    std::uint32_t volume = 7;
    CHECK(platform::waveOutGetNumDevs() == 2);
    CHECK(platform::waveOutGetVolume(0, &volume) == 5);
    CHECK(volume == 7);
    CHECK(platform::waveOutGetVolume(1, &volume) == 0);
    CHECK(volume == 0x80008000U);
    CHECK(platform::waveOutSetVolume(1, 0x7E907E90U) == 0);
    CHECK(world.sound.devices[1].volume == 0x7E907E90U);
    CHECK(world.sound.calls == std::vector<std::string>{"get 0", "get 1", "set 1 7E907E90"});
    world.sound.countForced = 40000;
    CHECK(platform::waveOutGetNumDevs() == 40000);
}

TEST_CASE("text has a size for each character and leaves blocks, or nothing when left out") {
    const platform::Font font;
    CHECK(platform::measureText(font, "Orvan") == platform::Size{30, 13});
    CHECK(platform::measureText(font, "\xC3\xA9t\xC3\xA9") == platform::Size{18, 13});
    platform::Picture picture(40, 13);
    const platform::Picture blank = picture;
    world.text.leaveOut = true;
    platform::drawText(picture, {0, 0, 40, 13}, {0, 0}, font, 0xFFFFFFFFU, "Orvan");
    CHECK(picture == blank);
    world.text.leaveOut = false;
    platform::drawText(picture, {6, 0, 12, 13}, {0, 0}, font, 0xFFFFFFFFU, "Orvan");
    CHECK(picture.row(6)[5] == 0xFF000000U);
    CHECK(picture.row(6)[6] == 0xFFFFFFFFU);
    CHECK(picture.row(6)[12] == 0xFF000000U);
    CHECK(world.text.shows("Orvan"));
    CHECK(world.text.drawn.size() == 2);
}
