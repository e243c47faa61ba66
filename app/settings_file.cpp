#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "app/settings.h"
#include "platform/files.h"
#include "playback/text_helpers.h"
#include "toolkit/app.h"
#include "toolkit/msgbox.h"

namespace {

/// Left over by an earlier format, whose settings lay at this fixed place.
constexpr const char* oldSettingsFile = "c:\\MyPlayerSettings.txt";

std::string settingsPath() { return toolkit::App::Path() + "\\MyPlayerSettings.mps"; }

} // namespace

std::string FrmPlayer::readSettingsLine() {
    std::string line;
    int error = 0;
    try {
        settingsFileNumber = shared_.files.FreeFile();
        shared_.files.OpenForInput(settingsFileNumber, settingsPath());
        line = shared_.files.LineInput(settingsFileNumber);
        shared_.files.Close(settingsFileNumber);
    } catch (const runtime::NumberedError& raised) {
        error = raised.number;
    }
    if (error != 0 && error != runtime::FileNotFound)
        toolkit::MsgBox("error inconue : " + std::to_string(error));
    return line;
}

/// A line that can't be taken is the fatal end; its message names the file to put right.
void FrmPlayer::takeSettings(const std::string& line) {
    if (line.size() < settings::ShortestLine) return;
    try {
        applySettings(line);
    } catch (runtime::NumberedError& error) {
        error.detail = platform::pathForPeople(settingsPath());
        throw;
    }
}

void FrmPlayer::applySettings(const std::string& line) {
    if (!settings::hasPresentVersion(line)) {
        runtime::raiseIfFailed(platform::deleteFile(oldSettingsFile));
        return;
    }
    const settings::Fields fields = settings::read(line, toolkit::App::DecimalSign());
    volumeLevel = fields.volumeLevel;
    if (fields.hasVolumeThumb) {
        pctvolume.Left(static_cast<float>(fields.volumeThumbLeft.value()));
        volumeThumbLeft = fields.volumeThumbLeft;
    }
    if (fields.hasTrackList) takeSavedTracks(fields);
    window.Left(fields.playerLeft);
    window.Top(fields.playerTop);
    playlist().window.Left(fields.playlistLeft);
    playlist().window.Top(fields.playlistTop);
    alarmHour = fields.alarmHour;
    alarmMinute = fields.alarmMinute;
    if (!fields.lastFolder.empty()) lastFolder = fields.lastFolder;
    playlist().playlistdockX = fields.playlistdockX;
    playlist().playlistdockY = fields.playlistdockY;
}

void FrmPlayer::takeSavedTracks(const settings::Fields& fields) {
    savedTrackList = fields.trackListRest;
    for (const std::string& path : fields.tracks)
        addTrack(path, fileTitleOf(path));
    playlist().List1.ListIndex(0);
}

void FrmPlayer::writeSettings() {
    settings::Fields fields;
    for (runtime::Int16 i = 0; i < trackCount; i += 1)
        fields.tracks.push_back(trackPaths[i]);
    fields.volumeLevel = volumeLevel;
    fields.volumeThumbLeft = volumeThumbLeft;
    fields.playerLeft = window.Left();
    fields.playerTop = window.Top();
    fields.alarmHour = alarmHour;
    fields.alarmMinute = alarmMinute;
    fields.lastFolder = lastFolder;
    fields.playlistdockX = playlist().playlistdockX;
    fields.playlistdockY = playlist().playlistdockY;
    fields.playlistLeft = playlist().window.Left();
    fields.playlistTop = playlist().window.Top();
    const std::string line = settings::write(fields, toolkit::App::DecimalSign());
    settingsFileNumber = shared_.files.FreeFile();
    shared_.files.OpenForOutput(settingsFileNumber, settingsPath());
    shared_.files.PrintLine(settingsFileNumber, line);
    shared_.files.Close(settingsFileNumber);
}
