#pragma once

#include "runtime/bool16.h"
#include "runtime/integers.h"

#include <string>
#include <vector>

/// The settings line: thirteen fields, each ended by "*", numbers by the locale's decimal sign.
namespace settings {

inline constexpr char FieldEnd = '*';

/// What the line holds, in its order behind the version.
struct Fields {
    double volumeLevel = 0;
    runtime::Int32 volumeThumbLeft;  ///< twips
    std::vector<std::string> tracks; ///< full paths in list order
    float playerLeft = 0;            ///< twips
    float playerTop = 0;
    runtime::Int16 alarmHour;
    runtime::Int16 alarmMinute;
    std::string lastFolder;
    runtime::Bool16 playlistdockX;
    runtime::Bool16 playlistdockY;
    float playlistLeft = 0;
    float playlistTop = 0;
};

/// What only a reader finds, beside the fields.
struct Found {
    Fields fields;
    bool hasVolumeThumb = true; ///< false when that field was exactly "0"
    bool hasTrackList = false;  ///< true when that field wasn't empty
    std::string trackListRest;  ///< what was left of it after its last path
};

/// Lines shorter than this are ignored without a look at their version.
inline constexpr std::size_t ShortestLine = 11;

/// Whether a line of at least `ShortestLine` characters has the present version. Error 13 if it
/// doesn't start with a digit.
bool hasPresentVersion(const std::string& line);

/// Takes a line of the present version apart, in the order in which its fields are applied. Error 6
/// for a missing or a far too long field and for a number out of range, error 13 for a number that
/// isn't one in this locale.
Found read(std::string line, char decimalSign);

/// The line for these fields.
std::string write(const Fields& fields, char decimalSign);

/// The track list field for a number of paths.
std::string joinTracks(const std::vector<std::string>& paths);

/// Takes a track list field apart; `rest` is what is left of it, with nuls for separators.
/// Error 6 for a path without an end and for a field of 32768 or more characters.
std::vector<std::string> splitTracks(const std::string& field, std::string& rest);

} // namespace settings
