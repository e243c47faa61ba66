#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

#include <stdlib.h> // NOLINT(modernize-deprecated-headers): mkdtemp is POSIX's, not C++'s

/// A folder of a test's own, gone with it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "orvan-test-XXXXXX").native();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::filesystem::filesystem_error(
                "no temporary folder", std::error_code(errno, std::generic_category()));
        path_ = std::filesystem::canonical(name);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The host path of a name in the folder.
    [[nodiscard]] std::string operator/(const std::string& name) const {
        return path_.native() + '/' + name;
    }
    [[nodiscard]] const std::string& path() const { return path_.native(); }

    [[nodiscard]] std::string makeFolder(const std::string& name) const {
        std::filesystem::create_directories(*this / name);
        return *this / name;
    }

  private:
    std::filesystem::path path_;
};

inline void writeHostFile(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

inline std::string hostFileText(const std::string& path) {
    std::string text;
    std::ifstream file(path, std::ios::binary);
    for (char c = 0; file.get(c);)
        text += c;
    return text;
}

/// The number of entries of a folder.
inline std::size_t entryCount(const std::string& path) {
    const std::filesystem::directory_iterator entries(path);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}
