#include "platform/files.h"

#include "platform/windows/error_numbers.h"
#include "platform/windows/open_handle.h"
#include "platform/windows/utf16.h"
#include "runtime/errors.h"

#include <algorithm>
#include <array>

namespace platform {
namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

int lastError() { return errorNumberOf(GetLastError()); }

FileContents readAll(HANDLE file, std::size_t limit) {
    FileContents contents;
    std::array<char, 65536> block;
    while (contents.text.size() < limit) {
        const auto wanted =
            static_cast<DWORD>(std::min(block.size(), limit - contents.text.size()));
        DWORD read = 0;
        if (ReadFile(file, block.data(), wanted, &read, nullptr) == FALSE) return {lastError(), {}};
        if (read == 0) break;
        contents.text.append(block.data(), read);
    }
    return contents;
}

/// Line ends as this system writes them; those that are so already stay.
std::string withSystemLineEnds(const std::string& text) {
    std::string result;
    result.reserve(text.size() + 2);
    for (const char c : text) {
        if (c == '\n' && !result.ends_with('\r')) result += '\r';
        result += c;
    }
    return result;
}

/// 0, or the number of the error; the file is flushed to the disk.
int writeWhole(const std::wstring& path, const std::string& text) {
    const OpenHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.isOpen()) return lastError();
    DWORD written = 0;
    const auto size = static_cast<DWORD>(text.size());
    if (WriteFile(file.get(), text.data(), size, &written, nullptr) == FALSE) return lastError();
    if (written != size) return runtime::DiskFull;
    return FlushFileBuffers(file.get()) == FALSE ? lastError() : 0;
}

std::wstring folderOf(const std::wstring& path) {
    const std::size_t separator = path.rfind(L'\\');
    return separator == std::wstring::npos ? L"." : path.substr(0, separator + 1);
}

/// In the folder of the file to be replaced, as only within a volume a move is one step.
std::wstring makeNewFile(const std::wstring& path) {
    std::array<wchar_t, MAX_PATH> name = {};
    if (GetTempFileNameW(folderOf(path).c_str(), L"orv", 0, name.data()) == 0) return {};
    return name.data();
}

} // namespace

FileContents readFile(const std::string& path, std::size_t limit) {
    const OpenHandle file(CreateFileW(toWide(path).c_str(), GENERIC_READ, shareAll, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.isOpen()) return {lastError(), {}};
    if (GetFileType(file.get()) != FILE_TYPE_DISK) return {runtime::PathFileAccess, {}};
    return readAll(file.get(), limit);
}

int replaceFile(const std::string& path, const std::string& text) {
    const std::wstring target = toWide(path);
    const std::wstring fresh = makeNewFile(target);
    if (fresh.empty()) return lastError();
    int error = writeWhole(fresh, withSystemLineEnds(text));
    if (error == 0 && MoveFileExW(fresh.c_str(), target.c_str(),
                                  MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == FALSE)
        error = lastError();
    if (error != 0) DeleteFileW(fresh.c_str());
    return error;
}

std::string pathForPeople(const std::string& path) { return path; }

int deleteFile(const std::string& path) {
    if (DeleteFileW(toWide(path).c_str()) != FALSE) return 0;
    const int error = lastError();
    return error == runtime::PathNotFound ? int{runtime::FileNotFound} : error;
}

} // namespace platform
