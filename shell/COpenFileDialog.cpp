#include "shell/COpenFileDialog.h"

#include "platform/shell.h"
#include "runtime/characters.h"
#include "runtime/errors.h"
#include "runtime/text.h"
#include "toolkit/msgbox.h"

#include <cstdint>

bool COpenFileDialog::ShowOpen() {
    bool confirmed = false;
    try {
        runDialog(confirmed);
    } catch (const runtime::NumberedError& error) {
        toolkit::MsgBox("Error: " + std::to_string(error.number) + ". " + error.description(),
                        toolkit::MsgBoxStyle::Plain, "Show");
    }
    return confirmed;
}

void COpenFileDialog::runDialog(bool& confirmed) {
    if (maxFileSize < 0) runtime::raise(runtime::InvalidCall);
    const auto size = static_cast<std::size_t>(maxFileSize.value());
    std::string file(size * runtime::BytesOfCharacter, '\0');
    std::string title(size * runtime::BytesOfCharacter, '\0');

    platform::OPENFILENAME record;
    record.lStructSize = 76;
    record.hwndOwner = hWndParent().value();
    record.lpstrFilter = filter.c_str();
    record.lpstrFile = file.data();
    record.nMaxFile = static_cast<std::uint32_t>(size);
    record.lpstrFileTitle = title.data();
    record.nMaxFileTitle = static_cast<std::uint32_t>(size);
    record.lpstrInitialDir = initialDir.c_str();
    record.lpstrTitle = dialogTitle.c_str();
    record.Flags = static_cast<std::uint32_t>(flags.value());
    record.lpstrDefExt = defaultExt.c_str();
    if (!platform::GetOpenFileNameA(&record)) return;

    confirmed = true;
    fileName = runtime::withoutTrailingBlanks(std::string(runtime::firstCharacters(file, size)));
    fileTitle = runtime::withoutTrailingBlanks(std::string(runtime::firstCharacters(title, size)));
    // The nul fill counts, so a title buffer as long as it was asked for reads empty.
    if (runtime::characterCount(fileTitle) == size) fileTitle.clear();
}
