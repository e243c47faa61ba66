#pragma once

#include <QTimer>

#include <string>

namespace platform {

/// A window's tooltip. Qt shows its own only to a pointer without buttons; this one doesn't care.
class Tooltip {
  public:
    Tooltip();

    /// The text of what is under the pointer now, UTF-8; empty for none.
    void setText(const std::string& text);

    /// A moving pointer puts the tooltip off.
    void pointerMoved();

  private:
    void show();

    QTimer delay_;
    std::string text_;
    bool shown_ = false;
};

} // namespace platform
