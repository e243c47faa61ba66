#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/settings_file.h"
#include "app/start_file.h"
#include "mainwindow/alarm.h"
#include "playback/track_list.h"
#include "runtime/text.h"
#include "shell/clsSysTray.h"
#include "toolkit/app.h"
#include "toolkit/dir_list_box.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"

#include <memory>
#include <string>

namespace {

void showTrayIcon(FrmPlayer& player) {
    clsSysTray& tray = *player.gSysTray;
    tray.LButtonDblClk = [&player] { player.gSysTray_LButtonDblClk(); };
    tray.RButtonUP = [&player] { player.gSysTray_RButtonUP(); };
    tray.LoadIcon(player.window);
    // The nul ends the tip, which would show the record's blanks otherwise.
    tray.ToolTip(std::string(toolkit::App::Title) + '\0');
    toolkit::SetTrayMenu(player.mnuPopup);
    tray.IconInSysTray();
}

void takeCommandLine(FrmPlayer& player) {
    const std::string file = startFile();
    if (file.empty()) return;
    addTrack(player, file, runtime::fileTitleOf(file));
    player.playlist().List1.ListIndex(player.trackCount - 1);
    player.startfile();
}

} // namespace

void FrmPlayer::Form_Load() {
    gSysTray = std::make_unique<clsSysTray>();
    DirTemp = std::make_unique<toolkit::DirListBox>();
    ListDir = std::make_unique<toolkit::ListBox>();
    showTrayIcon(*this);
    const std::string line = readSettingsLine();
    mouseHeld = false;
    trackCount = 0;
    alarmTime = alarms::Disarmed;
    settings::take(*this, line);
    takeCommandLine(*this);
}
