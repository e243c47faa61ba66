#pragma once

#include <string>
#include <string_view>

namespace runtime {

/// The first line of a text file's contents, without its end (a carriage return, a line feed or
/// both). Error 62 for a file with nothing in it.
std::string firstLine(std::string_view contents);

} // namespace runtime
