#pragma once

#include <string>

/// Texts of files, which are in the code page that the process has. With this program's manifest
/// that is UTF-8; a Windows that doesn't know the entry has one of its own. Any thread.
namespace platform {

/// A text as a file of this code page holds it. One that the code page can't hold, or that would be
/// read otherwise, stays UTF-8: nothing is lost.
std::string inCodePage(const std::string& text, unsigned codePage);

/// The text of a file of this code page, whichever of the two forms it has.
std::string fromCodePage(const std::string& bytes, unsigned codePage);

} // namespace platform
