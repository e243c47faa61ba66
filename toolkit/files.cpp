#include "toolkit/files.h"

#include "platform/files.h"
#include "runtime/errors.h"

#include <utility>

namespace toolkit::Files {

void Kill(const std::string& path) { runtime::raiseIfFailed(platform::deleteFile(path)); }

std::vector<std::string> Dir(const std::string& folder, const std::string& extension) {
    platform::FolderListing listing = platform::listFiles(folder, extension);
    if (listing.error != 0)
        throw runtime::NumberedError{listing.error, platform::pathForPeople(folder)};
    return std::move(listing.names);
}

std::string forPeople(const std::string& path) { return platform::pathForPeople(path); }

} // namespace toolkit::Files
