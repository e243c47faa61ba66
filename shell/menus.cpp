#include "shell/menus.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "movement/window_states.h"
#include "platform/system.h"
#include "shell/AboutBox.h"

#include <cstdint>

namespace {

/// How long the open key stays down after its menu has closed, ms.
constexpr std::uint32_t openKeyDelay = 300;

} // namespace

void createMenus(FrmPlayer& player) {
    FrmPlayer& p = player;
    p.mnuPopup = {"mnuPopup",
                  "Popup",
                  {},
                  {{"mnuMaximized", "Maximized", [&p] { restoreWindow(p); }, {}},
                   {"MnuOpen",
                    "Open",
                    {},
                    {{"mnuOpenFile", "Open File", [&p] { p.openfiles(); }, {}},
                     {"MnuOpenDir", "Open Directory", [&p] { p.opendir(); }, {}}}},
                   {"mnuMain",
                    "Main",
                    {},
                    {{"mnuPlay", "Play", [&p] { p.startfile(); }, {}},
                     {"mnuStop", "Stop", [&p] { p.mnuStop_Click(); }, {}},
                     {"mnuNext", "Next", [&p] { p.nextfile(); }, {}}}},
                   {"mnuAbout", "About", [&p] { p.modMain.aboutBox().window.ShowModal(); }, {}},
                   {"mnuExit", "Exit", [&p] { p.unloadmebaby(); }, {}}}};
    p.mnuOpenDialog = {"mnuOpenDialog",
                       "Open",
                       {},
                       {{"mnuList", "File", [&p] { p.openfiles(); }, {}},
                        {"mnuDir", "Directory", [&p] { p.opendir(); }, {}}}};
}

void popUpOpenMenu(FrmPlayer& player, toolkit::Form& from) {
    toolkit::PopupMenu(from, player.mnuOpenDialog);
    platform::Sleep(openKeyDelay);
    releaseOpenKeys(player);
}

void releaseOpenKeys(FrmPlayer& player) {
    player.pctopen.Visible(true);
    player.pctopendown.Visible(false);
    player.playlist().pctPlsOpen.Visible(true);
    player.playlist().pctPlsOpenDown.Visible(false);
}

/// The way back from the hidden state: a failure here must not end the program.
void FrmPlayer::gSysTray_LButtonDblClk() { restoreWindowSilently(*this); }

void FrmPlayer::gSysTray_RButtonUP() { toolkit::PopupMenu(window, mnuPopup); }
