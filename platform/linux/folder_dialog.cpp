#include "platform/files.h"
#include "platform/linux/dialog_buffers.h"
#include "platform/linux/file_dialogs.h"
#include "platform/shell.h"
#include "platform/window.h"
#include "runtime/characters.h"

#include <QDir>
#include <QFile>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace platform {

namespace {

/// Size of the buffers that `SHBrowseForFolder` and `SHGetPathFromIDList` fill, in characters.
constexpr std::uint32_t pathSize = 260;

/// What fits no buffer isn't let in.
bool isShortEnough(const std::string& folder, const char* title) {
    if (runtime::characterCount(folder) < pathSize) return true;
    messageBox("The path of this folder is too long:\n" + pathForPeople(folder),
               title == nullptr ? "" : title, MessageIcon::None);
    return false;
}

/// The folders chosen so far; an item is its place, counted from 1. Items are never released.
std::vector<std::string>& chosenFolders() {
    static std::vector<std::string> folders;
    return folders;
}

} // namespace

std::int32_t SHBrowseForFolder(BROWSEINFO* record) {
    FileRequest request;
    request.owner = record->hOwner;
    if (record->lpszTitle != nullptr) request.title = record->lpszTitle;
    request.folders = true;
    request.folder = QFile::encodeName(QDir::homePath()).toStdString();
    const std::vector<std::string> paths = chooseFiles(request);
    if (paths.empty() || !isShortEnough(paths.front(), record->lpszTitle)) return 0;
    if (record->pszDisplayName != nullptr)
        writeText(bareName(paths.front()), record->pszDisplayName, pathSize);
    chosenFolders().push_back(paths.front());
    return static_cast<std::int32_t>(chosenFolders().size());
}

bool SHGetPathFromIDList(std::int32_t item, char* path) {
    const std::vector<std::string>& folders = chosenFolders();
    const auto index = static_cast<std::size_t>(item) - 1;
    // A failure leaves the empty text, which is no folder, rather than no text at all.
    *path = '\0';
    return index < folders.size() && writeText(folders[index], path, pathSize);
}

} // namespace platform
