#include "runtime/text_lines.h"

#include "runtime/errors.h"

namespace runtime {

std::string firstLine(std::string_view contents) {
    if (contents.empty()) raise(EndOfFile);
    return std::string(contents.substr(0, contents.find_first_of("\r\n")));
}

} // namespace runtime
