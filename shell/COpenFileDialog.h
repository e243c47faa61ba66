#pragma once

#include "runtime/integers.h"

#include <string>

/// The system's open-file dialog. An object serves one dialog; reading or writing a property has
/// no side effect.
class COpenFileDialog {
  public:
    [[nodiscard]] const std::string& DefaultExt() const { return defaultExt; }
    void DefaultExt(const std::string& strValue) { defaultExt = strValue; }
    [[nodiscard]] const std::string& DialogTitle() const { return dialogTitle; }
    void DialogTitle(const std::string& strValue) { dialogTitle = strValue; }
    /// After a confirmed dialog the untouched buffer, `MaxFileSize` characters, nul fill included:
    /// a path, or a folder and bare names, each ended by a nul.
    [[nodiscard]] const std::string& FileName() const { return fileName; }
    void FileName(const std::string& strValue) { fileName = strValue; }
    [[nodiscard]] const std::string& FileTitle() const { return fileTitle; }
    void FileTitle(const std::string& strValue) { fileTitle = strValue; }
    [[nodiscard]] const std::string& InitialDir() const { return initialDir; }
    void InitialDir(const std::string& strValue) { initialDir = strValue; }
    /// Pairs of label and patterns, each ended by a nul, and one more nul.
    [[nodiscard]] const std::string& Filter() const { return filter; }
    void Filter(const std::string& strValue) { filter = strValue; }
    [[nodiscard]] runtime::Int32 Flags() const { return flags; }
    void Flags(runtime::Int32 Value) { flags = Value; }
    /// Owner window; 0 leaves every window of the program live during the dialog. Read and written
    /// like the other properties; property and field share one name.
    struct {
        [[nodiscard]] runtime::Int32 operator()() const { return value; }
        void operator()(runtime::Int32 lngValue) { value = lngValue; }
        runtime::Int32 value = 0;
    } hWndParent;
    /// Size of the result buffers in characters.
    [[nodiscard]] runtime::Int16 MaxFileSize() const { return maxFileSize; }
    void MaxFileSize(runtime::Int16 intValue) { maxFileSize = intValue; }

    /// Runs the dialog; events and ticks go on. True when a selection was confirmed; a cancel and a
    /// selection too long for the buffer are both false. A failure inside shows a message.
    bool ShowOpen();

  private:
    void runDialog(bool& confirmed);

    std::string defaultExt;
    std::string dialogTitle;
    std::string fileName;
    std::string fileTitle;
    std::string initialDir;
    std::string filter;
    runtime::Int32 flags = 0;
    runtime::Int16 maxFileSize = 260;
};
