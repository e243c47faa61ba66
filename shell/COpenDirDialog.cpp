#include "shell/COpenDirDialog.h"

#include "platform/shell.h"
#include "platform/system.h"
#include "runtime/characters.h"
#include "runtime/errors.h"

#include <cstdint>

namespace {

/// Folders of the file system only, none below a domain, with a status line.
constexpr std::uint32_t browseFlags = 7;
constexpr std::size_t pathSize = 260; // characters

} // namespace

std::string COpenDirDialog::BrowseForFolder(toolkit::Form& owner, const std::string& Title) {
    std::string title = Title;
    platform::BROWSEINFO record;
    record.hOwner = owner.hWnd();
    record.lpszTitle = platform::lstrcatA(title.data(), "");
    record.ulFlags = browseFlags;
    const std::int32_t item = platform::SHBrowseForFolder(&record);
    if (item == 0) return {};
    std::string path(pathSize * runtime::BytesOfCharacter, ' ');
    platform::SHGetPathFromIDList(item, path.data());
    const std::size_t end = path.find('\0');
    if (end == std::string::npos) runtime::raise(runtime::InvalidCall);
    return path.substr(0, end);
}
