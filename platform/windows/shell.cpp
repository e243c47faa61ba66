#include "platform/shell.h"

#include "platform/characters.h"
#include "platform/window.h"
#include "platform/windows/current_folder.h"
#include "platform/windows/dialog_texts.h"
#include "platform/windows/disabled.h"
#include "platform/windows/handles.h"
#include "platform/windows/system_dialog.h"
#include "platform/windows/utf16.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {
namespace {

#ifndef _WIN64
// The seam's records have the layout that the system's have here.
static_assert(sizeof(NOTIFYICONDATA) == 88);
static_assert(sizeof(OPENFILENAME) == 76);
static_assert(sizeof(BROWSEINFO) == 32);
static_assert(sizeof(BROWSEINFO) == sizeof(BROWSEINFOA));
#endif

// The system's records are wide in their texts, and in programs of 64 bits in their handles too, so
// every record is handed over member by member.

std::wstring wideText(const char* text) { return toWide(text == nullptr ? "" : text); }

/// Room for a text of so many characters, filled with nuls.
std::wstring roomFor(std::uint32_t characters) {
    return std::wstring(unitsOfCharacter * characters + 1, L'\0');
}

/// What the open dialog's record says, in the system's texts.
struct OpenTexts {
    explicit OpenTexts(const OPENFILENAME& record)
        : filter(wideTexts(record.lpstrFilter)), file(roomFor(record.nMaxFile)),
          fileTitle(roomFor(record.nMaxFileTitle)), folder(wideText(record.lpstrInitialDir)),
          title(wideText(record.lpstrTitle)), extension(wideText(record.lpstrDefExt)) {
        if (record.lpstrFile != nullptr)
            toWide(record.lpstrFile).copy(file.data(), file.size() - 1);
    }

    std::wstring filter;
    std::wstring file;
    std::wstring fileTitle;
    std::wstring folder;
    std::wstring title;
    std::wstring extension;
};

OPENFILENAMEW systemRecord(const OPENFILENAME& record, OpenTexts& texts) {
    OPENFILENAMEW system = {};
    system.lStructSize = OPENFILENAME_SIZE_VERSION_400W;
    system.hwndOwner = windowOf(record.hwndOwner);
    system.lpstrFilter = texts.filter.empty() ? nullptr : texts.filter.c_str();
    system.nFilterIndex = record.nFilterIndex;
    system.lpstrFile = texts.file.data();
    system.nMaxFile = static_cast<DWORD>(texts.file.size());
    system.lpstrFileTitle = texts.fileTitle.data();
    system.nMaxFileTitle = static_cast<DWORD>(texts.fileTitle.size());
    system.lpstrInitialDir = texts.folder.c_str();
    system.lpstrTitle = texts.title.c_str();
    system.Flags = record.Flags;
    system.lpstrDefExt = texts.extension.c_str();
    return system;
}

/// The offset of a unit of a text, counted in characters.
std::uint16_t offsetOf(std::wstring_view text, WORD unit) {
    return static_cast<std::uint16_t>(characterCount(fromWide(text.substr(0, unit))));
}

/// False where the selection has more characters than the record's buffer.
bool takeOver(OPENFILENAME& record, const OPENFILENAMEW& system, const OpenTexts& texts) {
    const std::wstring_view selection = selectionIn(texts.file);
    if (!writeCharacters(selection, record.lpstrFile, record.nMaxFile)) return false;
    if (record.lpstrFileTitle != nullptr)
        writeCharacters(texts.fileTitle.c_str(), record.lpstrFileTitle, record.nMaxFileTitle);
    record.nFilterIndex = system.nFilterIndex;
    record.Flags = system.Flags;
    record.nFileOffset = offsetOf(selection, system.nFileOffset);
    record.nFileExtension = offsetOf(selection, system.nFileExtension);
    return true;
}

NOTIFYICONDATAW systemRecord(const NOTIFYICONDATA& record) {
    NOTIFYICONDATAW system = {};
    system.cbSize = NOTIFYICONDATAW_V1_SIZE;
    system.hWnd = windowOf(record.hWnd);
    system.uID = record.uID;
    system.uFlags = record.uFlags;
    system.uCallbackMessage = record.uCallbackMessage;
    system.hIcon = handleOf<HICON>(record.hIcon);
    constexpr std::size_t longest = 63;
    const std::string_view tip(record.szTip, sizeof record.szTip);
    toWide(tip.substr(0, tip.find('\0'))).copy(system.szTip, longest);
    return system;
}

/// Items that dialogs gave, under numbers that count from 1.
std::vector<LPITEMIDLIST>& items() {
    static std::vector<LPITEMIDLIST> all;
    return all;
}

/// Empty for what has no place in the file system.
std::wstring pathOfItem(LPCITEMIDLIST item) {
    constexpr DWORD longest = 32768;
    std::wstring path(longest, L'\0');
    if (SHGetPathFromIDListEx(item, path.data(), longest, GPFIDL_DEFAULT) == FALSE) return {};
    return path.substr(0, path.find(L'\0'));
}

/// Size of the buffer that a chosen folder's path has to fit, in characters, its nul included.
constexpr std::uint32_t pathSize = 260;

/// What fits no buffer isn't let in.
bool isShortEnough(LPCITEMIDLIST item, const char* title) {
    const std::string path = fromWide(pathOfItem(item));
    if (characterCount(path) < pathSize) return true;
    messageBox("The path of this folder is too long:\n" + path, title == nullptr ? "" : title,
               MessageIcon::None);
    return false;
}

/// The dialog; null on cancel.
LPITEMIDLIST browse(const BROWSEINFO& record) {
    const std::wstring title = wideText(record.lpszTitle);
    BROWSEINFOW system = {};
    system.hwndOwner = windowOf(record.hOwner);
    system.lpszTitle = title.c_str();
    system.ulFlags = record.ulFlags;
    const CurrentFolderKept folder;
    const KeyboardReturned keyboard;
    Disabled owner(onlyWindow(system.hwndOwner));
    const SystemDialog dialog(owner);
    return ::SHBrowseForFolderW(&system);
}

} // namespace

bool GetOpenFileNameA(OPENFILENAME* record) {
    OpenTexts texts(*record);
    OPENFILENAMEW system = systemRecord(*record, texts);
    const CurrentFolderKept folder;
    return ::GetOpenFileNameW(&system) != FALSE && takeOver(*record, system, texts);
}

std::int32_t SHBrowseForFolder(BROWSEINFO* record) {
    const LPITEMIDLIST item = browse(*record);
    if (item == nullptr || !isShortEnough(item, record->lpszTitle)) return 0;
    items().push_back(item);
    return static_cast<std::int32_t>(items().size());
}

bool SHGetPathFromIDList(std::int32_t item, char* path) {
    if (item <= 0 || item > std::ssize(items())) return false;
    const std::wstring text = pathOfItem(items()[static_cast<std::size_t>(item) - 1]);
    return !text.empty() && writeCharacters({text.c_str(), text.size() + 1}, path, pathSize);
}

// The tray shows no menu of its own.
// NOLINTBEGIN(performance-unnecessary-value-param): the seam hands it over.
void setTrayMenu(const std::vector<MenuItem>& /*items*/,
                 std::function<void(std::int32_t)> /*picked*/) {}
// NOLINTEND(performance-unnecessary-value-param)

bool Shell_NotifyIconA(std::uint32_t message, NOTIFYICONDATA* record) {
    NOTIFYICONDATAW system = systemRecord(*record);
    return ::Shell_NotifyIconW(message, &system) != FALSE;
}

} // namespace platform
