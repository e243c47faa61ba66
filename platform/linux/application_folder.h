#pragma once

#include <string>

/// Host paths throughout.
namespace platform {

/// Whether a new file can be made in a folder, found out by making one.
bool canWriteInto(const std::string& folder);

/// Makes a folder and those above it that are missing. False if it isn't there afterwards.
bool makeFolders(const std::string& folder);

/// The place of the settings file: the program's own folder if it can be written and isn't below
/// /usr, else `orvan` under the user's configuration folder, made at need.
std::string chooseApplicationFolder(const std::string& programFolder,
                                    const std::string& configurationFolder);

} // namespace platform
