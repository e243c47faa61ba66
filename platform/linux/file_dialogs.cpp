#include "platform/linux/file_dialogs.h"

#include "platform/linux/desktop_style.h"
#include "platform/linux/kept_in_front.h"
#include "platform/linux/paths.h"
#include "platform/linux/portal_chooser.h"
#include "platform/linux/users_places.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"

#include <QApplication>
#include <QEventLoop>
#include <QFileDialog>
#include <QHeaderView>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>

#include <algorithm>

namespace platform {

namespace {

std::vector<std::string> chosenPaths(const QFileDialog& dialog) {
    std::vector<std::string> paths;
    for (const QString& path : dialog.selectedFiles())
        paths.push_back(fromHost(QFile::encodeName(path).toStdString()));
    return paths;
}

void chooseFilter(QFileDialog& dialog, const FileRequest& request) {
    QStringList texts;
    for (const NameFilter& filter : request.filters)
        texts.append(QString::fromStdString(dialogFilter(filter)));
    if (texts.isEmpty()) return;
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(texts);
    const auto index = static_cast<qsizetype>(request.filter);
    if (index < texts.size()) dialog.selectNameFilter(texts[index]);
}

void chooseFolder(QFileDialog& dialog, const FileRequest& request) {
    const QString folder = QFile::decodeName(request.folder.c_str());
    if (!folder.isEmpty() && QFileInfo(folder).isDir()) dialog.setDirectory(folder);
}

/// Names and dates are read at once, without pulling at columns.
void makeRoom(QFileDialog& dialog) {
    constexpr QSize wanted(900, 520);
    const QSize screen = dialog.screen()->availableSize();
    dialog.resize(wanted.boundedTo(screen * 9 / 10));
    if (auto* const list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    constexpr int placesWidth = 160;
    if (auto* const parts = dialog.findChild<QSplitter*>(QStringLiteral("splitter")))
        parts->setSizes({placesWidth, wanted.width() - placesWidth});
}

void setUp(QFileDialog& dialog, const FileRequest& request) {
    dialog.setWindowModality(request.owner == 0 ? Qt::NonModal : Qt::WindowModal);
    dialog.setOption(QFileDialog::DontResolveSymlinks);
    if (!request.title.empty()) dialog.setWindowTitle(QString::fromStdString(request.title));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(request.folders   ? QFileDialog::Directory
                       : request.several ? QFileDialog::ExistingFiles
                                         : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::ShowDirsOnly, request.folders);
    chooseFilter(dialog, request);
    chooseFolder(dialog, request);
    dialog.setSidebarUrls(usersPlaces());
    makeRoom(dialog);
}

/// A list of names to complete would hold the pointer until the dialog's very end.
void closePopup() {
    if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
}

std::vector<std::string> chooseByQtsDialog(const FileRequest& request) {
    std::vector<std::string> paths;
    QEventLoop loop;
    // Gone by itself if its owner ends first.
    const QPointer<QFileDialog> dialog(new QFileDialog(findWindow(request.owner)));
    setUp(*dialog, request);
    QObject::connect(dialog, &QDialog::accepted, &loop, [&] { paths = chosenPaths(*dialog); });
    // Its end may take a while, and what the user does by then comes after what was chosen.
    QObject::connect(dialog, &QDialog::finished, &loop, [&] {
        closePopup();
        loop.quit();
    });
    QObject::connect(dialog, &QObject::destroyed, &loop, &QEventLoop::quit);
    const KeptInFront kept(*dialog);
    dialog->show();
    loop.exec();
    if (dialog) dialog->deleteLater();
    return paths;
}

} // namespace

std::vector<std::string> chooseFiles(const FileRequest& request) {
    followDesktop();
    if (const auto chosen = chooseByPortal(request)) return *chosen;
    return chooseByQtsDialog(request);
}

} // namespace platform
