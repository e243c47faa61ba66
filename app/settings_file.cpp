#include "app/settings_file.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "app/settings.h"
#include "playback/track_list.h"
#include "runtime/characters.h"
#include "runtime/text.h"
#include "toolkit/app.h"
#include "toolkit/files.h"
#include "toolkit/msgbox.h"

namespace {

/// Left over by an earlier format, whose settings lay at this fixed place.
constexpr const char* oldSettingsFile = "c:\\MyPlayerSettings.txt";

std::string settingsPath() { return toolkit::App::Path() + "\\MyPlayerSettings.mps"; }

void takeTracks(FrmPlayer& player, const settings::Found& found) {
    player.savedTrackList = found.trackListRest;
    for (const std::string& path : found.fields.tracks)
        addTrack(player, path, runtime::fileTitleOf(path));
    player.playlist().List1.ListIndex(0);
}

void apply(FrmPlayer& player, const settings::Found& found) {
    const settings::Fields& fields = found.fields;
    FrmPlaylist& playlist = player.playlist();
    player.volumeLevel = fields.volumeLevel;
    if (found.hasVolumeThumb) {
        player.pctvolume.Left(static_cast<float>(fields.volumeThumbLeft.value()));
        player.volumeThumbLeft = fields.volumeThumbLeft;
    }
    if (found.hasTrackList) takeTracks(player, found);
    player.window.Left(fields.playerLeft);
    player.window.Top(fields.playerTop);
    playlist.window.Left(fields.playlistLeft);
    playlist.window.Top(fields.playlistTop);
    player.alarmHour = fields.alarmHour;
    player.alarmMinute = fields.alarmMinute;
    if (!fields.lastFolder.empty()) player.lastFolder = fields.lastFolder;
    playlist.playlistdockX = fields.playlistdockX;
    playlist.playlistdockY = fields.playlistdockY;
}

settings::Fields fieldsOf(FrmPlayer& player) {
    FrmPlaylist& playlist = player.playlist();
    settings::Fields fields;
    for (runtime::Int16 i = 0; i < player.trackCount; i += 1)
        fields.tracks.push_back(player.trackPaths[i]);
    fields.volumeLevel = player.volumeLevel;
    fields.volumeThumbLeft = player.volumeThumbLeft;
    fields.playerLeft = player.window.Left();
    fields.playerTop = player.window.Top();
    fields.alarmHour = player.alarmHour;
    fields.alarmMinute = player.alarmMinute;
    fields.lastFolder = player.lastFolder;
    fields.playlistdockX = playlist.playlistdockX;
    fields.playlistdockY = playlist.playlistdockY;
    fields.playlistLeft = playlist.window.Left();
    fields.playlistTop = playlist.window.Top();
    return fields;
}

/// The fatal end of an error in here tells its user which file to put right.
template <class Code>
void namingTheFile(Code&& code) {
    try {
        code();
    } catch (runtime::NumberedError& error) {
        error.detail = toolkit::Files::forPeople(settingsPath());
        throw;
    }
}

} // namespace

std::string FrmPlayer::readSettingsLine() {
    std::string line;
    int error = 0;
    try {
        settingsFileNumber = modMain.files.FreeFile();
        modMain.files.OpenForInput(settingsFileNumber, settingsPath());
        line = modMain.files.LineInput(settingsFileNumber);
        modMain.files.Close(settingsFileNumber);
    } catch (const runtime::NumberedError& raised) {
        error = raised.number;
    }
    if (error != 0 && error != runtime::FileNotFound)
        toolkit::MsgBox("error inconue : " + std::to_string(error));
    return line;
}

void settings::take(FrmPlayer& player, const std::string& line) {
    if (runtime::characterCount(line) < ShortestLine) return;
    namingTheFile([&] {
        if (hasPresentVersion(line))
            apply(player, read(line, toolkit::App::DecimalSign()));
        else
            toolkit::Files::Kill(oldSettingsFile);
    });
}

void settings::save(FrmPlayer& player) {
    const std::string SettingsLine = write(fieldsOf(player), toolkit::App::DecimalSign());
    runtime::Int16& number = player.settingsFileNumber;
    toolkit::TextFiles& files = player.modMain.files;
    namingTheFile([&] {
        number = files.FreeFile();
        files.OpenForOutput(number, settingsPath());
        files.PrintLine(number, SettingsLine);
        files.Close(number);
    });
}
