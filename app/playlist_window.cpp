#include "app/accessible_windows.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "app/pictures.h"
#include "movement/playlist_visibility.h"
#include "playlist/playlist_keys.h"
#include "toolkit/accessible.h"
#include "toolkit/window_table.h"

namespace {

using toolkit::Start::Hidden;
using toolkit::Start::Shown;
using W = FrmPlaylist;

// clang-format off
/// From the topmost control to the lowest; places and sizes in twips.
const toolkit::ControlRow<W> controls[] = {
    //control                  name                  left   top width height start   tooltip     bitmap
    {&W::pctLboxUpDown,       "pctLboxUpDown",       3840,  360,  255, 255, Hidden, "",         "pctLboxUpDown.bmp"},
    {&W::pctLBoxDownDown,     "pctLBoxDownDown",     3840,  720,  255, 255, Hidden, "",         "pctLBoxDownDown.bmp"},
    {&W::pctNone,             "pctNone",             3840,  600,  255, 135, Shown,  "",         ""},
    {&W::pctLBoxUpUp,         "pctLBoxUpUp",         3840,  360,  255, 255, Shown,  "",         "scrollkey.bmp"},
    {&W::pctLBoxDownUp,       "pctLBoxDownUp",       3840,  720,  255, 255, Shown,  "",         "scrollkey.bmp"},
    {&W::pctClearAll,         "pctClearAll",         3120, 1080,  735, 135, Shown,  "",         "pctClearAll.bmp"},
    {&W::pctClear,            "pctClear",            2520, 1080,  495, 135, Shown,  "",         "pctClear.bmp"},
    {&W::List1,               "List1",                120,  360, 3975, 615, Shown,  "",         ""},
    {&W::lblTitle,            "lblTitle",            2880,  240, 1095, 135, Shown,  "",         ""},
    {&W::lblPlaying,          "lblPlaying",           480,  240,  735, 135, Shown,  "",         ""},
    {&W::pctPlaylistQuitDown, "pctPlaylistQuitDown", 3960,    0,  150, 285, Hidden, "",         "pctquitdown.bmp"},
    {&W::pctPlaylistMini,     "pctPlaylistMini",     3720,    0,  135, 240, Shown,  "",         "pctminimise.bmp"},
    {&W::pctPlaylistMiniDown, "pctPlaylistMiniDown", 3720,    0,  135, 240, Hidden, "",         "pctminimisedown.bmp"},
    {&W::pctPlaylistQuit,     "pctPlaylistQuit",     3960,    0,  165, 300, Shown,  "",         "pctquit.bmp"},
    {&W::pctPlsOpenDown,      "pctPlsOpenDown",      1560, 1080,  300, 135, Hidden, "Open",     "pctPlsOpenDown.bmp"},
    {&W::pctPlsPlayDown,      "pctPlsPlayDown",      1200, 1080,  300, 135, Hidden, "Play",     "pctPlsPlayDown.bmp"},
    {&W::pctPlsStopDown,      "pctPlsStopDown",       840, 1080,  300, 135, Hidden, "Remove",   "pctPlsStopDown.bmp"},
    {&W::pctPlsNextDown,      "pctPlsNextDown",       480, 1080,  300, 135, Hidden, "Next",     "pctPlsNextDown.bmp"},
    {&W::pctPlsPrevDown,      "pctPlsPrevDown",       120, 1080,  300, 135, Hidden, "Previous", "pctPlsPrevDown.bmp"},
    {&W::pctPlsOpen,          "pctPlsOpen",          1560, 1080,  300, 135, Shown,  "",         "pctPlsOpen.bmp"},
    {&W::pctPlsPlay,          "pctPlsPlay",          1200, 1080,  300, 135, Shown,  "",         "pctPlsPlay.bmp"},
    {&W::pctPlsStop,          "pctPlsStop",           840, 1080,  300, 135, Shown,  "",         "pctPlsStop.bmp"},
    {&W::pctPlsNext,          "pctPlsNext",           480, 1080,  300, 135, Shown,  "",         "pctPlsNext.bmp"},
    {&W::pctPlsPrev,          "pctPlsPrev",           120, 1080,  300, 135, Shown,  "",         "pctPlsPrev.bmp"},
    {&W::pctPlsPause,         "pctPlsPause",         1920, 1080,  300, 135, Shown,  "Pause",    "pctPlsPause.bmp"},
    {&W::pctPlsPauseDown,     "pctPlsPauseDown",     1920, 1080,  300, 135, Hidden, "",         "pctPlsPauseDown.bmp"},
};
// clang-format on

const platform::Font listFont{"MS Sans Serif", 8.25, false, false};
const platform::Font tiny{"Terminal", 6, true, false};

const toolkit::LabelRow<W> texts[] = {
    {&W::lblTitle, "", tiny, toolkit::Yellow},
    {&W::lblPlaying, "", tiny, toolkit::Yellow},
};

toolkit::FormData data() {
    toolkit::FormData form;
    form.bounds = {7560, 6720, 4140, 1230};
    form.picture = skinPicture("frmPlaylist.bmp");
    return form;
}

} // namespace

FrmPlaylist::FrmPlaylist(ModMain& shared) : window(data()), modMain(shared) {
    toolkit::layOut<W>(*this, window, controls, skinPicture);
    toolkit::setTexts<W>(*this, texts);
    List1.setText(listFont, toolkit::LightBlue);
    window.Accessible = [this] { return accessibleTableOf(*this); };
    window.MouseDown = [this](const auto&) { Form_MouseDown(); };
    window.MouseMove = [this](const auto&) { Form_MouseMove(); };
    window.MouseUp = [this](const auto&) { Form_MouseUp(); };
    // A session that ends closes every window, and the dock has yet to be saved.
    window.CloseWished = [this] { minimisePlaylist(*this); };
    connectKeys(*this);
}
