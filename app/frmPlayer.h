#pragma once

#include "mainwindow/alarm.h"
#include "movement/docking.h"
#include "playback/track_list.h"
#include "runtime/fixed.h"
#include "runtime/integers.h"
#include "toolkit/dir_list_box.h"
#include "toolkit/form.h"
#include "toolkit/image.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"
#include "toolkit/timer.h"

#include <memory>
#include <string>

class FrmPlaylist;
class Mpeg;
class clsSysTray;
struct ModMain;

namespace settings {
struct Fields;
}

/// The main window. It owns all track and playback state and every operation on it.
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

    // Playing. These operations keep their errors only where they say so.

    /// Starts the selected track from its beginning, or resumes a paused one. With an empty list it
    /// opens the file dialog first. Its errors stay inside it.
    void startfile();
    /// Picks files in the open dialog and starts the first of them.
    void openfiles();
    /// Picks a folder and adds every MP3 in it and below it, breadth first; starts nothing. A
    /// folder that can't be entered raises its error.
    void opendir();
    /// Removes the selected track; what sounds goes on.
    void clear();
    /// Empties the list; what sounds goes on.
    void clearall();

    /// Moves the selection on, by shuffle and repeat, and starts it.
    void nextfile();
    /// Moves the selection back, from the first entry to the last, and starts it.
    void prevfile();
    /// Stops and closes a paused track and lifts the pause keys.
    void unpause();
    /// Lifts the pause keys of both windows.
    void releasePauseImages();
    /// The clock of the program: texts, thumb, end of the track, alarm.
    void Timer1_Timer();
    void lblRepeat_Click();
    void lblShuffle_Click();
    void lblTimenow_Click();
    void mnuStop_Click();
    void pctstop_MouseUp();

    /// Pulls a window's place, in pixels, to the edges of the work area; X and Y apart.
    void frmMove(runtime::Int32& X, runtime::Int32& Y, toolkit::Form& frm);
    void frmMoveX(runtime::Int32& X, toolkit::Form& frm);
    void frmMoveY(runtime::Int32& Y, toolkit::Form& frm);

    /// The open keys' menu, from either window, and their late release.
    void popUpOpenMenu(toolkit::Form& from);
    void gSysTray_LButtonDblClk();
    void gSysTray_RButtonUP();

    toolkit::Menu mnuPopup;      ///< the tray menu
    toolkit::Menu mnuOpenDialog; ///< the choice behind the open keys

    /// Takes the icon from the tray, unloads the window, which saves the settings, and ends the
    /// process.
    [[noreturn]] void unloadmebaby();

    TrackPaths trackPaths;
    runtime::Int16 trackCount;           ///< number of tracks, also the next free index
    runtime::Fixed seekOffset;           ///< thumb offset on the seek bar, twips
    std::string lastFolder;              ///< folder of the last files opened
    runtime::Bool16 mouseHeld;           ///< a press is in progress; one flag for all of them
    runtime::Fixed trackLengthSeconds;   ///< as last asked of the device
    runtime::Fixed trackPositionSeconds; ///< as last asked, or as a seek wants it
    runtime::Bool16 showElapsed;         ///< the time text tells time played, not time to go
    runtime::Bool16 shuffleOn;
    runtime::Bool16 repeatOn;
    double volumeLevel = 0;         ///< level last sent to the wave device, 0 to 32767
    runtime::Int32 volumeThumbLeft; ///< `Left` of the volume thumb, twips
    runtime::Int16 alarmHour;
    runtime::Int16 alarmMinute;
    std::string savedTrackList; ///< leftover text of the latest list taken apart
    std::string lastOpenResult; ///< the latest open dialog's buffer as it came
    std::unique_ptr<clsSysTray> gSysTray;
    runtime::Fixed alarmTime; ///< fraction of a day, -1 when no alarm is armed

  private:
    void layOut();
    void Form_Load();
    void connectEvents();
    void connectKeys();
    void connectCoveredKeys();
    void connectSeekBar();
    void connectVolume();
    void connectAlarm();
    void connectDrag();
    void connectPlaylistKey();
    void createMenus();
    void Form_QueryUnload();
    /// For a handler that a dialog or a yield may have held up while the system closed the window:
    /// it must not go on in a closed player, nor bring it back.
    void endIfClosed() const;
    void showTrayIcon();
    void createWorkerControls();
    void takeCommandLine();

    std::string readSettingsLine();
    void takeSettings(const std::string& line);
    void applySettings(const std::string& line);
    void takeSavedTracks(const settings::Fields& fields);
    void writeSettings();

    void addTrack(const std::string& path, const std::string& title);
    void startOrResume();
    void openSelected();
    void moveThumb(toolkit::Twips left);

    void addPickedFiles(std::string& text);
    void addPickedFile(const std::string& path);
    void addPickedFolder(const runtime::DynamicArray<std::string>& pieces, runtime::Int16 n);

    enum class AfterEnd { GoesOn, Stopped };
    void showProgress();
    void followTrack();
    AfterEnd endOfTrack();

    void pctopen_MouseDown();
    void pctpause_MouseDown();
    void pctpausedown_MouseDown();
    void restoreWindow();
    void releaseOpenKeys();
    void collectFolders(const std::string& folder);
    void addTracksOfFolders();
    void closeGap(runtime::Int16 removed, runtime::Int16 count);

    void pctprogressbar_MouseDown();
    void pctprogressbar_MouseMove();
    void pctprogressbar_MouseUp();
    void clickSeekStrip(toolkit::Twips x);
    void keepPositionInTrack();
    void seekToPosition();
    void writeSeekTexts();

    void pctvolume_MouseDown();
    void pctvolume_MouseMove();
    void pctvolume_MouseUp();
    void stopVolumeAt(double level, std::int32_t left);
    void followVolumePointer();

    void pctalarm_MouseDown();
    void pctalarm_MouseUp();
    void pctalarmdown_MouseDown();
    void holdStep(toolkit::Label& label, runtime::Int16& value, const alarms::Steps& steps);
    void releaseStep(toolkit::Label& label);
    void cmdSet_Click();
    void armAlarm();
    void disarmAlarm();
    void closeAlarmKey();
    void showSwitches();
    void testAlarm();

    void Form_MouseDown(const toolkit::MouseArguments& at);
    void Form_MouseMove();
    void Form_MouseUp();
    void dragWithPlaylist(const docking::Place& raw, const docking::Place& list);
    void pctplaylist_MouseDown();
    void pctplaylistdown_MouseDown();
    runtime::Int16 shuffledIndex();

    [[nodiscard]] Mpeg& engine() const;
    [[nodiscard]] FrmPlaylist& playlist() const;

    ModMain& shared_;
    runtime::Int16 settingsFileNumber;
    bool closedBySystem = false;
    runtime::Fixed seekPressPosition; ///< position when the thumb was pressed, seconds
    runtime::Int32 seekPressLeft;     ///< `Left` of the thumb then, twips
    runtime::Int32 volumeCursorDelta; ///< pointer travel since the press as far as read, twips
    docking::Place dragStart;         ///< the window's place at the press
    docking::Place playlistStart;     ///< the playlist's place at the same press
    docking::Place drag;              ///< where the latest move puts the window
    runtime::Bool16 pendingDockX;     ///< found by the latest move; docks at the release
    runtime::Bool16 pendingDockY;
    std::unique_ptr<toolkit::DirListBox> DirTemp; ///< worker: sub-folders of one folder
    std::unique_ptr<toolkit::ListBox> ListDir;    ///< worker: the queue of folders of one walk
};
