#include "runtime/characters.h"
#include "tests/behaviour/player.h"

#include "platform/system.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

using behaviour::commandsSent;
using behaviour::Player;
using simulated::world;

namespace {

using Commands = std::vector<std::string>;

const std::string track = "C:\\Music\\a.mp3";

/// The engine of a started player, with one file of 200 seconds that it may open.
struct EngineAlone {
    EngineAlone() {
        player.start();
        world.media.addFile(track, 200'000);
        engine().FileName(77, track);
    }
    Mpeg& engine() { return player.engine(); }
    Player player;
};

std::string shortPathOf(const std::string& path) {
    char buffer[256] = {};
    const std::uint32_t length = platform::GetShortPathNameA(path.c_str(), buffer, sizeof buffer);
    return {buffer, length};
}

} // namespace

TEST_CASE("the engine is idle when it is made") {
    Player player;
    player.start();
    CHECK(player.status() == "Idle");
}

TEST_CASE("opening a file names it by its short path, the window and the child style") {
    Player player;
    player.start();
    world.media.addFile("C:\\My Music\\a long name.mp3", 1000);
    player.engine().FileName(4711, "C:\\My Music\\a long name.mp3");
    const std::string command = world.media.commands().back();
    const std::string expected = "open " + shortPathOf("C:\\My Music\\a long name.mp3") +
                                 " type MpegVideo Alias mpeg parent 4711 Style 1073741824";
    CHECK(command == expected + std::string(255 - expected.size(), ' '));
    CHECK(player.status() == "Idle");
}

TEST_CASE("a path that can't be shortened is opened with two blanks and fails in silence") {
    Player player;
    player.start();
    player.engine().FileName(1, "C:\\gone.mp3");
    CHECK(commandsSent() == Commands{"open  type MpegVideo Alias mpeg parent 1 Style 1073741824"});
    CHECK(player.status() == "Idle");
    CHECK(world.messages.shown.empty());
}

TEST_CASE("an open command longer than 255 characters is cut, and fails in silence") {
    Player player;
    player.start();
    const std::string longName = "C:\\" + std::string(227, 'A');
    world.media.addFile(track, 1000);
    world.files.setShortName(track, longName);
    player.engine().FileName(1, track);
    const std::string command = world.media.commands().back();
    CHECK(command == "open " + longName + " type MpegVideo Alia");
    CHECK(command.size() == 255);
    CHECK(player.status() == "Idle");
    CHECK_FALSE(world.media.open());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("an open command is padded and cut by characters, in any script") {
    for (const std::string letter : {"\u0416", "\u97F3", "\U0001F3B5"}) {
        CAPTURE(letter);
        for (const std::size_t length : {std::size_t{20}, std::size_t{227}}) {
            Player player;
            player.start();
            std::string longName = "C:\\";
            for (std::size_t n = 0; n < length; ++n)
                longName += letter;
            world.media.addFile(track, 1000);
            world.files.setShortName(track, longName);
            player.engine().FileName(1, track);
            const std::string command = world.media.commands().back();
            CHECK(command.starts_with("open " + longName + " type MpegVideo Alia"));
            CHECK(runtime::characterCount(command) == 255);
        }
    }
}

TEST_CASE("a short path of 255 characters or more does not fit, and nothing opens") {
    Player player;
    player.start();
    world.media.addFile(track, 1000);
    world.files.setShortName(track, "C:\\" + std::string(252, 'A'));
    commandsSent();
    player.engine().FileName(1, track);
    CHECK(commandsSent() == Commands{"open"});
    CHECK(player.status() == "Idle");
    CHECK_FALSE(world.media.open());
}

TEST_CASE("playing asks for the length and plays from 1 to it") {
    EngineAlone alone;
    world.media.forgetCommands();
    alone.engine().PlayM();
    const Commands raw = world.media.commands();
    CHECK(commandsSent() == Commands{"set mpeg time format frames", "status mpeg length",
                                     "play mpeg from 1 to 200000"});
    CHECK(raw[0] == "set mpeg time format frames");
    CHECK(raw[1] == "status mpeg length");
    CHECK(raw[2].size() == 255);
    CHECK(alone.engine().Status() == "Playing");
}

TEST_CASE("playing with nothing open asks to play up to -1 and stays idle") {
    Player player;
    player.start();
    player.engine().PlayM();
    CHECK(commandsSent() ==
          Commands{"set mpeg time format frames", "status mpeg length", "play mpeg from 1 to -1"});
    CHECK(player.status() == "Idle");
}

TEST_CASE("pausing, resuming, stopping and closing send their words as they stand") {
    EngineAlone alone;
    alone.engine().PlayM();
    world.media.forgetCommands();
    alone.engine().PauseM();
    CHECK(alone.engine().Status() == "Paused");
    alone.engine().RetourDeLaPause();
    CHECK(alone.engine().Status() == "Paused");
    alone.engine().StopM();
    CHECK(alone.engine().Status() == "Idle");
    CHECK(world.media.commands() ==
          Commands{"Pause mpeg", "Resume mpeg", "Stop mpeg", "Close mpeg"});
}

TEST_CASE("playing after a pause resumes and sends no play command") {
    EngineAlone alone;
    alone.engine().PlayM();
    alone.engine().PauseM();
    world.media.forgetCommands();
    alone.engine().PlayM();
    CHECK(commandsSent() == Commands{"Resume mpeg"});
    CHECK(alone.engine().Status() == "Playing");
}

TEST_CASE("playing after a pause counts as playing even if the resume failed") {
    EngineAlone alone;
    alone.engine().PlayM();
    alone.engine().PauseM();
    world.media.fail("Resume");
    alone.engine().PlayM();
    CHECK(alone.engine().Status() == "Playing");
}

TEST_CASE("stopping while paused closes the device and leaves the engine idle") {
    EngineAlone alone;
    alone.engine().PlayM();
    alone.engine().PauseM();
    alone.engine().StopM();
    CHECK(alone.engine().Status() == "Idle");
    CHECK_FALSE(world.media.open());
}

TEST_CASE("a stop that fails sends no close and leaves the status as it was") {
    EngineAlone alone;
    alone.engine().PlayM();
    world.media.forgetCommands();
    world.media.fail("Stop");
    alone.engine().StopM();
    CHECK(commandsSent() == Commands{"Stop mpeg"});
    CHECK(alone.engine().Status() == "Playing");
}

TEST_CASE("a command that fails leaves the status as it was, and nothing is shown") {
    EngineAlone alone;
    alone.engine().PlayM();
    SUBCASE("pause") {
        world.media.fail("Pause");
        alone.engine().PauseM();
    }
    SUBCASE("close") {
        world.media.fail("Close");
        alone.engine().FermerMp3();
    }
    SUBCASE("open") {
        world.media.fail("open");
        alone.engine().FileName(1, track);
    }
    CHECK(alone.engine().Status() == "Playing");
    CHECK(world.messages.shown.empty());
}

TEST_CASE("a file that opens leaves the engine idle, whatever the device was doing") {
    EngineAlone alone;
    alone.engine().PlayM();
    SUBCASE("playing") {}
    SUBCASE("paused") { alone.engine().PauseM(); }
    world.media.answer("open", "");
    alone.engine().FileName(1, track);
    CHECK(alone.engine().Status() == "Idle");
}

TEST_CASE("a play that fails leaves the engine idle") {
    EngineAlone alone;
    world.media.fail("play");
    alone.engine().PlayM();
    CHECK(alone.engine().Status() == "Idle");
}

TEST_CASE("seeking sends the position, then plays") {
    EngineAlone alone;
    alone.engine().PlayM();
    world.media.forgetCommands();
    alone.engine().MoveMPEG(56517);
    CHECK(world.media.commands() == Commands{"seek mpeg to 56517", "Play mpeg"});
}

TEST_CASE("a refused seek plays on all the same") {
    EngineAlone alone;
    alone.engine().PlayM();
    world.media.forgetCommands();
    alone.engine().MoveMPEG(-20);
    CHECK(commandsSent() == Commands{"seek mpeg to -20", "Play mpeg"});
    CHECK(world.media.playing());
}

TEST_CASE("a seek while paused starts the sound and the status still reads paused") {
    EngineAlone alone;
    alone.engine().PlayM();
    alone.engine().PauseM();
    alone.engine().MoveMPEG(5000);
    CHECK(world.media.playing());
    CHECK(alone.engine().Status() == "Paused");
}

TEST_CASE("length and position of a closed device are -1") {
    Player player;
    player.start();
    CHECK(player.engine().Duration() == -1);
    CHECK(player.engine().CurrentPosition() == -1);
}

TEST_CASE("length and position of a device that was closed after play are -1, not what they were") {
    EngineAlone alone;
    alone.engine().PlayM();
    simulated::advance(5000);
    REQUIRE(alone.engine().Duration() == 200'000);
    REQUIRE(alone.engine().CurrentPosition() > 1);
    alone.engine().StopM();
    CHECK(alone.engine().Duration() == -1);
    CHECK(alone.engine().CurrentPosition() == -1);
}

TEST_CASE("a length is asked for even if the time format was refused") {
    EngineAlone alone;
    world.media.fail("set mpeg time format");
    CHECK(alone.engine().Duration() == 200000);
}

TEST_CASE("a reply is read from its start up to the first character that is no number") {
    EngineAlone alone;
    const std::pair<const char*, int> replies[] = {
        {"1234", 1234}, {"1234 frames", 1234}, {"  77", 77}, {"12.5", 12}, {"13.5", 14}, {"-3", -3},
        {"", 0},        {"none", 0},           {"1e3", 1000}};
    for (const auto& [reply, value] : replies) {
        CAPTURE(reply);
        world.media.answer("status mpeg position", reply);
        CHECK(alone.engine().CurrentPosition() == value);
    }
}

TEST_CASE("the position is asked for without a word about the format") {
    EngineAlone alone;
    world.media.forgetCommands();
    alone.engine().CurrentPosition();
    CHECK(commandsSent() == Commands{"status mpeg position"});
}

TEST_CASE("without a wave device a message says so and the player carries on") {
    Player player;
    world.sound.devices.clear();
    player.start();
    REQUIRE(world.messages.shown.size() == 1);
    CHECK(world.messages.shown[0].text ==
          "Unable to detect a wave output device.\n\nTerminating...");
    CHECK(world.messages.shown[0].title == "Blah - Error");
    CHECK(world.messages.shown[0].icon == platform::MessageIcon::Critical);
    CHECK(simulated::window(player.mainWindow()).visible);
    CHECK(player.frmPlayer().pctvolume.Left() == 3000);
}

TEST_CASE("the first wave device that answers is used") {
    Player player;
    world.sound.devices = {{0x11111111U, 5}, {0x80008000U, 0}, {0U, 0}};
    player.start();
    CHECK(player.program().waveDeviceId == 1);
    CHECK(player.program().waveVolumeWord == 0x80008000U);
    CHECK(world.sound.calls == std::vector<std::string>{"get 0", "get 1"});
    CHECK(player.frmPlayer().pctvolume.Left() == doctest::Approx(2700.009));
}

TEST_CASE("if no wave device answers, the volume word keeps what it held") {
    Player player;
    world.sound.devices = {{0x11111111U, 5}, {0x22222222U, 5}};
    player.start();
    CHECK(player.program().waveDeviceId == 0);
    CHECK(player.program().waveVolumeWord == 0);
    CHECK(player.frmPlayer().pctvolume.Left() == 2400);
}

TEST_CASE("the volume thumb stands where the device's volume puts it") {
    const std::pair<std::uint32_t, double> places[] = {
        {0U, 2400}, {0x80008000U, 2700.009}, {0xFFFEFFFFU, 3000}, {0xFFFF0000U, 3000}};
    for (const auto& [word, left] : places) {
        CAPTURE(word);
        Player player;
        world.sound.devices = {{word, 0}};
        player.start();
        CHECK(player.frmPlayer().pctvolume.Left() == doctest::Approx(left).epsilon(1e-6));
    }
}

TEST_CASE("a volume word that silences the left channel is taken for nearly full") {
    Player player;
    world.sound.devices = {{0xFFFF0000U, 0}};
    player.start();
    CHECK(player.program().waveVolumeWord == 0xFFFEFFFFU);
}

TEST_CASE("more than 32767 wave devices are an overflow") {
    Player player;
    world.sound.countForced = 32768;
    const auto message = behaviour::fatalMessageOf([&] { player.program().Main(); });
    REQUIRE(message);
    CHECK(message->find("6: Overflow") != std::string::npos);
}

TEST_CASE("as many wave devices as 16 bits count are none too many, any number above is") {
    Player player;
    world.sound.countForced = 32767;
    world.sound.devices = {{0x11111111U, 5}, {0x80008000U, 0}};
    player.start();
    CHECK(player.program().waveDeviceId == 1);
    for (const std::uint32_t count : {65536U, 65537U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        CAPTURE(count);
        Player crowded;
        world.sound.countForced = count;
        CHECK(behaviour::fatalMessageOf([&] { crowded.program().Main(); }) ==
              "Run-time error 6: Overflow");
    }
}

TEST_CASE("a volume level is sent to both channels as one word") {
    const std::pair<double, std::uint32_t> levels[] = {{0, 0x00000000U},
                                                       {16200, 0x7E907E90U},
                                                       {16384, 0x80008002U},
                                                       {32400, 0xFD20FD22U},
                                                       {32767, 0xFFFEFFFFU}};
    for (const auto& [level, word] : levels) {
        CAPTURE(level);
        Player player;
        player.start();
        player.engine().AdjustVolume(level);
        CHECK(player.program().waveVolumeWord == word);
        CHECK(world.sound.devices[0].volume == word);
    }
}

TEST_CASE("the volume goes to the device in use and a refusal is ignored") {
    Player player;
    world.sound.devices = {{0U, 5}, {0U, 0}};
    player.start();
    world.sound.devices[1].result = 11;
    player.engine().AdjustVolume(16200);
    CHECK(world.sound.calls.back() == "set 1 7E907E90");
    CHECK(world.messages.shown.empty());
}

TEST_CASE("queries take a reply of 255 characters, commands none, and none calls back") {
    EngineAlone alone;
    const auto sentBy = [](const std::function<void()>& deed) {
        world.media.calls.clear();
        deed();
        std::vector<std::uint32_t> sizes;
        for (const auto& call : world.media.calls) {
            CHECK(call.callback == 0);
            CHECK(call.hasReply == (call.replySize != 0));
            sizes.push_back(call.replySize);
        }
        return sizes;
    };
    using Sizes = std::vector<std::uint32_t>;
    Mpeg& engine = alone.engine();
    CHECK(sentBy([&] { engine.PlayM(); }) == Sizes{255, 255, 0});
    CHECK(sentBy([&] { engine.Duration(); }) == Sizes{255, 255});
    CHECK(sentBy([&] { engine.CurrentPosition(); }) == Sizes{255});
    CHECK(sentBy([&] { engine.MoveMPEG(5000); }) == Sizes{0, 0});
    CHECK(sentBy([&] { engine.PauseM(); }) == Sizes{0});
    CHECK(sentBy([&] { engine.RetourDeLaPause(); }) == Sizes{0});
    CHECK(sentBy([&] { engine.StopM(); }) == Sizes{0, 0});
    CHECK(sentBy([&] { engine.FileName(1, track); }) == Sizes{0});
    CHECK(sentBy([&] { engine.FermerMp3(); }) == Sizes{0});
}

TEST_CASE("the text of a refused command is asked for in 128 characters and dropped") {
    using Asked = std::vector<std::pair<std::uint32_t, std::uint32_t>>;
    Player player;
    player.start();
    Mpeg& engine = player.engine();
    const auto refused = [&](const char* start, const std::function<void()>& deed) {
        world.media.errorTexts.clear();
        world.media.fail(start, 277);
        deed();
        return world.media.errorTexts;
    };
    const Asked once = {{277, 128}};
    CHECK(refused("open", [&] { engine.FileName(1, track); }) == once);
    CHECK(refused("play mpeg from", [&] { engine.PlayM(); }) == once);
    CHECK(refused("Close", [&] { engine.FermerMp3(); }) == once);
    CHECK(refused("Pause", [&] { engine.PauseM(); }) == once);
    CHECK(refused("Stop", [&] { engine.StopM(); }) == once);
    CHECK(refused("Resume", [&] { engine.RetourDeLaPause(); }) == once);
    CHECK(refused("seek", [&] { engine.MoveMPEG(5); }) == once);
    // A query that fails yields -1 and asks for no words, and neither does the play behind a seek.
    CHECK(refused("status", [&] { engine.CurrentPosition(); }).empty());
    CHECK(world.messages.shown.empty());
}

TEST_CASE("a paused track counts as playing once the device has been told to go on") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    player.engine().PauseM();
    int looks = 0;
    world.watch = [&](const std::string& note) {
        if (note != "send Resume mpeg") return;
        ++looks;
        CHECK(player.status() == "Paused");
    };
    player.engine().PlayM();
    world.watch = nullptr;
    CHECK(looks == 1);
    CHECK(player.status() == "Playing");
}
