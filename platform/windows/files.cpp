#include "platform/files.h"

#include "platform/windows/code_page.h"
#include "platform/windows/error_numbers.h"
#include "platform/windows/open_handle.h"
#include "platform/windows/paths.h"
#include "runtime/errors.h"

#include <algorithm>
#include <array>
#include <string>

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

/// Where an old file lies while the new one takes its name.
std::wstring oldNameOf(const std::wstring& path) { return path + L".old"; }

bool isFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

/// Gives a new file the name of the old one, and what that had besides its contents, such as its
/// rights. The system takes two steps for it; between them only the second name leads to the old
/// file, where `openToRead` finds it.
bool putInPlace(const std::wstring& fresh, const std::wstring& path) {
    const std::wstring old = oldNameOf(path);
    const bool done = (isFile(path) &&
                       ReplaceFileW(path.c_str(), fresh.c_str(), old.c_str(),
                                    REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != FALSE) ||
                      // There is no old file, or its file system knows no such step.
                      MoveFileExW(fresh.c_str(), path.c_str(),
                                  MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
    if (done) DeleteFileW(old.c_str());
    return done;
}

HANDLE openToRead(const std::wstring& path) {
    const auto open = [&] {
        return CreateFileW(path.c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    };
    const HANDLE file = open();
    if (file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_FILE_NOT_FOUND) return file;
    MoveFileW(oldNameOf(path).c_str(), path.c_str());
    return open();
}

} // namespace

FileContents readFile(const std::string& path, std::size_t limit) {
    const OpenHandle file(openToRead(toSystem(path)));
    if (!file.isOpen()) return {lastError(), {}};
    if (GetFileType(file.get()) != FILE_TYPE_DISK) return {runtime::PathFileAccess, {}};
    FileContents contents = readAll(file.get(), limit);
    contents.text = fromCodePage(contents.text, GetACP());
    return contents;
}

int replaceFile(const std::string& path, const std::string& text) {
    const std::wstring target = toSystem(path);
    // In the same folder, as only within a volume a file can be given another's name in one step.
    const std::wstring fresh = target + L".new";
    int error = writeWhole(fresh, inCodePage(withSystemLineEnds(text), GetACP()));
    if (error == 0 && !putInPlace(fresh, target)) error = lastError();
    if (error != 0) DeleteFileW(fresh.c_str());
    return error;
}

std::string pathForPeople(const std::string& path) { return path; }

int deleteFile(const std::string& path) {
    if (DeleteFileW(toSystem(path).c_str()) != FALSE) return 0;
    const int error = lastError();
    return error == runtime::PathNotFound ? int{runtime::FileNotFound} : error;
}

} // namespace platform
