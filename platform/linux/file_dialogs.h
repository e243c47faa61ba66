#pragma once

#include "platform/types.h"

#include <QFileDialog>

#include <functional>
#include <string>
#include <vector>

namespace platform {

/// Shows a file dialog and runs events until it is closed. `setUp` prepares it. It disables its
/// owner alone; with owner 0 it disables nothing. The chosen paths, in the player's form; none on
/// cancel.
std::vector<std::string> runFileDialog(WindowHandle owner, const char* title,
                                       const std::function<void(QFileDialog&)>& setUp);

} // namespace platform
