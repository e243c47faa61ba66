#include "toolkit/dir_list_box.h"

#include "platform/files.h"
#include "runtime/errors.h"

namespace toolkit {

void DirListBox::Path(const std::string& folder) {
    platform::FolderListing listing = platform::listFolders(folder);
    runtime::raiseIfFailed(listing.error);
    path_ = folder;
    folders_ = std::move(listing.names);
}

std::string DirListBox::List(runtime::Int16 index) const {
    if (index < 0 || static_cast<std::size_t>(index.value()) >= folders_.size()) return {};
    return folders_[static_cast<std::size_t>(index.value())];
}

} // namespace toolkit
