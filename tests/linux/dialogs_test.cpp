#include "platform/accessibility.h"
#include "platform/linux/paths.h"
#include "platform/shell.h"
#include "platform/window.h"
#include "tests/linux/temporary_folder.h"

#include <doctest/doctest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QStringList>
#include <QTimer>
#include <QTreeView>
#include <QUrl>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

using namespace std::string_literals;
using platform::fromHost;

namespace {

/// Acts on the next file dialog as soon as it shows; `acted` tells that it did.
class WhenDialogShows {
  public:
    explicit WhenDialogShows(std::function<void(QFileDialog&)> action)
        : action_(std::move(action)) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { look(); });
        timer_.start(5);
    }
    [[nodiscard]] bool acted() const { return acted_; }
    [[nodiscard]] int ticks() const { return ticks_; }

  private:
    void look() {
        ++ticks_;
        constexpr int enoughToProveThatTicksGoOn = 3;
        if (acted_ || ticks_ < enoughToProveThatTicksGoOn) return;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<QFileDialog*>(widget);
            if (dialog == nullptr || !dialog->isVisible()) continue;
            acted_ = true;
            return action_(*dialog);
        }
    }

    QTimer timer_;
    std::function<void(QFileDialog&)> action_;
    int ticks_ = 0;
    bool acted_ = false;
};

/// Types into the dialog's name box and confirms.
void type(QFileDialog& dialog, const std::string& text) {
    auto* box = dialog.findChild<QLineEdit*>("fileNameEdit");
    REQUIRE(box != nullptr);
    box->setText(QString::fromStdString(text));
    QMetaObject::invokeMethod(&dialog, "accept");
}

/// An open dialog as the player asks for one.
struct OpenDialog {
    std::uint32_t size = 16384;
    std::string buffer = std::string(4 * size, '#');
    std::string title = std::string(4 * size, '#');
    std::string folder;
    platform::OPENFILENAME record;

    explicit OpenDialog(const TemporaryFolder& initial) : folder(fromHost(initial.path())) {
        record.lpstrFilter = "Supported audio\0*.MP3;*.wav;\0\0";
        record.lpstrFile = buffer.data();
        record.nMaxFile = size;
        record.lpstrFileTitle = title.data();
        record.nMaxFileTitle = size;
        record.lpstrInitialDir = folder.c_str();
        record.lpstrTitle = "Open File";
        record.Flags = platform::OFN_EXPLORER | platform::OFN_ALLOWMULTISELECT;
    }

    /// Runs the dialog, with something done to it.
    bool run(const std::function<void(QFileDialog&)>& action) {
        const WhenDialogShows user(action);
        const bool confirmed = platform::GetOpenFileNameA(&record);
        CHECK(user.acted());
        return confirmed;
    }
    /// What was written; the rest of the buffer is as it was.
    [[nodiscard]] std::string written() const {
        return buffer.substr(0, buffer.find_last_not_of('#') + 1);
    }
    [[nodiscard]] bool untouched() const { return written().empty(); }
};

void makeMusic(const TemporaryFolder& folder) {
    for (const char* name : {"a.mp3", "b c.MP3", "d.Wav", "notes.txt"})
        writeHostFile(folder / name, "x");
    writeHostFile(folder.makeFolder("sub") + "/e.mp3", "x");
}

} // namespace

TEST_CASE("what is chosen comes before all that happens once the dialog has gone") {
    const TemporaryFolder folder;
    makeMusic(folder);
    OpenDialog open(folder);
    bool happened = false;
    const auto afterwards = [&] { happened = true; };
    CHECK(open.run([&](QFileDialog& dialog) {
        QObject::connect(&dialog, &QDialog::finished, qApp, [&] {
            QMetaObject::invokeMethod(qApp, afterwards, Qt::QueuedConnection);
        });
        type(dialog, "a.mp3");
    }));
    CHECK_FALSE(happened);
    QApplication::processEvents();
    CHECK(happened);
}

TEST_CASE("a list of names to complete goes with its dialog, and keeps no click from the windows") {
    const TemporaryFolder folder;
    makeMusic(folder);
    OpenDialog open(folder);
    bool listed = false;
    CHECK(open.run([&](QFileDialog& dialog) {
        auto* box = dialog.findChild<QLineEdit*>("fileNameEdit");
        REQUIRE(box != nullptr);
        box->setFocus();
        box->completer()->popup()->show();
        listed = QApplication::activePopupWidget() != nullptr;
        type(dialog, "a.mp3");
    }));
    CHECK(listed);
    CHECK(QApplication::activePopupWidget() == nullptr);
}

