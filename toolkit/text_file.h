#pragma once

#include "runtime/integers.h"

#include <cstdint>
#include <map>
#include <string>

namespace toolkit {

/// Text files under numbers. Failures raise their numbered error. What is written reaches the disk
/// at the close, whole or not at all.
class TextFiles {
  public:
    /// The lowest number that no open file has, from 1 on.
    [[nodiscard]] runtime::Int16 FreeFile() const;

    /// Error 53 for a missing file.
    void OpenForInput(runtime::Int16 number, const std::string& path);
    /// The first line of a file open for input; error 62 for a file with nothing in it.
    std::string LineInput(runtime::Int16 number);

    void OpenForOutput(runtime::Int16 number, const std::string& path);
    /// Adds a line to a file open for output.
    void PrintLine(runtime::Int16 number, const std::string& line);

    /// Closes a file; its number is free again, whatever comes of the writing.
    void Close(runtime::Int16 number);

  private:
    enum class Use { Input, Output };
    struct OpenFile {
        Use use = Use::Input;
        std::string path;
        std::string text;
    };
    OpenFile& find(runtime::Int16 number, Use use);

    std::map<std::int16_t, OpenFile> files_;
};

} // namespace toolkit
