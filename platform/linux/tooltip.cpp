#include "platform/linux/tooltip.h"

#include <QCursor>
#include <QToolTip>

namespace platform {
namespace {

constexpr int FirstDelay = 700; // milliseconds

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
}

} // namespace platform
