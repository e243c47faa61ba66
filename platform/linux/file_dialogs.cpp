#include "platform/linux/file_dialogs.h"

#include "platform/linux/kept_in_front.h"
#include "platform/linux/paths.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"

#include <QEventLoop>

namespace platform {

namespace {

std::vector<std::string> chosenPaths(const QFileDialog& dialog) {
    std::vector<std::string> paths;
    for (const QString& path : dialog.selectedFiles())
        paths.push_back(fromHost(QFile::encodeName(path).toStdString()));
    return paths;
}

} // namespace

std::vector<std::string> runFileDialog(WindowHandle owner, const char* title,
                                       const std::function<void(QFileDialog&)>& setUp) {
    std::vector<std::string> paths;
    QEventLoop loop;
    // Ends itself once it is closed, or with its owner when that ends first.
    auto* const dialog = new QFileDialog(findWindow(owner));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(owner == 0 ? Qt::NonModal : Qt::WindowModal);
    dialog->setOption(QFileDialog::DontResolveSymlinks);
    if (title != nullptr && *title != '\0') dialog->setWindowTitle(QString::fromUtf8(title));
    setUp(*dialog);
    QObject::connect(dialog, &QDialog::accepted, &loop, [&] { paths = chosenPaths(*dialog); });
    QObject::connect(dialog, &QObject::destroyed, &loop, &QEventLoop::quit);
    const KeptInFront kept(*dialog);
    dialog->show();
    loop.exec();
    return paths;
}

} // namespace platform
