#include "platform/linux/dialog_buffers.h"
#include "platform/linux/file_dialogs.h"
#include "platform/linux/paths.h"
#include "platform/shell.h"

#include <QStringList>

namespace platform {

namespace {

QStringList dialogFilters(const OPENFILENAME& record) {
    QStringList texts;
    for (const NameFilter& filter : parseNameFilters(record.lpstrFilter))
        texts.append(QString::fromStdString(dialogFilter(filter)));
    return texts;
}

void chooseFilter(QFileDialog& dialog, const OPENFILENAME& record) {
    const QStringList filters = dialogFilters(record);
    if (filters.isEmpty()) return;
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    const qsizetype index = record.nFilterIndex == 0 ? 0 : record.nFilterIndex - 1;
    if (index < filters.size()) dialog.selectNameFilter(filters[index]);
}

void chooseFolder(QFileDialog& dialog, const OPENFILENAME& record) {
    if (record.lpstrInitialDir == nullptr || *record.lpstrInitialDir == '\0') return;
    const QString folder = QFile::decodeName(toHost(record.lpstrInitialDir).c_str());
    if (QFileInfo(folder).isDir()) dialog.setDirectory(folder);
}

} // namespace

bool GetOpenFileNameA(OPENFILENAME* record) {
    const std::vector<std::string> paths =
        runFileDialog(record->hwndOwner, record->lpstrTitle, [&](QFileDialog& dialog) {
            dialog.setAcceptMode(QFileDialog::AcceptOpen);
            const bool several = (record->Flags & OFN_ALLOWMULTISELECT) != 0;
            dialog.setFileMode(several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
            chooseFilter(dialog, *record);
            chooseFolder(dialog, *record);
        });
    SelectionOffsets offsets;
    if (!writeSelection(paths, record->lpstrFile, record->nMaxFile, offsets)) return false;
    record->nFileOffset = offsets.name;
    record->nFileExtension = offsets.extension;
    if (paths.size() == 1 && record->lpstrFileTitle != nullptr)
        writeText(bareName(paths.front()), record->lpstrFileTitle, record->nMaxFileTitle);
    return true;
}

} // namespace platform