TEST_CASE("the open dialog gives the one file that was named") {
    const TemporaryFolder folder;
    makeMusic(folder);
    OpenDialog open(folder);
    CHECK(open.run([](QFileDialog& dialog) { type(dialog, "b c.MP3"); }));
    CHECK(open.written() == fromHost(folder / "b c.MP3") + '\0');
    CHECK(open.title.c_str() == "b c.MP3"s);
    CHECK(open.record.nFileOffset == open.folder.size() + 1);
}

TEST_CASE("the open dialog gives several files as their folder and their names") {
    const TemporaryFolder folder;
    makeMusic(folder);
    OpenDialog open(folder);
    CHECK(open.run([](QFileDialog& dialog) { type(dialog, "\"d.Wav\" \"a.mp3\""); }));
    CHECK(open.written() == open.folder + "\0d.Wav\0a.mp3\0\0"s);
}

TEST_CASE("the open dialog takes one file only when it isn't asked for several") {
    const TemporaryFolder folder;
    makeMusic(folder);
    OpenDialog open(folder);
    open.record.Flags = platform::OFN_EXPLORER;
    CHECK_FALSE(open.run([](QFileDialog& dialog) {
        CHECK(dialog.fileMode() == QFileDialog::ExistingFile);
        dialog.reject();
    }));
}

TEST_CASE("a cancelled open dialog leaves the buffers alone") {
    const TemporaryFolder folder;
    OpenDialog open(folder);
    CHECK_FALSE(open.run([](QFileDialog& dialog) { dialog.reject(); }));
    CHECK(open.untouched());
    CHECK(open.title.find_first_not_of('#') == std::string::npos);
}

TEST_CASE("a closed open dialog counts as cancelled") {
    const TemporaryFolder folder;
    OpenDialog open(folder);
    CHECK_FALSE(open.run([](QFileDialog& dialog) { dialog.close(); }));
}

TEST_CASE("a selection that doesn't fit the buffer counts as cancelled") {
    const TemporaryFolder folder;
    makeMusic(folder);
    OpenDialog open(folder);
    open.record.nMaxFile = static_cast<std::uint32_t>(open.folder.size() + 6); // a.mp3, but no nul
    CHECK_FALSE(open.run([](QFileDialog& dialog) { type(dialog, "a.mp3"); }));
    CHECK(open.untouched());
}

TEST_CASE("the open dialog disables no window and lets timers tick") {
    const TemporaryFolder folder;
    OpenDialog open(folder);
    open.run([](QFileDialog& dialog) {
        CHECK(dialog.windowModality() == Qt::NonModal);
        CHECK_FALSE(dialog.isModal());
        CHECK(dialog.parentWidget() == nullptr);
        dialog.reject();
    });
}

TEST_CASE("the open dialog has the title, the folder and the file types asked for") {
    const TemporaryFolder folder;
    makeMusic(folder);
    OpenDialog open(folder);
    open.run([&](QFileDialog& dialog) {
        CHECK(dialog.windowTitle() == "Open File");
        CHECK(dialog.directory().absolutePath().toStdString() == folder.path());
        CHECK(dialog.nameFilters() == QStringList("Supported audio (*.[mM][pP]3 *.[wW][aA][vV])"));
        const auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
        REQUIRE(types != nullptr);
        CHECK(types->currentText() == "Supported audio");
        dialog.reject();
    });
}

TEST_CASE("the open dialog shows every column whole, and the user's places") {
    const TemporaryFolder folder;
    writeHostFile(folder / "A name that is as long as those of many tracks are.mp3", "x");
    OpenDialog open(folder);
    open.run([&](QFileDialog& dialog) {
        auto* const list = dialog.findChild<QTreeView*>("treeView");
        REQUIRE(list != nullptr);
        const QHeaderView& columns = *list->header();
        CHECK(columns.length() <= list->viewport()->width());
        for (int column = 0; column < columns.count(); ++column)
            CHECK(list->columnWidth(column) >= columns.sectionSizeHint(column));
        CHECK(list->columnWidth(0) >= 200);
        CHECK(dialog.sidebarUrls().contains(QUrl::fromLocalFile(QDir::homePath())));
        dialog.reject();
    });
}

TEST_CASE("an initial folder that is gone is no reason not to open") {
    const TemporaryFolder folder;
    OpenDialog open(folder);
    open.record.lpstrInitialDir = "\\no\\such\\folder";
    CHECK_FALSE(open.run([](QFileDialog& dialog) { dialog.reject(); }));
    open.record.lpstrInitialDir = nullptr;
    open.record.lpstrTitle = nullptr;
    open.record.lpstrFilter = nullptr;
    open.record.lpstrFileTitle = nullptr;
    CHECK_FALSE(open.run([](QFileDialog& dialog) { dialog.reject(); }));
}

