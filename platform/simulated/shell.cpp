#include "platform/simulated/shell.h"

#include "platform/files.h"
#include "platform/simulated/window_state.h"
#include "platform/simulated/world.h"
#include "runtime/characters.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace simulated {
namespace {

using platform::OPENFILENAME;

std::string textOrNothing(const char* text) { return text == nullptr ? "" : text; }

std::optional<std::string> textIfAny(const char* text) {
    if (text == nullptr) return std::nullopt;
    return text;
}

std::string filterText(const char* filter) {
    if (filter == nullptr) return "";
    std::string text;
    while (*filter != '\0') {
        const std::size_t length = std::strlen(filter) + 1;
        text.append(filter, length);
        filter += length;
    }
    return text;
}

std::size_t nameStart(const std::string& path) { return path.rfind('\\') + 1; }

/// The folder without its last separator, except at a root.
std::string folderPart(const std::string& path) {
    const std::size_t start = nameStart(path);
    if (start == 0) misuse("a picked file needs a full path: " + path);
    const std::string folder = path.substr(0, start - 1);
    return folder.empty() || folder.back() == ':' ? path.substr(0, start) : folder;
}

std::string selectionText(const std::vector<std::string>& files) {
    if (files.size() == 1) return files.front() + '\0';
    const std::string folder = folderPart(files.front());
    std::string text = folder + '\0';
    for (const std::string& file : files) {
        if (folderPart(file) != folder) misuse("the picked files lie in several folders");
        text += file.substr(nameStart(file)) + '\0';
    }
    return text + '\0';
}

void fillTitle(OPENFILENAME& record, const std::string& name) {
    if (record.lpstrFileTitle == nullptr || runtime::characterCount(name) >= record.nMaxFileTitle)
        return;
    std::memcpy(record.lpstrFileTitle, name.c_str(), name.size() + 1);
}

/// In characters.
std::uint16_t offsetOf(const std::string& path, std::size_t bytes) {
    return static_cast<std::uint16_t>(runtime::characterCount(path.substr(0, bytes)));
}

bool confirm(OPENFILENAME& record, const std::vector<std::string>& files) {
    const bool several = files.size() > 1;
    if (several && (record.Flags & platform::OFN_ALLOWMULTISELECT) == 0)
        misuse("the dialog takes one file only");
    const std::string selection = selectionText(files);
    if (record.lpstrFile == nullptr || runtime::characterCount(selection) > record.nMaxFile)
        return false;
    std::memcpy(record.lpstrFile, selection.data(), selection.size());
    const std::string& first = files.front();
    const std::size_t start = several ? folderPart(first).size() + 1 : nameStart(first);
    record.nFileOffset = offsetOf(first, start);
    if (several) return true;
    const std::size_t dot = first.rfind('.');
    const bool extended = dot != std::string::npos && dot >= start;
    record.nFileExtension = extended ? offsetOf(first, dot + 1) : std::uint16_t{0};
    fillTitle(record, first.substr(start));
    return true;
}

bool fill(OPENFILENAME& record, const std::string& bytes) {
    if (record.lpstrFile == nullptr || runtime::characterCount(bytes) > record.nMaxFile)
        return false;
    std::copy(bytes.begin(), bytes.end(), record.lpstrFile);
    return true;
}

/// Runs a dialog that keeps its owner from the user.
template <class Script>
Script runDialog(platform::WindowHandle owner, std::vector<Script>& scripts) {
    std::vector<platform::WindowHandle> owners;
    if (owner != 0) {
        const platform::WindowHandle parent = existing(owner).parent;
        owners.push_back(parent == 0 ? owner : parent);
    }
    const Disabled disabled(owners);
    run();
    if (scripts.empty()) return {};
    Script script = std::move(scripts.front());
    scripts.erase(scripts.begin());
    if (script.action) script.action();
    return script;
}

} // namespace

void Dialogs::pickFiles(const std::vector<std::string>& files, Action action) {
    if (files.empty()) misuse("an open dialog confirms at least one file");
    openScripts.push_back({files, std::nullopt, std::move(action)});
}

void Dialogs::cancelFiles(Action action) {
    openScripts.push_back({{}, std::nullopt, std::move(action)});
}

