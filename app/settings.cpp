#include "app/settings.h"

#include "runtime/characters.h"
#include "runtime/number_text.h"
#include "runtime/rounding.h"
#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace settings {
namespace {

constexpr int presentVersion = 3;
constexpr std::size_t fieldCount = 13;
constexpr char savedSeparator = '/';

using FieldTexts = std::array<std::string, fieldCount>;

/// A number of a settings line in single precision; error 6 for one too large.
float singleOf(const std::string& text, char decimalSign) {
    const double value = runtime::numberOf(text, decimalSign);
    if (std::abs(value) > std::numeric_limits<float>::max()) runtime::raise(runtime::Overflow);
    return static_cast<float>(value);
}

runtime::Bool16 flagOf(const std::string& text, char decimalSign) {
    return runtime::numberOf(text, decimalSign) != 0;
}

} // namespace

bool hasPresentVersion(const std::string& line) {
    return runtime::numberOf(line.substr(0, 1), '.') == presentVersion;
}

Found read(std::string line, char decimalSign) {
    FieldTexts texts;
    for (std::string& text : texts)
        text = runtime::nextField(line, FieldEnd);
    const auto number = [&](std::size_t i) { return runtime::numberOf(texts[i], decimalSign); };
    Found found;
    Fields& fields = found.fields;
    fields.volumeLevel = number(1);
    found.hasVolumeThumb = texts[2] != "0";
    fields.volumeThumbLeft = runtime::roundToInt32(number(2));
    found.hasTrackList = !texts[3].empty();
    if (found.hasTrackList) fields.tracks = splitTracks(texts[3], found.trackListRest);
    fields.playerLeft = singleOf(texts[4], decimalSign);
    fields.playerTop = singleOf(texts[5], decimalSign);
    fields.playlistLeft = singleOf(texts[11], decimalSign);
    fields.playlistTop = singleOf(texts[12], decimalSign);
    fields.alarmHour = runtime::roundToInt16(number(6));
    fields.alarmMinute = runtime::roundToInt16(number(7));
    fields.lastFolder = texts[8];
    fields.playlistdockX = flagOf(texts[9], decimalSign);
    fields.playlistdockY = flagOf(texts[10], decimalSign);
    return found;
}

std::string write(const Fields& fields, char decimalSign) {
    using runtime::textOf;
    const FieldTexts texts = {
        std::to_string(presentVersion),
        textOf(fields.volumeLevel, decimalSign),
        textOf(fields.volumeThumbLeft),
        joinTracks(fields.tracks),
        textOf(fields.playerLeft, decimalSign),
        textOf(fields.playerTop, decimalSign),
        textOf(fields.alarmHour),
        textOf(fields.alarmMinute),
        fields.lastFolder,
        textOf(runtime::Int16(fields.playlistdockX.value())),
        textOf(runtime::Int16(fields.playlistdockY.value())),
        textOf(fields.playlistLeft, decimalSign),
        textOf(fields.playlistTop, decimalSign),
    };
    std::string line;
    for (const std::string& text : texts)
        line += text + FieldEnd;
    return line;
}

std::string joinTracks(const std::vector<std::string>& paths) {
    std::string text;
    for (const std::string& path : paths)
        text += path + '\0';
    if (text.empty()) return text;
    text += '\0';
    std::replace(text.begin(), text.end(), '\0', savedSeparator);
    return text;
}

std::vector<std::string> splitTracks(const std::string& field, std::string& rest) {
    rest = field;
    std::replace(rest.begin(), rest.end(), savedSeparator, '\0');
    const runtime::Int16 limit(runtime::characterCount(rest));
    std::vector<std::string> paths;
    for (runtime::Int16 round = 0; round < limit; round += 1) {
        std::string path = runtime::nextField(rest, '\0');
        if (path.empty()) break;
        paths.push_back(std::move(path));
    }
    return paths;
}

} // namespace settings
