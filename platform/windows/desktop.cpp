#include "platform/desktop.h"

#include "platform/device_pixels.h"
#include "platform/windows/display.h"
#include "platform/windows/utf16.h"
#include "platform/windows/win32.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {
namespace {

/// What stands behind the program's name, which may be in quotes.
std::wstring_view tailOf(std::wstring_view line) {
    const bool quoted = line.starts_with(L'"');
    const std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
    line.remove_prefix(end == std::wstring_view::npos ? line.size() : end + 1);
    const std::size_t first = line.find_first_not_of(L" \t");
    return first == std::wstring_view::npos ? std::wstring_view() : line.substr(first);
}

} // namespace

bool start(int /*argumentCount*/, char** /*arguments*/) {
    // No library is looked for in the current folder, which may be anyone's.
    SetDllDirectoryW(L"");
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_STANDARD_CLASSES | ICC_TAB_CLASSES};
    InitCommonControlsEx(&controls);
    // The shell's dialogs are made of objects.
    OleInitialize(nullptr);
    return true;
}

bool previousInstance() {
    // Kept until the process ends. A name without a prefix belongs to the user's session.
    static const bool previous = [] {
        const HANDLE mutex = CreateMutexW(nullptr, FALSE, L"Orvan Music Player");
        return mutex == nullptr || GetLastError() == ERROR_ALREADY_EXISTS;
    }();
    return previous;
}

std::string commandLineTail() { return fromWide(std::wstring(tailOf(GetCommandLineW()))); }

std::string applicationFolder() {
    std::wstring program(32768, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    std::wstring folder = program.substr(0, program.rfind(L'\\'));
    if (folder.ends_with(L':')) folder += L'\\';
    return fromWide(folder);
}

char decimalSign() {
    wchar_t sign[4] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, sign, 4);
    return sign[0] == L',' ? ',' : '.';
}

std::int32_t compareInUsersLanguage(std::string_view first, std::string_view second) {
    const std::wstring left = toWide(first);
    const std::wstring right = toWide(second);
    const int order = CompareStringEx(LOCALE_NAME_USER_DEFAULT, NORM_IGNORECASE, left.c_str(),
                                      static_cast<int>(left.size()), right.c_str(),
                                      static_cast<int>(right.size()), nullptr, nullptr, 0);
    return order == 0 ? 0 : order - CSTR_EQUAL;
}

// What the display has more of them is its own: a pixel is a 96th of an inch to the player.
float twipsPerPixelX() { return 15.0F; }
float twipsPerPixelY() { return 15.0F; }

Size screenSize() {
    return {nearestEdge(GetSystemMetrics(SM_CXSCREEN), displayScale()),
            nearestEdge(GetSystemMetrics(SM_CYSCREEN), displayScale())};
}

std::int32_t secondsSinceMidnight() {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    return (now.wHour * 60 + now.wMinute) * 60 + now.wSecond;
}

} // namespace platform
