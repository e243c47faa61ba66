#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "platform/files.h"
#include "playback/text_helpers.h"
#include "runtime/dynamic_array.h"
#include "shell/COpenDirDialog.h"
#include "shell/COpenFileDialog.h"

namespace {

constexpr std::int16_t pickedBufferSize = 16384;
constexpr std::int32_t severalFilesInTheNewDialog = 524288 + 512;

/// The filter in the system's form: pairs ended by nuls, and one nul more.
const std::string audioFilter = {"Supported audio\0*.MP3;*.wav;\0", 29};

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
    runtime::DynamicArray<std::string> pieces;
    runtime::Int16 n = 0;
    for (runtime::Int32 round = 0; round < limit; round += 1) {
        const std::string piece = nextField(text, '\0');
        if (piece.empty()) break;
        pieces.resizeKeeping(n);
        pieces[n] = piece;
        n += 1;
    }
    if (n == 1) addPickedFile(pieces[0]);
    if (n >= 2) addPickedFolder(pieces, n);
    savedTrackList += '\0';
}

void FrmPlayer::addPickedFile(const std::string& path) {
    trackPaths.resizeKeeping(trackCount);
    trackPaths[trackCount] = path;
    trackCount += 1;
    const std::string title = fileTitleOf(path);
    playlist().List1.AddItem(title);
    lastFolder = path.substr(0, path.size() - title.size());
    playlist().List1.ListIndex(trackCount - 1);
}

/// The first piece is the folder, the others are bare names in the dialog's order.
void FrmPlayer::addPickedFolder(const runtime::DynamicArray<std::string>& pieces,
                                runtime::Int16 n) {
    lastFolder = pieces[0];
    savedTrackList = lastFolder + '\0';
    for (runtime::Int16 i = 1; i < n; i += 1) {
        savedTrackList += pieces[i] + '\0';
        trackPaths.resizeKeeping(trackCount);
        trackPaths[trackCount] = lastFolder + "\\" + pieces[i];
        trackCount += 1;
        playlist().List1.AddItem(pieces[i]);
    }
    playlist().List1.ListIndex(playlist().List1.ListCount() - n + 1);
}

void FrmPlayer::opendir() {
    COpenDirDialog dialog;
    const std::string folder = dialog.BrowseForFolder(window, "Browse for folder");
    endIfClosed();
    if (!folder.empty()) {
        collectFolders(folder);
        addTracksOfFolders();
    }
    releaseOpenKeys();
}

/// The picked folder and all below it, breadth first: the queue grows while it is walked.
void FrmPlayer::collectFolders(const std::string& folder) {
    ListDir->Clear();
    ListDir->AddItem(folder);
    for (runtime::Int16 i = 0; i != ListDir->ListCount(); i += 1) {
        DirTemp->Path(ListDir->List(i));
        for (runtime::Int16 child = 0; child < DirTemp->ListCount(); child += 1)
            ListDir->AddItem(DirTemp->List(child));
    }
}

void FrmPlayer::addTracksOfFolders() {
    for (runtime::Int16 k = 0; k < ListDir->ListCount(); k += 1) {
        const std::string folder = ListDir->List(k);
        const std::string prefix = folder.ends_with('\\') ? folder : folder + "\\";
        const platform::FolderListing files = platform::listFiles(folder, ".mp3");
        runtime::raiseIfFailed(files.error);
        for (const std::string& name : files.names) {
            playlist().List1.AddItem(name);
            trackPaths.resizeKeeping(trackCount);
            trackPaths[trackCount] = prefix + name;
            trackCount += 1;
        }
    }
}
