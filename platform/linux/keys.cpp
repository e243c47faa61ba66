#include "platform/linux/keys.h"

#include <QKeyEvent>

namespace platform {
namespace {

Key keyOf(int key) {
    switch (key) {
    case Qt::Key_Up:
        return Key::Up;
    case Qt::Key_Down:
        return Key::Down;
    case Qt::Key_Home:
        return Key::Home;
    case Qt::Key_End:
        return Key::End;
    case Qt::Key_PageUp:
        return Key::PageUp;
    case Qt::Key_PageDown:
        return Key::PageDown;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::Enter;
    case Qt::Key_Escape:
        return Key::Escape;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return Key::Tab;
    case Qt::Key_Space:
        return Key::Space;
    default:
        return Key::Other;
    }
}

bool typesText(const QKeyEvent& event) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return (event.modifiers() & commands) == Qt::NoModifier && !event.text().isEmpty() &&
           event.text().front().isPrint();
}

} // namespace

KeyEvent keyEventOf(const QKeyEvent& event) {
    KeyEvent told;
    told.key = keyOf(event.key());
    if (typesText(event)) told.text = event.text().toStdString();
    return told;
}

} // namespace platform
