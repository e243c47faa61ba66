#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "platform/system.h"
#include "shell/clsSysTray.h"

namespace {

/// How long the open key stays down after its menu has closed, ms.
constexpr std::uint32_t openKeyDelay = 300;

} // namespace

void FrmPlayer::createMenus() {
    mnuPopup = {"mnuPopup",
                "Popup",
                {},
                {{"mnuMaximized", "Maximized", [this] { restoreWindow(); }, {}},
                 {"MnuOpen",
                  "Open",
                  {},
                  {{"mnuOpenFile", "Open File", [this] { openfiles(); }, {}},
                   {"MnuOpenDir", "Open Directory", [this] { opendir(); }, {}}}},
                 {"mnuMain",
                  "Main",
                  {},
                  {{"mnuPlay", "Play", [this] { startfile(); }, {}},
                   {"mnuStop", "Stop", [this] { mnuStop_Click(); }, {}},
                   {"mnuNext", "Next", [this] { nextfile(); }, {}}}},
                 {"mnuAbout", "About", [this] { shared_.aboutBox().window.ShowModal(); }, {}},
                 {"mnuExit", "Exit", [this] { unloadmebaby(); }, {}}}};
    mnuOpenDialog = {"mnuOpenDialog",
                     "Open",
                     {},
                     {{"mnuList", "File", [this] { openfiles(); }, {}},
                      {"mnuDir", "Directory", [this] { opendir(); }, {}}}};
}

/// The window has no state but shown or hidden: restoring it is nothing but showing it.
void FrmPlayer::restoreWindow() { window.Show(); }

void FrmPlayer::gSysTray_LButtonDblClk() {
    // The way back from the hidden state: a failure here must not end the program.
    try {
        restoreWindow();
    } catch (const runtime::NumberedError&) { // NOLINT(bugprone-empty-catch)
    }
}

void FrmPlayer::gSysTray_RButtonUP() { toolkit::PopupMenu(window, mnuPopup); }

void FrmPlayer::pctopen_MouseDown() {
    pctopen.Visible(false);
    pctopendown.Visible(true);
}

void FrmPlayer::popUpOpenMenu(toolkit::Form& from) {
    toolkit::PopupMenu(from, mnuOpenDialog);
    platform::Sleep(openKeyDelay);
    releaseOpenKeys();
}

void FrmPlayer::releaseOpenKeys() {
    pctopen.Visible(true);
    pctopendown.Visible(false);
    playlist().pctPlsOpen.Visible(true);
    playlist().pctPlsOpenDown.Visible(false);
}
