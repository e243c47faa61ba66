#pragma once

#include "platform/linux/dialog_buffers.h"
#include "platform/types.h"

#include <cstddef>
#include <string>
#include <vector>

namespace platform {

/// What a file dialog is asked for.
struct FileRequest {
    WindowHandle owner = 0; ///< the window that it disables; 0 disables none
    std::string title;      ///< empty for the dialog's own
    bool several = false;   ///< files: one or more
    bool folders = false;   ///< a folder instead of files
    std::vector<NameFilter> filters;
    std::size_t filter = 0; ///< the one to begin with
    std::string folder; ///< to begin in, a host path; where it is none, wherever the dialog likes
};

/// Shows a file dialog, the desktop's own where there is one, and runs events until it is closed.
/// The chosen paths, in the player's form; none on cancel.
std::vector<std::string> chooseFiles(const FileRequest& request);

} // namespace platform
