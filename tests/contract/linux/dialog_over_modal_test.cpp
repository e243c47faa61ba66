#include "platform/shell.h"
#include "platform/window.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QFileDialog>

#include <functional>
#include <vector>

using namespace platform;

namespace {

WindowHandle createBox() {
    WindowOptions options;
    options.title = "Box";
    options.frame = Frame::Dialog;
    options.position = {500, 300};
    options.size = {200, 100};
    return createWindow(options, WindowEvents());
}

QFileDialog* shownDialog() {
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (auto* const dialog = qobject_cast<QFileDialog*>(widget))
            if (dialog->isVisible()) return dialog;
    return nullptr;
}

/// Opens the folder dialog without an owner from the event loop, and takes a step at each tick
/// while it is up; after the last one the dialog is cancelled.
class DialogFromTheLoop {
  public:
    explicit DialogFromTheLoop(std::vector<std::function<void()>> steps)
        : steps_(std::move(steps)) {}

    [[nodiscard]] bool cancelled() const { return cancelled_; }

  private:
    void tick() {
        if (!opened_) return open();
        QFileDialog* const dialog = shownDialog();
        if (dialog == nullptr) return;
        if (next_ == steps_.size()) return dialog->reject();
        steps_[next_++]();
    }

    void open() {
        opened_ = true;
        BROWSEINFO record;
        cancelled_ = SHBrowseForFolder(&record) == 0;
    }

    std::vector<std::function<void()>> steps_;
    std::size_t next_ = 0;
    bool opened_ = false;
    bool cancelled_ = false;
    contract::Timer timer_{50, [this] { tick(); }};
};

} // namespace

TEST_CASE("a modal window may be destroyed while a dialog opened over it is up") {
    const WindowHandle box = createBox();
    const DialogFromTheLoop dialog({[&] { destroyWindow(box); }, [] { contract::letPass(50); }});
    showWindowModal(box);
    CHECK(dialog.cancelled());
}
