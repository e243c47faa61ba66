#pragma once

#include "runtime/bool16.h"
#include "runtime/dynamic_array.h"
#include "runtime/fixed.h"
#include "runtime/integers.h"
#include "toolkit/form.h"
#include "toolkit/image.h"
#include "toolkit/label.h"
#include "toolkit/menu.h"
#include "toolkit/timer.h"

#include <memory>
#include <string>

class FrmPlaylist;
class Mpeg;
class clsSysTray;
struct ModMain;

namespace toolkit {
class DirListBox;
class ListBox;
} // namespace toolkit

/// The main window: its controls, its events, and all track and playback state with the operations
/// on it. The rules behind them are functions of the folder that each concerns. Interface thread.
class FrmPlayer {
  public:
    explicit FrmPlayer(ModMain& shared);
    ~FrmPlayer();
    FrmPlayer(const FrmPlayer&) = delete;
    FrmPlayer& operator=(const FrmPlayer&) = delete;

    toolkit::Timer Timer1;
    toolkit::Label lblRepeat, lblShuffle;
    toolkit::Image pctvolume, pctprogressbar, pctprogressbardown;
    toolkit::Image pctprevdown, pctnextdown, pctstopdown, pctplaydown, pctopendown, pctpausedown;
    toolkit::Image pctalarmdown, pctplaylistdown;
    toolkit::Image pctpause, pctopen, pctPlay, pctstop, pctnext, pctplaylist, pctprev, pctalarm;
    toolkit::Image pctminimisedown, pctquitdown, pctquit, pctminimise;
    toolkit::Label cmdSet, lblMin, lblHr, lblTimer, lblshowtime, lblTimenow;

    // Declared behind its controls: it is taken down before them.
    toolkit::Form window;

    // The operations. Errors leave them unless they say otherwise.

    /// Starts the selected track from its beginning, or resumes a paused one. With an empty list it
    /// opens the file dialog first. Its errors stay inside it.
    void startfile();
    /// Moves the selection on, by shuffle and repeat, and starts it.
    void nextfile();
    /// Moves the selection back, from the first entry to the last, and starts it.
    void prevfile();
    /// Stops and closes a paused track and lifts the pause keys.
    void unpause();
    /// Picks files in the open dialog and starts the first of them.
    void openfiles();
    /// Picks a folder and adds every MP3 in it and below it, breadth first; starts nothing. A
    /// folder that can't be entered raises its error.
    void opendir();
    /// Takes the open dialog's result apart and adds its tracks; `text` is used up.
    void addPickedFiles(std::string& text);
    /// Removes the selected track; what sounds goes on.
    void clear();
    /// Empties the list; what sounds goes on.
    void clearall();
    /// The first line of the settings file; empty, after a message, where it can't be read, and
    /// without one where there is none.
    std::string readSettingsLine();
    /// Takes the icon from the tray, unloads the window, which saves the settings, and ends the
    /// process.
    [[noreturn]] void unloadmebaby();

    /// Pulls a window's place, in pixels, to the edges of the work area; X and Y apart.
    void frmMove(runtime::Int32& X, runtime::Int32& Y, toolkit::Form& frm);
    void frmMoveX(runtime::Int32& X, toolkit::Form& frm);
    void frmMoveY(runtime::Int32& Y, toolkit::Form& frm);

    // The events.

    void Form_Load();
    void Form_QueryUnload();
    void Form_MouseDown(const toolkit::MouseArguments& at);
    void Form_MouseMove();
    void Form_MouseUp();
    /// The clock of the program: texts, thumb, end of the track, alarm.
    void Timer1_Timer();
    void lblRepeat_Click();
    void lblShuffle_Click();
    void lblTimenow_Click();
    void pctprogressbar_MouseDown();
    void pctprogressbar_MouseMove();
    void pctprogressbar_MouseUp();
    void pctvolume_MouseDown();
    void pctvolume_MouseMove();
    void pctvolume_MouseUp();
    /// The stop key's release; the end of the last track runs it too.
    void pctstop_MouseUp();
    void pctopen_MouseDown();
    void pctopen_MouseUp();
    void pctpause_MouseDown();
    void pctpausedown_MouseDown();
    void pctalarm_MouseDown();
    void pctalarm_MouseUp();
    void pctalarmdown_MouseDown();
    void lblHr_MouseDown();
    void lblHr_MouseUp();
    void lblMin_MouseDown();
    void lblMin_MouseUp();
    void cmdSet_Click();
    void pctplaylist_MouseDown();
    void pctplaylistdown_MouseDown();
    void mnuStop_Click();
    void gSysTray_LButtonDblClk();
    void gSysTray_RButtonUP();

    toolkit::Menu mnuPopup;      ///< the tray menu
    toolkit::Menu mnuOpenDialog; ///< the choice behind the open keys

    // What the other windows hang from.

    ModMain& modMain;
    /// The one engine; it exists once `Main` has begun.
    [[nodiscard]] Mpeg& engine() const;
    [[nodiscard]] FrmPlaylist& playlist() const;

    // The state. Booleans start false and numbers 0.

    /// The full path of each track, in list order; never allocated until the first track is added.
    /// Its upper bound may lie above the last track: only `trackCount` says what counts.
    runtime::DynamicArray<std::string> trackPaths;
    runtime::Int16 trackCount;           ///< number of tracks, also the next free index
    std::string lastFolder;              ///< folder of the last files opened
    std::string lastOpenResult;          ///< the latest open dialog's buffer as it came
    std::string savedTrackList;          ///< leftover text of the latest list taken apart
    runtime::Bool16 mouseHeld;           ///< a press is in progress; one flag for all of them
    runtime::Fixed trackLengthSeconds;   ///< as last asked of the device
    runtime::Fixed trackPositionSeconds; ///< as last asked, or as a seek wants it
    runtime::Bool16 showElapsed;         ///< the time text tells time played, not time to go
    runtime::Bool16 shuffleOn;
    runtime::Bool16 repeatOn;
    runtime::Fixed seekOffset;        ///< thumb offset on the seek bar, twips
    runtime::Fixed seekPressPosition; ///< position when the thumb was pressed, seconds
    runtime::Int32 seekPressLeft;     ///< `Left` of the thumb then, twips
    double volumeLevel = 0;           ///< level last sent to the wave device, 0 to 32767
    runtime::Int32 volumeThumbLeft;   ///< `Left` of the volume thumb, twips
    runtime::Int32 volumeCursorDelta; ///< pointer travel since the press as far as read, twips
    runtime::Int16 alarmHour;
    runtime::Int16 alarmMinute;
    runtime::Fixed alarmTime;     ///< fraction of a day, -1 when no alarm is armed
    runtime::Int32 dragStartLeft; ///< the window's place at the press, pixels
    runtime::Int32 dragStartTop;
    runtime::Int32 playlistStartLeft; ///< the playlist's place at the same press
    runtime::Int32 playlistStartTop;
    runtime::Int32 dragLeft; ///< where the latest move puts the window
    runtime::Int32 dragTop;
    runtime::Bool16 pendingDockX; ///< found by the latest move; docks at the release
    runtime::Bool16 pendingDockY;
    runtime::Int16 settingsFileNumber; ///< taken for each open, by reader and writer
    std::unique_ptr<clsSysTray> gSysTray;
    std::unique_ptr<toolkit::DirListBox> DirTemp; ///< worker: sub-folders of one folder
    std::unique_ptr<toolkit::ListBox> ListDir;    ///< worker: the queue of folders of one walk
};
