#pragma once

#include "platform/shell.h"
#include "platform/window.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// What the user does in menus, dialogs, message boxes and with the tray icon. Scripts are laid in
/// before and used up in order, one for each that opens; without one a menu or dialog is
/// cancelled. The action of a script runs while its menu, dialog or box is open.
namespace simulated {

using Action = std::function<void()>;

struct Menus {
    struct Script {
        std::string caption;
        std::int32_t id = 0;
        Action action;
    };

    /// The next menu: picks the entry with this caption or id, or none.
    void choose(const std::string& caption, Action action = {});
    void choose(std::int32_t id, Action action = {});
    void dismiss(Action action = {});

    std::vector<std::vector<platform::MenuItem>> shown; ///< every menu that opened
    std::vector<Script> scripts;
};

struct Dialogs {
    struct OpenDialog {
        platform::WindowHandle owner = 0;
        std::optional<std::string> title; ///< nothing for a null pointer
        std::string filter;               ///< with its nuls, up to the last of them
        std::string initialFolder;
        std::uint32_t flags = 0;
        std::uint32_t bufferSize = 0;
        std::uint32_t recordSize = 0;
        std::optional<std::string> defaultExtension; ///< nothing for a null pointer
    };
    struct FolderDialog {
        platform::WindowHandle owner = 0;
        std::string title;
        std::uint32_t flags = 0;
    };
    struct OpenScript {
        std::vector<std::string> files;
        std::optional<std::string> buffer;
        Action action;
    };
    struct FolderScript {
        std::optional<std::string> folder;
        Action action;
    };

    /// The next open dialog: confirms these files, which lie in one folder, or cancels.
    void pickFiles(const std::vector<std::string>& files, Action action = {});
    void cancelFiles(Action action = {});
    /// The same with a result buffer that starts with these bytes, whatever they are.
    void fillBuffer(const std::string& bytes, Action action = {});
    /// The next folder dialog: confirms a folder (an empty one is an item without a path), or
    /// cancels.
    void pickFolder(const std::string& folder, Action action = {});
    void cancelFolder(Action action = {});

    std::vector<OpenDialog> opened;          ///< every open dialog
    std::vector<FolderDialog> foldersOpened; ///< every folder dialog
    std::vector<std::string> items;          ///< folders chosen; an item is its place, from 1
    std::vector<OpenScript> openScripts;
    std::vector<FolderScript> folderScripts;
};

struct Messages {
    struct Message {
        std::string text;
        std::string title;
        platform::MessageIcon icon = platform::MessageIcon::None;
    };

    /// Runs while the next message box, or the fatal message, is open.
    void whileOpen(Action action) { scripts.push_back(std::move(action)); }

    std::vector<Message> shown;
    std::vector<std::string> fatal; ///< texts of fatal messages
    std::vector<Action> scripts;
};

struct Tray {
    struct Call {
        std::uint32_t message = 0;
        platform::NOTIFYICONDATA record;
    };

    /// The user's hands on the icon; without one the test fails.
    void send(std::int32_t code) const;
    void clickLeft() const;
    void doubleClick() const;
    void clickRight() const;

    /// Picks an entry, by its caption, of the menu that the desktop shows for the icon.
    void pickFromMenu(const std::string& caption) const;

    bool present = true;                  ///< false: no tray, every call fails
    std::vector<platform::MenuItem> menu; ///< as the player set it
    std::function<void(std::int32_t)> picked;
    std::optional<platform::NOTIFYICONDATA> icon;
    std::vector<Call> calls;
};

} // namespace simulated
