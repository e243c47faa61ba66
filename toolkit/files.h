#pragma once

#include <string>
#include <vector>

/// Files by their names. Failures raise their numbered error.
namespace toolkit::Files {

/// Deletes a file; error 53 where it is missing.
void Kill(const std::string& path);

/// The bare names of a folder's ordinary files that end in `extension`, case aside, in the file
/// system's order. Error 76 or 75, with its name, for a folder that can't be read.
std::vector<std::string> Dir(const std::string& folder, const std::string& extension);

/// A path as the users of this platform write it, for messages.
std::string forPeople(const std::string& path);

} // namespace toolkit::Files
