#pragma once

#include "runtime/bool16.h"
#include "runtime/integers.h"
#include "toolkit/form.h"
#include "toolkit/image.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/picture_box.h"

struct ModMain;

/// The playlist window. It holds the list, its own keys and the dock flags, and no logic of its
/// own: its keys call into frmPlayer. Interface thread.
class FrmPlaylist {
  public:
    explicit FrmPlaylist(ModMain& shared);

    toolkit::PictureBox pctLboxUpDown, pctLBoxDownDown, pctNone, pctLBoxUpUp, pctLBoxDownUp;
    toolkit::PictureBox pctClearAll, pctClear;
    toolkit::ListBox List1;
    toolkit::Label lblTitle, lblPlaying;
    toolkit::Image pctPlaylistQuitDown, pctPlaylistMini, pctPlaylistMiniDown, pctPlaylistQuit;
    toolkit::Image pctPlsOpenDown, pctPlsPlayDown, pctPlsStopDown, pctPlsNextDown, pctPlsPrevDown;
    toolkit::Image pctPlsOpen, pctPlsPlay, pctPlsStop, pctPlsNext, pctPlsPrev;
    toolkit::Image pctPlsPause, pctPlsPauseDown;

    // Declared behind its controls: it is taken down before them.
    toolkit::Form window;

    void Form_MouseDown();
    void Form_MouseMove();
    void Form_MouseUp();
    /// The stop key's release, behind the flip of the key.
    void pctPlsStop_MouseUp();
    void pctPlsPause_MouseDown();
    void pctPlsPauseDown_MouseDown();

    /// Pulls a window's place, in pixels, to the edges of the work area.
    void frmMove(runtime::Int32& X, runtime::Int32& Y, toolkit::Form& frm);

    ModMain& modMain;
    runtime::Bool16 playlistdockX; ///< docked above or below the main window
    runtime::Bool16 playlistdockY; ///< docked to the left or right of the main window
    runtime::Bool16 playlistDragging;
    runtime::Int32 dragStartLeft; ///< the window's place at the press, pixels
    runtime::Int32 dragStartTop;
    runtime::Int32 dragLeft; ///< where the latest move puts it
    runtime::Int32 dragTop;
};
