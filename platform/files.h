#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// Files and folders, named in the player's path form: `\` separates. Interface thread only.
/// Error numbers are those of runtime/errors.h: 53 file not found, 57 device I/O error, 61 disk
/// full, 70 permission denied, 75 path/file access error, 76 path not found.
namespace platform {

struct FileContents {
    int error = 0; ///< 0, or the number of the error
    std::string text;
};

/// Reads a file whole, up to `limit` bytes.
FileContents readFile(const std::string& path, std::size_t limit);

/// Puts a file's new contents in the place of the old, flushed to the disk; a failure or a kill at
/// any instant leaves the old file or the new one, whole. Line feeds in `text` become the
/// platform's own line ends. 0, or the number of the error.
int replaceFile(const std::string& path, const std::string& text);

/// A path as the users of this platform write it, for messages.
std::string pathForPeople(const std::string& path);

/// Deletes a file. 0, or the number of the error: 53 where it is missing, its folder or not.
int deleteFile(const std::string& path);

struct FolderListing {
    int error = 0; ///< 0, or the number of the error
    std::vector<std::string> names;
};

/// The immediate sub-folders of a folder as full paths, in any order, without those that the
/// desktop hides (a leading dot; on Windows the hidden or the system attribute). A link to a folder
/// counts as one, unless it leads back to a folder that `folder` itself goes through: so a walk
/// into every folder listed always ends. Error 76 for a folder that isn't there, 75 for one that
/// may not be entered.
FolderListing listFolders(const std::string& folder);

/// What a folder is known by whatever path leads to it, links included: two paths with the same
/// identity are one folder. Empty for a folder that isn't there, or whose file system numbers none.
std::string folderIdentity(const std::string& folder);

/// The bare names of a folder's ordinary files (no hidden or system files), in the file system's
/// order, whose ends match `extension` (such as ".mp3") in any case. Errors as above.
FolderListing listFiles(const std::string& folder, const std::string& extension);

} // namespace platform
