#pragma once

#include "toolkit/form.h"

#include <string>

/// The shell's folder dialog.
class COpenDirDialog {
  public:
    /// Runs the dialog, which disables its owner only; events and ticks go on. The chosen folder,
    /// with a trailing "\" only at a root, or an empty text on cancel.
    std::string BrowseForFolder(toolkit::Form& owner, const std::string& Title);
};
