#include "app/modMain.h"

#include "app/window_shapes.h"
#include "mainwindow/remote.h"
#include "platform/regions.h"
#include "platform/system.h"
#include "playback/Mpeg.h"
#include "shell/AboutBox.h"
#include "toolkit/app.h"

#include <memory>

namespace {

/// Both windows have the same fixed size, in twips.
constexpr toolkit::Twips windowWidth = 4140;
constexpr toolkit::Twips windowHeight = 1230;

void shapeWindows(ModMain& program) {
    // A relic of an older shape, without effect on the screen; the sequence keeps it.
    platform::CreateRoundRectRgn(0, 0, 378, 220, 20, 20);
    shapeMainWindow(program.frmPlayer.window);
    shapePlaylistWindow(program.frmPlaylist.window);
}

} // namespace

ModMain::ModMain() : remote(std::make_unique<Remote>(frmPlayer)) {}
ModMain::~ModMain() = default;

void ModMain::Main() {
    if (toolkit::App::PrevInstance()) return;
    engine = std::make_unique<Mpeg>(*this);
    // The first touch loads the window: all of its Form_Load runs inside this line.
    frmPlayer.window.Width(windowWidth);
    frmPlayer.window.Height(windowHeight);
    frmPlaylist.window.Width(windowWidth);
    frmPlaylist.window.Height(windowHeight);
    frmPlayer.window.Show();
    frmPlaylist.window.Hide();
    platform::SystemParametersInfoA(platform::SPI_GETWORKAREA, 0, &workArea, 0);
    // Without a wave device the player carries on all the same.
    engine->DevicesPresent();
    shapeWindows(*this);
    remote->offer();
}

AboutBox& ModMain::aboutBox() {
    if (!aboutBox_) aboutBox_ = std::make_unique<AboutBox>();
    return *aboutBox_;
}

Mpeg& FrmPlayer::engine() const { return *modMain.engine; }

FrmPlaylist& FrmPlayer::playlist() const { return modMain.frmPlaylist; }
