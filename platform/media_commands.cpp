#include "platform/media_commands.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <system_error>
#include <vector>

namespace platform {
namespace {

using Words = std::vector<std::string_view>;

bool isBlank(char c) { return c == ' ' || c == '\t'; }

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool sameWord(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, [](char a, char b) { return lower(a) == lower(b); });
}

std::string_view withoutTrailingBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

Words split(std::string_view text) {
    Words words;
    while (!text.empty()) {
        const auto start = std::ranges::find_if_not(text, isBlank);
        const auto end = std::find_if(start, text.end(), isBlank);
        if (start != end) words.emplace_back(start, end);
        text = std::string_view(end, text.end());
    }
    return words;
}

/// A whole number. One that fits no 64 bits is far outside any track: it becomes the widest.
MediaError readNumber(std::string_view word, std::int64_t& number) {
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (end != word.data() + word.size() || error == std::errc::invalid_argument)
        return MediaError::BadNumber;
    if (error == std::errc::result_out_of_range)
        number = word.front() == '-' ? INT64_MIN : INT64_MAX;
    return MediaError::None;
}

using TakeValue = MediaError (*)(MediaCommand&, std::string_view value);

/// An argument: one or two words, and what becomes of the word behind them (none if null).
struct ArgumentRow {
    std::string_view first;
    std::string_view second;
    enum class Need { Required, Optional } need;
    TakeValue take;
};

MediaError takeFrom(MediaCommand& command, std::string_view value) {
    return readNumber(value, command.from.emplace());
}

MediaError takeTo(MediaCommand& command, std::string_view value) {
    return readNumber(value, command.to.emplace());
}

MediaError takeUnusedNumber(MediaCommand&, std::string_view value) {
    std::int64_t number = 0;
    return readNumber(value, number);
}

MediaError takeType(MediaCommand&, std::string_view value) {
    return sameWord(value, "MpegVideo") ? MediaError::None : MediaError::UnknownWord;
}

MediaError takeTimeFormat(MediaCommand&, std::string_view value) {
    return sameWord(value, "frames") ? MediaError::None : MediaError::UnknownWord;
}

MediaError takeAlias(MediaCommand&, std::string_view value) {
    return sameWord(value, "mpeg") ? MediaError::None : MediaError::NotOpen;
}

using enum ArgumentRow::Need;

constexpr std::array openArguments{
    ArgumentRow{"type", "", Required, takeType},
    ArgumentRow{"alias", "", Required, takeAlias},
    ArgumentRow{"parent", "", Optional, takeUnusedNumber},
    ArgumentRow{"style", "", Optional, takeUnusedNumber},
};
constexpr std::array setArguments{ArgumentRow{"time", "format", Required, takeTimeFormat}};
constexpr std::array playArguments{
    ArgumentRow{"from", "", Optional, takeFrom},
    ArgumentRow{"to", "", Optional, takeTo},
};
constexpr std::array seekArguments{ArgumentRow{"to", "", Required, takeTo}};

/// A command: its word, the arguments behind the device's name, and the verb it stands for.
struct CommandRow {
    std::string_view name;
    std::span<const ArgumentRow> arguments;
    MediaVerb verb;
};

constexpr std::array commands{
    CommandRow{"open", openArguments, MediaVerb::Open},
    CommandRow{"set", setArguments, MediaVerb::SetTimeFormat},
    CommandRow{"status", {}, MediaVerb::Status},
    CommandRow{"play", playArguments, MediaVerb::Play},
    CommandRow{"pause", {}, MediaVerb::Pause},
    CommandRow{"resume", {}, MediaVerb::Resume},
    CommandRow{"stop", {}, MediaVerb::Stop},
    CommandRow{"seek", seekArguments, MediaVerb::Seek},
    CommandRow{"close", {}, MediaVerb::Close},
};

/// The row that the next words name, or the row count.
std::size_t argumentRowOf(std::span<const ArgumentRow> rows,
                          std::span<const std::string_view> words) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!sameWord(words[0], rows[i].first)) continue;
        if (rows[i].second.empty() || (words.size() > 1 && sameWord(words[1], rows[i].second)))
            return i;
    }
    return rows.size();
}

