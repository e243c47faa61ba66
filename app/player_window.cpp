#include "app/accessible_windows.h"
#include "app/frmPlayer.h"
#include "app/pictures.h"
#include "mainwindow/keys.h"
#include "shell/clsSysTray.h"
#include "shell/menus.h"
#include "toolkit/accessible.h"
#include "toolkit/dir_list_box.h"
#include "toolkit/event_loop.h"
#include "toolkit/list_box.h"
#include "toolkit/window_table.h"

#include <cstdint>

namespace {

using toolkit::Start::Hidden;
using toolkit::Start::Shown;
using W = FrmPlayer;

constexpr std::int32_t tickInterval = 966; // ms

// clang-format off
/// From the topmost control to the lowest; places and sizes in twips.
const toolkit::ControlRow<W> controls[] = {
    //control                 name                 left   top width height start   tooltip     bitmap
    {&W::lblRepeat,          "lblRepeat",          3240,  360,  735, 135, Shown,  "",         ""},
    {&W::lblShuffle,         "lblShuffle",         3240,  240,  735, 135, Shown,  "",         ""},
    {&W::pctvolume,          "pctvolume",          3000,  840,  135, 150, Shown,  "",         "pctvolume.bmp"},
    {&W::pctprogressbar,     "pctprogressbar",      240,  480,  465, 135, Shown,  "",         "pctprogressbar.bmp"},
    {&W::pctprogressbardown, "pctprogressbardown",  240,  480,  465, 135, Hidden, "",         "pctprogressbardown.bmp"},
    {&W::pctprevdown,        "pctprevdown",         120,  720,  270, 240, Hidden, "Previous", "pctprevdown.bmp"},
    {&W::pctnextdown,        "pctnextdown",         480,  720,  270, 240, Hidden, "Next",     "pctnextdown.bmp"},
    {&W::pctstopdown,        "pctstopdown",         840,  720,  270, 240, Hidden, "Stop",     "pctstopdown.bmp"},
    {&W::pctplaydown,        "pctplaydown",        1200,  720,  270, 240, Hidden, "Play",     "pctplaydown.bmp"},
    {&W::pctopendown,        "pctopendown",        1560,  720,  270, 240, Hidden, "Open",     "pctopendown.bmp"},
    {&W::pctpausedown,       "pctpausedown",       2040,  720,  270, 240, Hidden, "Pause",    "pctpausedown.bmp"},
    {&W::pctalarmdown,       "pctalarmdown",       3240,  720,  270, 240, Hidden, "Alarm",    "pctalarmdown.bmp"},
    {&W::pctplaylistdown,    "pctplaylistdown",    3720,  720,  270, 240, Hidden, "Playlist", "pctplaylistdown.bmp"},
    {&W::pctpause,           "pctpause",           2040,  720,  270, 240, Shown,  "",         "key.bmp"},
    {&W::pctopen,            "pctopen",            1560,  720,  270, 240, Shown,  "",         "key.bmp"},
    {&W::pctPlay,            "pctPlay",            1200,  720,  270, 240, Shown,  "",         "key.bmp"},
    {&W::pctstop,            "pctstop",             840,  720,  270, 240, Shown,  "",         "key.bmp"},
    {&W::pctnext,            "pctnext",             480,  720,  270, 240, Shown,  "",         "key.bmp"},
    {&W::pctplaylist,        "pctplaylist",        3720,  720,  270, 240, Shown,  "",         "key.bmp"},
    {&W::pctprev,            "pctprev",             120,  720,  270, 240, Shown,  "",         "key.bmp"},
    {&W::pctalarm,           "pctalarm",           3240,  720,  270, 240, Shown,  "",         "key.bmp"},
    {&W::pctminimisedown,    "pctminimisedown",    3720,    0,  135, 240, Hidden, "",         "pctminimisedown.bmp"},
    {&W::pctquitdown,        "pctquitdown",        3960,    0,  150, 285, Hidden, "",         "pctquitdown.bmp"},
    {&W::pctquit,            "pctquit",            3960,    0,  165, 300, Shown,  "",         "pctquit.bmp"},
    {&W::pctminimise,        "pctminimise",        3720,    0,  135, 240, Shown,  "",         "pctminimise.bmp"},
    {&W::cmdSet,             "cmdSet",             2040,  240,  615, 255, Hidden, "",         ""},
    {&W::lblMin,             "lblMin",             3360,  240,  615, 255, Hidden, "",         ""},
    {&W::lblHr,              "lblHr",              2760,  240,  495, 255, Hidden, "",         ""},
    {&W::lblTimer,           "lblTimer",           1320,  240,  855, 255, Hidden, "",         ""},
    {&W::lblshowtime,        "lblshowtime",         120,  240, 1095, 255, Shown,  "",         ""},
    {&W::lblTimenow,         "lblTimenow",         1320,  240,  735, 255, Shown,  "",         ""},
};
// clang-format on

const platform::Font large{"MS Sans Serif", 12, false, false};
const platform::Font medium{"MS Sans Serif", 9.75, false, false};
const platform::Font tiny{"Terminal", 6, true, true};

const toolkit::LabelRow<W> texts[] = {
    {&W::lblshowtime, "Timer off", large, toolkit::Yellow},
    {&W::lblTimenow, "", large, toolkit::Yellow},
    {&W::lblTimer, "", large, toolkit::Yellow},
    {&W::lblHr, "Hour", medium, toolkit::Yellow},
    {&W::lblMin, "Minute", medium, toolkit::Yellow},
    {&W::cmdSet, "Set", medium, toolkit::Yellow},
    {&W::lblRepeat, "Repeat", tiny, toolkit::Yellow},
    {&W::lblShuffle, "Shuffle", tiny, toolkit::Yellow},
};

toolkit::FormData data() {
    toolkit::FormData form;
    form.caption = "Orvan Music Player";
    form.bounds = {0, 0, 4140, 1230};
    form.centred = true;
    form.picture = skinPicture("frmPlayer.bmp");
    return form;
}

/// Connects all events but those of the keys.
void connectEvents(FrmPlayer& p) {
    p.window.Load = [&p] { p.Form_Load(); };
    p.window.QueryUnload = [&p] { p.Form_QueryUnload(); };
    // What the system closes is gone for good: nothing visible would be left to run.
    p.window.ClosedBySystem = [] { toolkit::leaveEventLoop(); };
    p.window.Accessible = [&p] { return accessibleTableOf(p); };
    p.window.MouseDown = [&p](const toolkit::MouseArguments& at) { p.Form_MouseDown(at); };
    p.window.MouseMove = [&p](const auto&) { p.Form_MouseMove(); };
    p.window.MouseUp = [&p](const auto&) { p.Form_MouseUp(); };
    p.Timer1.Tick = [&p] { p.Timer1_Timer(); };
    p.lblRepeat.Click = [&p] { p.lblRepeat_Click(); };
    p.lblShuffle.Click = [&p] { p.lblShuffle_Click(); };
    p.lblTimenow.Click = [&p] { p.lblTimenow_Click(); };
    p.pctprogressbar.MouseDown = [&p](const auto&) { p.pctprogressbar_MouseDown(); };
    p.pctprogressbar.MouseMove = [&p](const auto&) { p.pctprogressbar_MouseMove(); };
    p.pctprogressbar.MouseUp = [&p](const auto&) { p.pctprogressbar_MouseUp(); };
    p.pctvolume.MouseDown = [&p](const auto&) { p.pctvolume_MouseDown(); };
    p.pctvolume.MouseMove = [&p](const auto&) { p.pctvolume_MouseMove(); };
    p.pctvolume.MouseUp = [&p](const auto&) { p.pctvolume_MouseUp(); };
    p.lblHr.MouseDown = [&p](const auto&) { p.lblHr_MouseDown(); };
    p.lblHr.MouseUp = [&p](const auto&) { p.lblHr_MouseUp(); };
    p.lblMin.MouseDown = [&p](const auto&) { p.lblMin_MouseDown(); };
    p.lblMin.MouseUp = [&p](const auto&) { p.lblMin_MouseUp(); };
    p.cmdSet.Click = [&p] { p.cmdSet_Click(); };
}

} // namespace

FrmPlayer::FrmPlayer(ModMain& shared) : window(data()), modMain(shared) {
    Timer1.attach(window, tickInterval, false);
    window.add(Timer1);
    toolkit::layOut<W>(*this, window, controls, skinPicture);
    toolkit::setTexts<W>(*this, texts);
    connectEvents(*this);
    connectKeys(*this);
    createMenus(*this);
}

FrmPlayer::~FrmPlayer() = default;