void Dialogs::fillBuffer(const std::string& bytes, Action action) {
    openScripts.push_back({{}, bytes, std::move(action)});
}

void Dialogs::pickFolder(const std::string& folder, Action action) {
    folderScripts.push_back({folder, std::move(action)});
}

void Dialogs::cancelFolder(Action action) {
    folderScripts.push_back({std::nullopt, std::move(action)});
}

void Tray::send(std::int32_t code) const {
    constexpr std::uint32_t wantsMessages = 1;
    if (!icon) misuse("there is no tray icon");
    if ((icon->uFlags & wantsMessages) == 0) return;
    const auto tell = existing(icon->hWnd).trayCode;
    if (!tell) misuse("the tray icon's window is no hook window");
    tell(code);
    paintWaiting();
}

void Tray::clickLeft() const {
    send(513);
    send(514);
}

void Tray::doubleClick() const {
    clickLeft();
    send(515);
    send(514);
}

void Tray::pickFromMenu(const std::string& caption) const {
    if (!icon || !picked) misuse("there is no tray icon with a menu");
    const platform::MenuItem* entry = findEntry(menu, caption, 0);
    if (entry == nullptr) misuse("the tray's menu has no entry " + caption);
    picked(entry->id);
    paintWaiting();
}

void Tray::clickRight() const {
    send(516);
    send(517);
}

} // namespace simulated

namespace platform {
namespace {

constexpr std::size_t pathSize = 260; // characters, the nul included

} // namespace

using simulated::world;

bool GetOpenFileNameA(OPENFILENAME* record) {
    world.dialogs.opened.push_back({record->hwndOwner, simulated::textIfAny(record->lpstrTitle),
                                    simulated::filterText(record->lpstrFilter),
                                    simulated::textOrNothing(record->lpstrInitialDir),
                                    record->Flags, record->nMaxFile, record->lStructSize,
                                    simulated::textIfAny(record->lpstrDefExt)});
    simulated::note("open dialog");
    const auto script = simulated::runDialog(record->hwndOwner, world.dialogs.openScripts);
    if (script.buffer) return simulated::fill(*record, *script.buffer);
    return !script.files.empty() && simulated::confirm(*record, script.files);
}

std::int32_t SHBrowseForFolder(BROWSEINFO* record) {
    world.dialogs.foldersOpened.push_back(
        {record->hOwner, simulated::textOrNothing(record->lpszTitle), record->ulFlags});
    simulated::note("folder dialog");
    const auto script = simulated::runDialog(record->hOwner, world.dialogs.folderScripts);
    if (!script.folder) return 0;
    if (runtime::characterCount(*script.folder) >= pathSize) {
        messageBox("The path of this folder is too long:\n" + pathForPeople(*script.folder),
                   simulated::textOrNothing(record->lpszTitle), MessageIcon::None);
        return 0;
    }
    world.dialogs.items.push_back(*script.folder);
    return static_cast<std::int32_t>(world.dialogs.items.size());
}

bool SHGetPathFromIDList(std::int32_t item, char* path) {
    const auto& items = world.dialogs.items;
    if (item < 1 || static_cast<std::size_t>(item) > items.size()) return false;
    const std::string& folder = items[static_cast<std::size_t>(item) - 1];
    if (folder.empty()) return false;
    std::memcpy(path, folder.c_str(), folder.size() + 1);
    return true;
}

void setTrayMenu(const std::vector<MenuItem>& items, std::function<void(std::int32_t)> picked) {
    world.tray.menu = items;
    world.tray.picked = std::move(picked);
}

bool Shell_NotifyIconA(std::uint32_t message, NOTIFYICONDATA* record) {
    world.tray.calls.push_back({message, *record});
    simulated::note("tray " + std::to_string(message));
    simulated::existing(record->hWnd);
    const bool adds = message == NIM_ADD;
    if (!world.tray.present || message > NIM_DELETE || adds == world.tray.icon.has_value())
        return false;
    if (message == NIM_DELETE)
        world.tray.icon.reset();
    else
        world.tray.icon = *record;
    return true;
}

} // namespace platform
