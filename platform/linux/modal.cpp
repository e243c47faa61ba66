#include "platform/linux/desktop_style.h"
#include "platform/linux/input_barrier.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/linux/x_server.h"
#include "platform/window.h"

#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QProxyStyle>
#include <QTimer>
#include <QWindow>

#include <cstdint>
#include <string>
#include <vector>

namespace platform {
namespace {

/// A menu whose letters work without being underlined.
class PlainMenus : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_UnderlineShortcut ? 0
                                            : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

/// Captions without a mnemonic answer to their first letter.
QString menuText(const std::string& caption) {
    const QString text = QString::fromStdString(caption);
    return text.contains(QLatin1Char('&')) ? text : QLatin1Char('&') + text;
}

void fillMenu(QMenu& menu, const std::vector<MenuItem>& items, QStyle& style) {
    menu.setStyle(&style);
    for (const MenuItem& item : items)
        if (item.children.empty())
            menu.addAction(menuText(item.caption))->setData(item.id);
        else
            fillMenu(*menu.addMenu(menuText(item.caption)), item.children, style);
}

bool knowsWhoHasTheKeyboard() {
    const QWindow* const told = QGuiApplication::focusWindow();
    return told == nullptr || !x::isThere() || told->winId() == x::keyboardWindow();
}

/// Qt tells 100 ms late that the keyboard has left the player, as when a panel with the tray takes
/// it at a click, and then closes a menu that has just come up.
void awaitLossOfKeyboard() {
    if (knowsWhoHasTheKeyboard()) return;
    constexpr int longest = 200; // ms
    QEventLoop loop;
    QTimer::singleShot(longest, &loop, &QEventLoop::quit);
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

void showWindowModal(WindowHandle window) {
    WindowWidget* const widget = findWindow(window);
    if (widget == nullptr) return;
    std::vector<WindowWidget*> others = allWindows();
    std::erase(others, widget);
    QEventLoop loop;
    const InputBarrier barrier(others, *widget, [&] { loop.quit(); });
    widget->reveal();
    // A dialog over this window runs a loop inside this one: the window may be gone afterwards.
    loop.exec();
}

std::int32_t popupMenu(WindowHandle /*window*/, const std::vector<MenuItem>& items) {
    const QPoint place = QCursor::pos();
    followDesktop();
    awaitLossOfKeyboard();
    PlainMenus style;
    QMenu menu;
    fillMenu(menu, items, style);
    const QAction* const picked = menu.exec(place);
    return picked == nullptr ? 0 : picked->data().toInt();
}

void messageBox(const std::string& text, const std::string& title, MessageIcon icon) {
    followDesktop();
    QMessageBox box(icon == MessageIcon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon,
                    QString::fromStdString(title), QString::fromStdString(text), QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                       Qt::WindowCloseButtonHint);
    box.setWindowModality(Qt::NonModal); // the barrier does what is wanted of it
    QEventLoop loop;
    const InputBarrier barrier(allWindows(), box, [&] { loop.quit(); });
    box.show();
    box.raise();
    box.activateWindow();
    loop.exec();
}

} // namespace platform
