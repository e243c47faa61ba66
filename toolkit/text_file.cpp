#include "toolkit/text_file.h"

#include "platform/files.h"
#include "runtime/errors.h"
#include "runtime/text_lines.h"

#include <cstdint>
#include <utility>

namespace toolkit {
namespace {

/// Far above any line that the player writes or can take apart.
constexpr std::size_t readLimit = std::size_t{64} * 1024 * 1024;

} // namespace

runtime::Int16 TextFiles::FreeFile() const {
    std::int16_t number = 1;
    while (files_.contains(number))
        ++number;
    return number;
}

void TextFiles::OpenForInput(runtime::Int16 number, const std::string& path) {
    if (files_.contains(number.value())) runtime::raise(runtime::FileAlreadyOpen);
    platform::FileContents contents = platform::readFile(path, readLimit);
    runtime::raiseIfFailed(contents.error);
    files_[number.value()] = {Use::Input, path, std::move(contents.text)};
}

std::string TextFiles::LineInput(runtime::Int16 number) {
    return runtime::firstLine(find(number, Use::Input).text);
}

void TextFiles::OpenForOutput(runtime::Int16 number, const std::string& path) {
    if (files_.contains(number.value())) runtime::raise(runtime::FileAlreadyOpen);
    files_[number.value()] = {Use::Output, path, {}};
}

void TextFiles::PrintLine(runtime::Int16 number, const std::string& line) {
    find(number, Use::Output).text += line + "\n";
}

void TextFiles::Close(runtime::Int16 number) {
    const auto file = files_.find(number.value());
    if (file == files_.end()) runtime::raise(runtime::BadFileNumber);
    const OpenFile closed = std::move(file->second);
    files_.erase(file);
    if (closed.use == Use::Output)
        runtime::raiseIfFailed(platform::replaceFile(closed.path, closed.text));
}

TextFiles::OpenFile& TextFiles::find(runtime::Int16 number, Use use) {
    const auto file = files_.find(number.value());
    if (file == files_.end() || file->second.use != use) runtime::raise(runtime::BadFileNumber);
    return file->second;
}

} // namespace toolkit
