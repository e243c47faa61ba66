#pragma once

#include "platform/types.h"

#include <cstdint>

/// Shell and dialog operations with the system's own names and records. Interface thread only.
/// All texts end in a nul and are in the player's path form where they are paths.
namespace platform {

/// The open dialog's record. Members keep the system's order.
struct OPENFILENAME {
    std::uint32_t lStructSize = 0;
    WindowHandle hwndOwner = 0;
    std::int32_t hInstance = 0;
    const char* lpstrFilter = nullptr; ///< pairs of label and patterns, each ended by a nul
    char* lpstrCustomFilter = nullptr;
    std::uint32_t nMaxCustFilter = 0;
    std::uint32_t nFilterIndex = 0;
    char* lpstrFile =
        nullptr; ///< receives the selection: `nMaxFile` characters of up to four bytes
    std::uint32_t nMaxFile = 0;
    char* lpstrFileTitle =
        nullptr; ///< receives the bare name: `nMaxFileTitle` characters, likewise
    std::uint32_t nMaxFileTitle = 0;
    const char* lpstrInitialDir = nullptr;
    const char* lpstrTitle = nullptr;
    std::uint32_t Flags = 0;
    std::uint16_t nFileOffset = 0;
    std::uint16_t nFileExtension = 0;
    const char* lpstrDefExt = nullptr;
    std::int32_t lCustData = 0;
    void* lpfnHook = nullptr;
    const char* lpTemplateName = nullptr;
};

inline constexpr std::uint32_t OFN_ALLOWMULTISELECT = 512;
inline constexpr std::uint32_t OFN_EXPLORER = 524288;

/// Runs the modal open dialog; events and ticks go on. True when a selection was confirmed and
/// fits the buffer, its nuls included. One file: its path and a nul. Several: the folder, a nul,
/// then each bare name and a nul, then one more nul. What lies behind the last nul stays as it was.
bool GetOpenFileNameA(OPENFILENAME* record);

/// The folder dialog's record. Members keep the system's order.
struct BROWSEINFO {
    WindowHandle hOwner = 0;
    std::int32_t pidlRoot = 0;
    char* pszDisplayName = nullptr;
    const char* lpszTitle = nullptr;
    std::uint32_t ulFlags = 0;
    void* lpfn = nullptr;
    std::int32_t lParam = 0;
    std::int32_t iImage = 0;
};

/// Runs the modal folder dialog, which disables its owner only. The chosen item, or 0 on cancel.
/// A folder whose path is longer than 259 characters is refused with a message, and counts as a
/// cancel.
std::int32_t SHBrowseForFolder(BROWSEINFO* record);

/// Writes the path of a chosen item, ended by a nul, into a buffer of 260 characters of up to four
/// bytes.
bool SHGetPathFromIDList(std::int32_t item, char* path);

/// The tray icon's record. Members keep the system's order.
struct NOTIFYICONDATA {
    std::uint32_t cbSize = 0;
    WindowHandle hWnd = 0;
    std::uint32_t uID = 0;
    std::uint32_t uFlags = 0;
    std::uint32_t uCallbackMessage = 0;
    std::int32_t hIcon = 0;
    char szTip[64] = {};
};

inline constexpr std::uint32_t NIM_ADD = 0;
inline constexpr std::uint32_t NIM_MODIFY = 1;
inline constexpr std::uint32_t NIM_DELETE = 2;

/// Adds, changes or removes the tray icon. The icon's mouse codes reach the hook window of `hWnd`
/// (see `createHookWindow` in window.h). False when there is no tray or no such icon.
bool Shell_NotifyIconA(std::uint32_t message, NOTIFYICONDATA* record);

} // namespace platform
