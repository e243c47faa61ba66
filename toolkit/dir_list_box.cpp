#include "toolkit/dir_list_box.h"

#include "platform/desktop.h"
#include "platform/files.h"
#include "runtime/errors.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace toolkit {
namespace {

/// As the user's language has it; names that it takes for equal stand in the order of their codes.
bool sortsBefore(const std::string& first, const std::string& second) {
    const std::int32_t order = platform::compareInUsersLanguage(first, second);
    return order == 0 ? first < second : order < 0;
}

} // namespace

void DirListBox::Path(const std::string& folder) {
    platform::FolderListing listing = platform::listFolders(folder);
    // The fatal end of a walk tells its user which folder is in the way.
    if (listing.error != 0)
        throw runtime::NumberedError{listing.error, platform::pathForPeople(folder)};
    folders_ = std::move(listing.names);
    std::sort(folders_.begin(), folders_.end(), sortsBefore);
}

std::string DirListBox::List(runtime::Int16 index) const {
    if (index < 0 || static_cast<std::size_t>(index.value()) >= folders_.size()) return {};
    return folders_[static_cast<std::size_t>(index.value())];
}

} // namespace toolkit