TEST_CASE("the folder dialog gives the path of the folder that was named") {
    const TemporaryFolder folder;
    makeMusic(folder);
    const WhenDialogShows user([&](QFileDialog& dialog) {
        CHECK(dialog.windowTitle() == "Browse for folder");
        CHECK(dialog.fileMode() == QFileDialog::Directory);
        type(dialog, folder / "sub");
    });
    platform::BROWSEINFO record;
    record.lpszTitle = "Browse for folder";
    const std::int32_t item = platform::SHBrowseForFolder(&record);
    REQUIRE(item != 0);
    std::string path(1040, ' ');
    CHECK(platform::SHGetPathFromIDList(item, path.data()));
    CHECK(path.c_str() == fromHost(folder / "sub"));
}

TEST_CASE("the root keeps its separator in the folder dialog's answer") {
    const WhenDialogShows user([](QFileDialog& dialog) { type(dialog, "/"); });
    platform::BROWSEINFO record;
    std::string path(1040, ' ');
    CHECK(platform::SHGetPathFromIDList(platform::SHBrowseForFolder(&record), path.data()));
    CHECK(path.c_str() == "\\"s);
}

TEST_CASE("a cancelled folder dialog gives no item") {
    const WhenDialogShows user([](QFileDialog& dialog) { dialog.reject(); });
    platform::BROWSEINFO record;
    CHECK(platform::SHBrowseForFolder(&record) == 0);
}

TEST_CASE("a folder of 259 characters fits, whatever their bytes") {
    const TemporaryFolder folder;
    for (const std::string character : {"a", "\xD0\xB6", "\xE9\x9F\xB3", "\xF0\x9F\x8E\xB5"}) {
        std::string name;
        for (std::size_t left = 259 - folder.path().size() - 1; left > 0; --left)
            name += left % 50 == 0 ? "/" : character;
        const std::string deep = folder.makeFolder(name);
        const WhenDialogShows user([&](QFileDialog& dialog) { type(dialog, deep); });
        platform::BROWSEINFO record;
        std::string path(1040, ' ');
        CHECK(platform::SHGetPathFromIDList(platform::SHBrowseForFolder(&record), path.data()));
        CHECK(path.c_str() == fromHost(deep));
    }
}

TEST_CASE("a folder whose path is too long is refused with a message, and counts as a cancel") {
    const TemporaryFolder folder;
    const std::string deep = folder.makeFolder(std::string(150, 'x') + '/' + std::string(150, 'y'));
    const WhenDialogShows user([&](QFileDialog& dialog) { type(dialog, deep); });
    QString text;
    QString title;
    QTimer message;
    QObject::connect(&message, &QTimer::timeout, &message, [&] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* box = qobject_cast<QMessageBox*>(widget);
            if (box == nullptr || !box->isVisible()) continue;
            text = box->text();
            title = box->windowTitle();
            box->accept();
        }
    });
    message.start(5);
    platform::BROWSEINFO record;
    record.lpszTitle = "Browse for folder";
    CHECK(platform::SHBrowseForFolder(&record) == 0);
    CHECK(text.toStdString() == "The path of this folder is too long:\n" + deep);
    CHECK(title == "Browse for folder");
}

TEST_CASE("an item that no dialog gave has no path") {
    std::string path(1040, ' ');
    CHECK_FALSE(platform::SHGetPathFromIDList(0, path.data()));
    CHECK_FALSE(platform::SHGetPathFromIDList(12345, path.data()));
    CHECK_FALSE(platform::SHGetPathFromIDList(-1, path.data()));
}

TEST_CASE("without a tray no icon is added, changed or removed") {
    platform::NOTIFYICONDATA record;
    record.uID = 1;
    CHECK_FALSE(platform::Shell_NotifyIconA(platform::NIM_MODIFY, &record));
    CHECK_FALSE(platform::Shell_NotifyIconA(platform::NIM_ADD, &record));
    CHECK_FALSE(platform::Shell_NotifyIconA(platform::NIM_MODIFY, &record));
    CHECK_FALSE(platform::Shell_NotifyIconA(platform::NIM_DELETE, &record));
}

TEST_CASE("a reader has nothing done in a window that its folder dialog keeps the user from") {
    platform::WindowOptions options;
    options.size = {100, 50};
    const platform::WindowHandle window = platform::createWindow(options, {});
    platform::showWindow(window, true);
    CHECK(platform::takesInput(window));
    bool meanwhile = true;
    const WhenDialogShows user([&](QFileDialog& dialog) {
        meanwhile = platform::takesInput(window);
        dialog.reject();
    });
    platform::BROWSEINFO record;
    record.hOwner = window;
    CHECK(platform::SHBrowseForFolder(&record) == 0);
    CHECK(user.acted());
    CHECK_FALSE(meanwhile);
    CHECK(platform::takesInput(window));
    platform::destroyWindow(window);
}
