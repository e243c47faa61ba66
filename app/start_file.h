#pragma once

#include <string>

/// The file that the command line names to be played, in the player's path form; empty if it names
/// none.
std::string startFile();