MediaError takeArguments(std::span<const ArgumentRow> rows, std::span<const std::string_view> words,
                         MediaCommand& command) {
    unsigned given = 0;
    while (!words.empty()) {
        const std::size_t row = argumentRowOf(rows, words);
        if (row == rows.size() || (given & (1U << row)) != 0) return MediaError::UnknownWord;
        given |= 1U << row;
        words = words.subspan(rows[row].second.empty() ? 1 : 2);
        if (words.empty()) return MediaError::MissingWord;
        if (const MediaError error = rows[row].take(command, words[0]); error != MediaError::None)
            return error;
        words = words.subspan(1);
    }
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row].need == Required && (given & (1U << row)) == 0)
            return MediaError::MissingWord;
    }
    return MediaError::None;
}

MediaError takeStatusItem(std::span<const std::string_view> words, MediaCommand& command) {
    if (words.empty()) return MediaError::MissingWord;
    if (words.size() > 1) return MediaError::UnknownWord;
    if (sameWord(words[0], "length"))
        command.item = MediaStatusItem::Length;
    else if (sameWord(words[0], "position"))
        command.item = MediaStatusItem::Position;
    else
        return MediaError::UnknownWord;
    return MediaError::None;
}

MediaError takeCommand(const CommandRow& row, std::span<const std::string_view> words,
                       MediaCommand& command) {
    command.verb = row.verb;
    if (words.empty()) return MediaError::MissingWord;
    if (row.verb == MediaVerb::Open)
        command.file = words[0];
    else if (!sameWord(words[0], "mpeg"))
        return MediaError::NotOpen;
    if (row.verb == MediaVerb::Status) return takeStatusItem(words.subspan(1), command);
    return takeArguments(row.arguments, words.subspan(1), command);
}

struct ErrorRow {
    MediaError error;
    std::string_view text;
};

constexpr std::array errors{
    ErrorRow{MediaError::None, "The command was carried out."},
    ErrorRow{MediaError::UnknownWord, "The command holds a word that has no place in it."},
    ErrorRow{MediaError::UnknownCommand, "The sound device knows no such command."},
    ErrorRow{MediaError::NotOpen, "No file is open under that name."},
    ErrorRow{MediaError::MissingWord, "The command lacks a word that it needs."},
    ErrorRow{MediaError::BadNumber, "A whole number was expected in the command."},
    ErrorRow{MediaError::CommandTooLong, "The command is too long."},
    ErrorRow{MediaError::FileNotFound, "The file was not found."},
    ErrorRow{MediaError::NotAudio, "The file holds no sound that can be played."},
    ErrorRow{MediaError::FileUnreadable, "The file could not be read."},
    ErrorRow{MediaError::NoSoundServer, "The sound server does not answer."},
    ErrorRow{MediaError::OutOfMemory, "There is not enough memory for the command."},
    ErrorRow{MediaError::OutOfRange, "A position lies outside the track."},
    ErrorRow{MediaError::AliasInUse, "A file is already open under that name."},
    ErrorRow{MediaError::TimedOut, "The file took too long to open."},
};

} // namespace

std::string_view mediaErrorText(std::uint32_t error) {
    const auto row = std::ranges::find(errors, static_cast<MediaError>(error), &ErrorRow::error);
    return row == errors.end() ? std::string_view() : row->text;
}

ParsedMediaCommand parseMediaCommand(std::string_view text) {
    ParsedMediaCommand parsed;
    text = withoutTrailingBlanks(text);
    if (text.size() > longestMediaCommand) {
        parsed.error = MediaError::CommandTooLong;
        return parsed;
    }
    const Words words = split(text);
    if (words.empty()) {
        parsed.error = MediaError::MissingWord;
        return parsed;
    }
    const auto row = std::ranges::find_if(
        commands, [&](const CommandRow& command) { return sameWord(words[0], command.name); });
    parsed.error = row == commands.end()
                       ? MediaError::UnknownCommand
                       : takeCommand(*row, std::span(words).subspan(1), parsed.command);
    return parsed;
}

} // namespace platform
