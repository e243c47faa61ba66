#include "platform/linux/awaited_click.h"

#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"
#include "platform/linux/x_server.h"

#include <QByteArray>

#include <string>
#include <utility>

namespace platform {
namespace {

struct Word {
    QByteArray latest; ///< that there has been; Qt leaves it in the environment
    QByteArray open;   ///< the one that is to be answered; empty for none
};

QByteArray given() { return qgetenv("XDG_ACTIVATION_TOKEN"); }

Word& word() {
    static Word one;
    return one;
}

} // namespace

void expectClicks() { word() = {given(), {}}; }

bool beginAwaitedClick() {
    const QByteArray now = given();
    if (!x::isThere() || now == word().latest) return false;
    word() = {now, now};
    return true;
}

void showAsAwaited(const QWidget& window) {
    if (!word().open.isEmpty())
        x::setText(static_cast<xcb_window_t>(window.winId()), "_NET_STARTUP_ID",
                   word().open.toStdString());
}

void endAwaitedClick() {
    const WindowWidget* const sender = firstWindow();
    if (word().open.isEmpty() || sender == nullptr) return;
    std::string message = "remove: ID=";
    for (const char letter : std::exchange(word().open, {})) {
        if (letter == ' ' || letter == '"' || letter == '\\') message += '\\';
        message += letter;
    }
    x::tellStart(static_cast<xcb_window_t>(sender->winId()), message);
}

} // namespace platform
