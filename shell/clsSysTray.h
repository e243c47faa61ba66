#pragma once

#include "platform/shell.h"
#include "toolkit/form.h"
#include "toolkit/hook_window.h"

#include <cstdint>
#include <functional>
#include <string>

/// One icon in the notification area. The shell's callback message is the mouse move of a hidden
/// picture box, `pctHook`, with the shell's mouse code for its X coordinate.
class clsSysTray {
  public:
    clsSysTray();

    /// Makes the hook on a form and takes the form's icon.
    void LoadIcon(toolkit::Form& vDatafrm);
    /// Sets the tip, cut or filled with blanks to 64 characters; a nul in it ends it. It reaches
    /// the shell with its next call.
    void ToolTip(const std::string& vData);
    void IconInSysTray();
    void RemoveFromSysTray();

    std::function<void()> LButtonDblClk;
    std::function<void()> RButtonUP;

    toolkit::HookWindow pctHook;       ///< where the shell's codes arrive
    platform::NOTIFYICONDATA trayData; ///< what the shell is told with every call
    std::int32_t lastTrayMessage = 0;  ///< the latest mouse code

  private:
    void pctHook_MouseMove(const toolkit::MouseArguments& arguments);
};
