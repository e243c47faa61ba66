#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The words of the media commands: what every platform with a device of its own reads alike.
/// Pure; any thread.
namespace platform {

/// What a media command can answer. The numbers are part of the device: callers may compare them.
enum class MediaError : std::uint32_t {
    None = 0,
    UnknownWord = 259,
    UnknownCommand = 261,
    NotOpen = 263,
    MissingWord = 265,
    BadNumber = 269,
    CommandTooLong = 270,
    FileNotFound = 275,
    NotAudio = 277,
    FileUnreadable = 278,
    NoSoundServer = 279,
    OutOfMemory = 280,
    OutOfRange = 282,
    AliasInUse = 289,
    TimedOut = 290,
};

/// The sentence for an error number, success included; empty for a number that no command gives.
std::string_view mediaErrorText(std::uint32_t error);

/// The longest command, trailing blanks not counted.
inline constexpr std::size_t longestMediaCommand = 255;

enum class MediaVerb { Open, SetTimeFormat, Status, Play, Pause, Resume, Stop, Seek, Close };
enum class MediaStatusItem { Length, Position };

/// One command, taken apart. Only the fields that its verb has are filled.
struct MediaCommand {
    MediaVerb verb = MediaVerb::Close;
    std::string file;                               ///< open: the short path, as it was written
    MediaStatusItem item = MediaStatusItem::Length; ///< status
    std::optional<std::int64_t> from;               ///< play, thousandths of a second
    std::optional<std::int64_t> to;                 ///< play, seek
};

struct ParsedMediaCommand {
    MediaError error = MediaError::None;
    MediaCommand command;
};

/// Reads one command. Words in any case, blanks folded, blanks at the end ignored.
ParsedMediaCommand parseMediaCommand(std::string_view text);

} // namespace platform
