#pragma once

#include <string>

class FrmPlayer;

/// Between the player and its settings file, MyPlayerSettings.mps in the program's folder.
/// Interface thread.
namespace settings {

/// Applies a settings line to both windows; a short one leaves everything as it is. Its errors are
/// those of `read` and name the file; error 53 for another version without a file of the earlier
/// format.
void take(FrmPlayer& player, const std::string& line);

/// Writes the settings line. The error of a file that can't be written names it.
void save(FrmPlayer& player);

} // namespace settings
