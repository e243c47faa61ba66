#include "platform/media_commands.h"

#include <cstdint>
#include <doctest/doctest.h>
#include <set>
#include <string>
#include <string_view>

using namespace platform;

namespace {

constexpr const char* openWords =
    "open A~1.MP3 type MpegVideo Alias mpeg parent 1001 Style 1073741824";

MediaError errorOf(const std::string& text) { return parseMediaCommand(text).error; }

} // namespace

TEST_CASE("the open command names its file as it was written") {
    const auto parsed = parseMediaCommand(openWords);
    CHECK(parsed.error == MediaError::None);
    CHECK(parsed.command.verb == MediaVerb::Open);
    CHECK(parsed.command.file == "A~1.MP3");
}

TEST_CASE("words count in any case, blanks are folded, blanks at the end ignored") {
    for (const char* text : {"play mpeg from 1 to 5000", "PLAY MPEG FROM 1 TO 5000",
                             "  play \t mpeg  from 1   to 5000", "Play mpeg to 5000 from 1    "}) {
        CAPTURE(text);
        const auto parsed = parseMediaCommand(text);
        CHECK(parsed.error == MediaError::None);
        CHECK(parsed.command.verb == MediaVerb::Play);
        CHECK(parsed.command.from == 1);
        CHECK(parsed.command.to == 5000);
    }
}

TEST_CASE("each command is known by its word") {
    struct Row {
        const char* text;
        MediaVerb verb;
    };
    for (const Row& row :
         {Row{openWords, MediaVerb::Open},
          Row{"set mpeg time format frames", MediaVerb::SetTimeFormat},
          Row{"status mpeg length", MediaVerb::Status}, Row{"Play mpeg", MediaVerb::Play},
          Row{"Pause mpeg", MediaVerb::Pause}, Row{"Resume mpeg", MediaVerb::Resume},
          Row{"Stop mpeg", MediaVerb::Stop}, Row{"seek mpeg to 0", MediaVerb::Seek},
          Row{"Close mpeg", MediaVerb::Close}}) {
        CAPTURE(row.text);
        const auto parsed = parseMediaCommand(row.text);
        CHECK(parsed.error == MediaError::None);
        CHECK(parsed.command.verb == row.verb);
    }
}

TEST_CASE("what is wrong with a command has its own error") {
    struct Row {
        const char* text;
        MediaError error;
    };
    for (const Row& row : {
             Row{"", MediaError::MissingWord},
             Row{"   ", MediaError::MissingWord},
             Row{"play", MediaError::MissingWord},
             Row{"juggle mpeg", MediaError::UnknownCommand},
             Row{"mpeg", MediaError::UnknownCommand},
             Row{"play video", MediaError::NotOpen},
             Row{"play all", MediaError::NotOpen},
             Row{"play mpeg now", MediaError::UnknownWord},
             Row{"play mpeg from", MediaError::MissingWord},
             Row{"play mpeg from 1 from 2", MediaError::UnknownWord},
             Row{"play mpeg from one to 2", MediaError::BadNumber},
             Row{"play mpeg from 1x", MediaError::BadNumber},
             Row{"play mpeg from 1.5", MediaError::BadNumber},
             Row{"pause mpeg wait", MediaError::UnknownWord},
             Row{"seek mpeg", MediaError::MissingWord},
             Row{"seek mpeg 100", MediaError::UnknownWord},
             Row{"seek mpeg to start", MediaError::BadNumber},
             Row{"status mpeg", MediaError::MissingWord},
             Row{"status mpeg mode", MediaError::UnknownWord},
             Row{"status mpeg length length", MediaError::UnknownWord},
             Row{"set mpeg", MediaError::MissingWord},
             Row{"set mpeg time", MediaError::UnknownWord},
             Row{"set mpeg time format", MediaError::MissingWord},
             Row{"set mpeg time format bananas", MediaError::UnknownWord},
             Row{"open a.mp3", MediaError::MissingWord},
             Row{"open a.mp3 type MpegVideo", MediaError::MissingWord},
             Row{"open a.mp3 type CDAudio alias mpeg", MediaError::UnknownWord},
             Row{"open a.mp3 type MpegVideo alias other", MediaError::NotOpen},
             Row{"open a.mp3 type MpegVideo alias mpeg parent none", MediaError::BadNumber},
             Row{"open  type MpegVideo Alias mpeg parent 1 Style 1", MediaError::UnknownWord},
         }) {
        CAPTURE(row.text);
        CHECK(errorOf(row.text) == row.error);
    }
}

TEST_CASE("negative and huge numbers are read as such, for the device to refuse") {
    CHECK(parseMediaCommand("seek mpeg to -1").command.to == -1);
    CHECK(parseMediaCommand("seek mpeg to 99999999999999999999").command.to == INT64_MAX);
    CHECK(parseMediaCommand("seek mpeg to -99999999999999999999").command.to == INT64_MIN);
}

TEST_CASE(
    "a command of 255 characters is taken, one more is too long, blanks at the end are free") {
    std::string text = "play mpeg";
    text.insert(4, std::string(255 - text.size(), ' '));
    CHECK(errorOf(text) == MediaError::None);
    CHECK(errorOf(text + std::string(1000, ' ')) == MediaError::None);
    text.insert(4, " ");
    CHECK(errorOf(text) == MediaError::CommandTooLong);
    CHECK(errorOf(std::string(100'000, 'x')) == MediaError::CommandTooLong);
}

TEST_CASE("every error has a sentence of its own") {
    std::set<std::string_view> sentences;
    for (const std::uint32_t number :
         {0U, 259U, 261U, 263U, 265U, 269U, 270U, 275U, 277U, 278U, 279U, 280U, 282U, 289U, 290U}) {
        CAPTURE(number);
        CHECK(!mediaErrorText(number).empty());
        CHECK(sentences.insert(mediaErrorText(number)).second);
    }
    CHECK(mediaErrorText(1).empty());
    CHECK(mediaErrorText(4'000'000'000U).empty());
}
