#pragma once

#include "platform/files.h"

#include <map>
#include <string>
#include <vector>

namespace simulated {

/// A file system in memory. Folders list their files in the order in which they were added.
class Files {
  public:
    struct File {
        std::string path;
        std::string text;
        bool hidden = false;
    };

    /// Adds a file, or gives it new contents; its folders come into being.
    void addFile(const std::string& path, const std::string& text = "");
    void addHiddenFile(const std::string& path);
    void addFolder(const std::string& path);
    void addHiddenFolder(const std::string& path);
    /// Adds a link to a folder, which is there under this path too.
    void addFolderLink(const std::string& path, const std::string& folder);
    void remove(const std::string& path);

    [[nodiscard]] bool exists(const std::string& path) const;
    [[nodiscard]] bool isFolder(const std::string& path) const;
    /// The contents of a file that exists.
    [[nodiscard]] const std::string& text(const std::string& path) const;

    /// Gives a path its short name; an empty one makes it a path that can't be shortened.
    void setShortName(const std::string& path, const std::string& shortName);
    /// The short name of an existing path, else empty: the path itself if it has no blank and less
    /// than 64 characters, else an alias.
    std::string shortNameOf(const std::string& path);
    /// The path that a short name stands for; other names stand for themselves.
    [[nodiscard]] std::string longNameOf(const std::string& name) const;

    /// Error numbers that the next such call gives; 0 for none.
    int nextReadError = 0;
    int nextReplaceError = 0;
    int nextDeleteError = 0;
    int nextListError = 0;
    bool diskFull = false; ///< every replacement fails so

    /// What the seam calls.
    platform::FileContents read(const std::string& path, std::size_t limit);
    int replace(const std::string& path, const std::string& text);
    int erase(const std::string& path);
    platform::FolderListing folders(const std::string& folder);
    platform::FolderListing files(const std::string& folder, const std::string& extension);

  private:
    [[nodiscard]] const File* find(const std::string& path) const;
    int missing(const std::string& path) const;
    [[nodiscard]] std::string real(const std::string& path) const;
    [[nodiscard]] bool leadsBack(const std::string& link, const std::string& folder) const;

    std::vector<File> files_;
    std::vector<std::string> folders_;
    std::vector<std::string> hiddenFolders_;
    std::map<std::string, std::string> links_; ///< path of a link to path of its folder
    std::map<std::string, std::string> shortNames_;
};

} // namespace simulated
