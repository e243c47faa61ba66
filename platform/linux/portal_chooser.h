#pragma once

#include "platform/linux/file_dialogs.h"

#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Has the desktop show its own file dialog, and runs events until that is closed, or its owner
/// ends. The chosen paths, in the player's form, none on cancel; nothing if no desktop answers.
std::optional<std::vector<std::string>> chooseByPortal(const FileRequest& request);

/// The path of a file's URI, in the player's form, byte for byte; empty if it is no file's.
std::string pathOfUri(const std::string& uri);

} // namespace platform
