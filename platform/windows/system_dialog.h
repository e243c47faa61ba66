#pragma once

#include "platform/windows/disabled.h"

namespace platform {

/// Made just before a call of the system's that shows a dialog and returns when it is closed. The
/// windows that are disabled for the dialog are enabled again before it goes: while they are not,
/// its end would bring another program's window to the front.
class SystemDialog {
  public:
    explicit SystemDialog(Disabled& others);
    SystemDialog(const SystemDialog&) = delete;
    SystemDialog& operator=(const SystemDialog&) = delete;
    ~SystemDialog();

  private:
    HHOOK hook_;
};

} // namespace platform
