#include "platform/linux/tooltip.h"

#include <QApplication>
#include <QCursor>
#include <QToolTip>
#include <QWidget>
#include <QWindow>

namespace platform {
namespace {

constexpr int FirstDelay = 700; // milliseconds

/// What the pointer does where the tip shows is meant for what lies under it.
void letPointerThrough() {
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows)
        if (window->inherits("QTipLabel") && window->windowHandle() != nullptr)
            window->windowHandle()->setFlag(Qt::WindowTransparentForInput);
}

} // namespace

Tooltip::Tooltip() {
    delay_.setSingleShot(true);
    delay_.setInterval(FirstDelay);
    QObject::connect(&delay_, &QTimer::timeout, &delay_, [this] { show(); });
}

void Tooltip::setText(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    if (shown_) QToolTip::hideText();
    shown_ = false;
    if (text_.empty())
        delay_.stop();
    else
        delay_.start();
}

void Tooltip::pointerMoved() {
    if (delay_.isActive()) delay_.start();
}

void Tooltip::show() {
    shown_ = true;
    // Shown as it is, not as rich text.
    QToolTip::showText(QCursor::pos(), QString::fromStdString(text_).toHtmlEscaped());
    letPointerThrough();
}

} // namespace platform
