#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "playback/track_list.h"
#include "runtime/text.h"
#include "shell/COpenDirDialog.h"
#include "shell/COpenFileDialog.h"
#include "shell/menus.h"
#include "toolkit/dir_list_box.h"
#include "toolkit/files.h"

#include <cstdint>
#include <string>

namespace {

constexpr std::int16_t pickedBufferSize = 16384;
constexpr std::int32_t severalFilesInTheNewDialog = 524288 + 512;

/// The filter in the system's form: pairs ended by nuls, and one nul more.
const std::string audioFilter = {"Supported audio\0*.MP3;*.wav;\0", 29};

using Pieces = runtime::DynamicArray<std::string>;

void addPickedFile(FrmPlayer& player, const std::string& path) {
    const std::string title = runtime::fileTitleOf(path);
    addCountedTrack(player, path, title);
    player.lastFolder = path.substr(0, path.size() - title.size());
    player.playlist().List1.ListIndex(player.trackCount - 1);
}

/// The first piece is the folder, the others are bare names in the dialog's order.
void addPickedFolder(FrmPlayer& player, const Pieces& pieces, runtime::Int16 n) {
    player.lastFolder = pieces[0];
    player.savedTrackList = player.lastFolder + '\0';
    for (runtime::Int16 i = 1; i < n; i += 1) {
        player.savedTrackList += pieces[i] + '\0';
        addCountedTrack(player, player.lastFolder + "\\" + pieces[i], pieces[i]);
    }
    toolkit::ListBox& list = player.playlist().List1;
    list.ListIndex(list.ListCount() - n + 1);
}

/// The picked folder and all below it, breadth first: the queue grows while it is walked.
void collectFolders(FrmPlayer& player, const std::string& folder) {
    toolkit::ListBox& queue = *player.ListDir;
    toolkit::DirListBox& children = *player.DirTemp;
    queue.Clear();
    queue.AddItem(folder);
    for (runtime::Int16 i = 0; i != queue.ListCount(); i += 1) {
        children.Path(queue.List(i));
        for (runtime::Int16 child = 0; child < children.ListCount(); child += 1)
            queue.AddItem(children.List(child));
    }
}

void addTracksOfFolders(FrmPlayer& player) {
    const toolkit::ListBox& queue = *player.ListDir;
    for (runtime::Int16 k = 0; k < queue.ListCount(); k += 1) {
        const std::string folder = queue.List(k);
        const std::string prefix = folder.ends_with('\\') ? folder : folder + "\\";
        for (const std::string& name : toolkit::Files::Dir(folder, ".mp3"))
            addTrack(player, prefix + name, name);
    }
}

} // namespace

void FrmPlayer::openfiles() {
    COpenFileDialog dialog;
    dialog.MaxFileSize(pickedBufferSize);
    dialog.Filter(audioFilter + '\0');
    dialog.Flags(severalFilesInTheNewDialog);
    dialog.DialogTitle("Open File - Orvan Music Player");
    dialog.InitialDir(lastFolder);
    dialog.ShowOpen();
    lastOpenResult = dialog.FileName();
    std::string picked = lastOpenResult;
    addPickedFiles(picked);
    if (!dialog.FileName().empty()) startfile();
}

void FrmPlayer::addPickedFiles(std::string& text) {
    const runtime::Int32 limit(text.size());
    Pieces pieces;
    runtime::Int16 n = 0;
    for (runtime::Int32 round = 0; round < limit; round += 1) {
        const std::string piece = runtime::nextField(text, '\0');
        if (piece.empty()) break;
        pieces.resizeKeeping(n);
        pieces[n] = piece;
        n += 1;
    }
    if (n == 1) addPickedFile(*this, pieces[0]);
    if (n >= 2) addPickedFolder(*this, pieces, n);
    savedTrackList += '\0';
}

void FrmPlayer::opendir() {
    COpenDirDialog dialog;
    const std::string folder = dialog.BrowseForFolder(window, "Browse for folder");
    window.endIfGone();
    if (!folder.empty()) {
        collectFolders(*this, folder);
        addTracksOfFolders(*this);
    }
    releaseOpenKeys(*this);
}
