#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/window.h"

#include <QCursor>
#include <QEvent>
#include <QEventLoop>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>

namespace platform {
namespace {

/// Ends a loop when its window is hidden, also on the way to being destroyed.
class HideWatch : public QObject {
  public:
    explicit HideWatch(QEventLoop& loop) : loop_(loop) {}

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Hide && !event->spontaneous()) loop_.quit();
        return false;
    }

  private:
    QEventLoop& loop_;
};

/// Captions without a mnemonic answer to their first letter.
QString menuText(const std::string& caption) {
    const QString text = QString::fromStdString(caption);
    return text.contains(QLatin1Char('&')) ? text : QLatin1Char('&') + text;
}

void fillMenu(QMenu& menu, const std::vector<MenuItem>& items) {
    for (const MenuItem& item : items)
        if (item.children.empty())
            menu.addAction(menuText(item.caption))->setData(item.id);
        else
            fillMenu(*menu.addMenu(menuText(item.caption)), item.children);
}

} // namespace

void showWindowModal(WindowHandle window) {
    // A dialog over this window runs a loop inside this one, which carries out the window's end.
    const QPointer<WindowWidget> widget = findWindow(window);
    if (widget == nullptr) return;
    QEventLoop loop;
    HideWatch watch(loop);
    widget->installEventFilter(&watch);
    widget->hide();
    widget->setWindowModality(Qt::ApplicationModal);
    widget->show();
    loop.exec();
    if (widget != nullptr) widget->setWindowModality(Qt::NonModal);
}

std::int32_t popupMenu(WindowHandle /*window*/, const std::vector<MenuItem>& items) {
    QMenu menu;
    fillMenu(menu, items);
    const QAction* const picked = menu.exec(QCursor::pos());
    return picked == nullptr ? 0 : picked->data().toInt();
}

void messageBox(const std::string& text, const std::string& title, MessageIcon icon) {
    QMessageBox box(icon == MessageIcon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon,
                    QString::fromStdString(title), QString::fromStdString(text), QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowCloseButtonHint);
    box.exec();
}

} // namespace platform
