#include "platform/shell.h"
#include "platform/window.h"
#include "tests/contract/linux/real_pointer.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QPointer>
#include <QPushButton>
#include <QWindow>

#include <functional>
#include <string>
#include <utility>
#include <vector>

using namespace platform;
using contract::xdotool;

namespace {

WindowHandle createBox() {
    WindowOptions options;
    options.title = "Box";
    options.frame = Frame::Dialog;
    options.position = {500, 300};
    options.size = {200, 100};
    return createWindow(options, WindowEvents());
}

QFileDialog* shownFileDialog() {
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (auto* const dialog = qobject_cast<QFileDialog*>(widget))
            if (dialog->isVisible()) return dialog;
    return nullptr;
}

/// Opens a folder dialog without an owner from the event loop, takes a step at each tick while it
/// is up, and gives it ten seconds to be gone after the last one.
class DialogFromTheLoop {
  public:
    explicit DialogFromTheLoop(std::vector<std::function<void()>> steps)
        : steps_(std::move(steps)) {}

    /// The dialog was left by what the steps did.
    [[nodiscard]] bool left() const { return closed_ && !forced_; }
    [[nodiscard]] bool closed() const { return closed_; }

  private:
    static constexpr int patience = 200; // ticks

    void tick() {
        if (!opened_) return open();
        QFileDialog* const dialog = shownFileDialog();
        if (dialog == nullptr) return;
        if (inStep_) return; // which lets ticks run while it waits
        if (next_ < steps_.size()) return takeStep();
        forced_ = ++waited_ == patience;
        if (forced_) dialog->reject();
    }

    void takeStep() {
        inStep_ = true;
        steps_[next_++]();
        inStep_ = false;
    }

    void open() {
        opened_ = true;
        BROWSEINFO record;
        record.lpszTitle = "Over";
        closed_ = SHBrowseForFolder(&record) == 0;
    }

    std::vector<std::function<void()>> steps_;
    std::size_t next_ = 0;
    int waited_ = 0;
    bool opened_ = false;
    bool inStep_ = false;
    bool closed_ = false;
    bool forced_ = false;
    contract::Timer timer_{50, [this] { tick(); }};
};

/// The dialog is where it will stay once it has its frame, of which its widget may not be told.
void waitForDialog() {
    const QPointer<const QFileDialog> dialog = shownFileDialog();
    CHECK(contract::waitUntil([&] {
        return dialog != nullptr && dialog->windowHandle()->isExposed() &&
               !dialog->windowHandle()->frameMargins().isNull();
    }));
}

void giveDialogTheKeyboard() {
    xdotool("search --sync --onlyvisible --name '^Over$' windowfocus --sync");
}

void clickCancel() {
    const auto* const buttons = shownFileDialog()->findChild<QDialogButtonBox*>();
    const QPushButton* const cancel = buttons->button(QDialogButtonBox::Cancel);
    const QPoint place = cancel->mapToGlobal(cancel->rect().center());
    xdotool("mousemove " + std::to_string(place.x()) + ' ' + std::to_string(place.y()) +
            " click 1");
}

} // namespace

TEST_CASE("a modal window may be destroyed while a dialog opened over it is up") {
    const contract::Window owner;
    const WindowHandle box = createBox();
    const DialogFromTheLoop dialog({[&] { destroyWindow(box); }, [] { contract::letPass(50); },
                                    [] { shownFileDialog()->reject(); }});
    showWindowModal(box);
    CHECK(dialog.left());
}

TEST_CASE("a dialog that comes up over a modal window takes keys") {
    const contract::Window owner;
    const WindowHandle box = createBox();
    const DialogFromTheLoop dialog(
        {waitForDialog, giveDialogTheKeyboard, [] { xdotool("key Escape"); }});
    const contract::Timer timer(50, [&] {
        if (dialog.closed()) showWindow(box, false);
    });
    showWindowModal(box);
    destroyWindow(box);
    CHECK(dialog.left());
}

TEST_CASE("a dialog that comes up over a message box takes clicks") {
    const DialogFromTheLoop dialog({waitForDialog, clickCancel});
    const contract::Timer timer(50, [&] {
        if (dialog.closed()) contract::closeWhatIsOpen();
    });
    messageBox("Text", "Title", MessageIcon::None);
    CHECK(dialog.left());
}
