#include "platform/shell.h"

#include "platform/linux/dialog_buffers.h"
#include "platform/linux/file_dialogs.h"
#include "platform/linux/paths.h"
#include "platform/linux/tray_icon.h"

#include <QSystemTrayIcon>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace platform {

namespace {

FileRequest requestOf(const OPENFILENAME& record) {
    FileRequest request;
    request.owner = record.hwndOwner;
    if (record.lpstrTitle != nullptr) request.title = record.lpstrTitle;
    request.several = (record.Flags & OFN_ALLOWMULTISELECT) != 0;
    request.filters = parseNameFilters(record.lpstrFilter);
    request.filter = record.nFilterIndex == 0 ? 0 : record.nFilterIndex - 1;
    if (record.lpstrInitialDir != nullptr && *record.lpstrInitialDir != '\0')
        request.folder = toHost(record.lpstrInitialDir);
    return request;
}

using Owner = std::pair<WindowHandle, std::uint32_t>;
using TrayIcons = std::map<Owner, std::unique_ptr<TrayIcon>>;

TrayIcons& trayIcons() {
    // Never destroyed: at the end of the process the window system is gone before statics are.
    static TrayIcons& icons = *new TrayIcons;
    return icons;
}

bool add(const Owner& owner, const NOTIFYICONDATA& record) {
    // An icon made without a tray would show up later, whenever a tray does.
    if (trayIcons().contains(owner) || !QSystemTrayIcon::isSystemTrayAvailable()) return false;
    const auto& icon = trayIcons()[owner] = std::make_unique<TrayIcon>(owner.first);
    icon->apply(record);
    icon->show();
    return true;
}

bool modify(const Owner& owner, const NOTIFYICONDATA& record) {
    const auto entry = trayIcons().find(owner);
    if (entry == trayIcons().end()) return false;
    entry->second->apply(record);
    return true;
}

} // namespace

bool GetOpenFileNameA(OPENFILENAME* record) {
    const std::vector<std::string> paths = chooseFiles(requestOf(*record));
    SelectionOffsets offsets;
    if (!writeSelection(paths, record->lpstrFile, record->nMaxFile, offsets)) return false;
    record->nFileOffset = offsets.name;
    record->nFileExtension = offsets.extension;
    if (paths.size() == 1 && record->lpstrFileTitle != nullptr)
        writeText(bareName(paths.front()), record->lpstrFileTitle, record->nMaxFileTitle);
    return true;
}

bool Shell_NotifyIconA(std::uint32_t message, NOTIFYICONDATA* record) {
    const Owner owner(record->hWnd, record->uID);
    switch (message) {
    case NIM_ADD:
        return add(owner, *record);
    case NIM_MODIFY:
        return modify(owner, *record);
    case NIM_DELETE:
        return trayIcons().erase(owner) != 0;
    default:
        return false;
    }
}

} // namespace platform
