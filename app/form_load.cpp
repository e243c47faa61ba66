#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "mainwindow/alarm.h"
#include "platform/window.h"
#include "playback/text_helpers.h"
#include "shell/clsSysTray.h"
#include "toolkit/app.h"
#include "toolkit/guard.h"

#include <algorithm>
#include <cctype>

namespace {

/// Whether a command-line tail names an MP3, judged by its last three characters, case aside.
bool endsInMp3(const std::string& tail) {
    constexpr std::string_view wanted = "mp3";
    if (tail.size() < wanted.size()) return false;
    return std::equal(wanted.begin(), wanted.end(), tail.end() - wanted.size(), [](char a, char b) {
        return a == std::tolower(static_cast<unsigned char>(b));
    });
}

} // namespace

Mpeg& FrmPlayer::engine() const { return *shared_.engine; }

FrmPlaylist& FrmPlayer::playlist() const { return shared_.frmPlaylist; }

void FrmPlayer::endIfClosed() const {
    if (closedBySystem) toolkit::endProgram();
}

void FrmPlayer::Form_Load() {
    endIfClosed();
    gSysTray = std::make_unique<clsSysTray>();
    createWorkerControls();
    showTrayIcon();
    const std::string line = readSettingsLine();
    mouseHeld = runtime::False16;
    trackCount = 0;
    alarmTime = alarms::Disarmed;
    takeSettings(line);
    takeCommandLine();
}

void FrmPlayer::showTrayIcon() {
    gSysTray->LButtonDblClk = [this] { gSysTray_LButtonDblClk(); };
    gSysTray->RButtonUP = [this] { gSysTray_RButtonUP(); };
    gSysTray->LoadIcon(platform::applicationIcon(), window);
    // The nul ends the tip, which would show the record's blanks otherwise.
    gSysTray->ToolTip(std::string(toolkit::App::Title) + '\0');
    gSysTray->IconInSysTray();
}

void FrmPlayer::createWorkerControls() {
    DirTemp = std::make_unique<toolkit::DirListBox>();
    ListDir = std::make_unique<toolkit::ListBox>();
}

void FrmPlayer::takeCommandLine() {
    const std::string tail = toolkit::App::Command();
    if (!endsInMp3(tail)) return;
    addTrack(tail, fileTitleOf(tail));
    playlist().List1.ListIndex(trackCount - 1);
    startfile();
}
