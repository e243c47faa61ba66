#include "platform/simulated/files.h"

#include "platform/simulated/world.h"
#include "runtime/errors.h"

#include <algorithm>
#include <utility>

namespace simulated {
namespace {

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

bool isRoot(const std::string& path) { return !path.empty() && path.back() == '\\'; }

/// "C:\Music\a.mp3" to "C:\Music", "C:\Music" to "C:\", a root to nothing.
std::string folderOf(const std::string& path) {
    if (isRoot(path)) return "";
    const std::size_t separator = path.rfind('\\');
    if (separator == std::string::npos) return "";
    const std::string folder = path.substr(0, separator);
    const bool root = folder.empty() || folder.back() == ':';
    return root ? folder + '\\' : folder;
}

std::string bareName(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

/// Doubled separators count as one, and a folder may end in one.
std::string normal(const std::string& path) {
    std::string result;
    for (const char c : path)
        if (c != '\\' || result.empty() || result.back() != '\\') result += c;
    const bool root = result.size() == 1 || (result.size() == 3 && result[1] == ':');
    if (!result.empty() && result.back() == '\\' && !root) result.pop_back();
    return result;
}

} // namespace

/// The path with every link on it replaced by the folder that it leads to.
std::string Files::real(const std::string& path) const {
    std::string result = normal(path);
    for (std::size_t end = 0; end != std::string::npos;) {
        end = result.find('\\', end + 1);
        const auto link = links_.find(result.substr(0, end));
        if (link == links_.end()) continue;
        const std::string rest = end == std::string::npos ? "" : result.substr(end);
        result = normal(link->second + rest);
        end = 0;
    }
    return result;
}

/// Whether a link leads to a folder that the path of `folder` goes through.
bool Files::leadsBack(const std::string& link, const std::string& folder) const {
    const std::string target = real(link);
    for (std::string on = normal(folder); !on.empty(); on = folderOf(on))
        if (real(on) == target) return true;
    return false;
}

const Files::File* Files::find(const std::string& path) const {
    const std::string wanted = real(path);
    const auto found = std::find_if(files_.begin(), files_.end(),
                                    [&](const File& file) { return file.path == wanted; });
    return found == files_.end() ? nullptr : &*found;
}

void Files::addFolder(const std::string& path) {
    const std::string folder = real(path);
    if (folder.empty() || isFolder(folder)) return;
    addFolder(folderOf(folder));
    folders_.push_back(folder);
}

void Files::addHiddenFolder(const std::string& path) {
    addFolder(path);
    hiddenFolders_.push_back(real(path));
}

void Files::addFolderLink(const std::string& path, const std::string& folder) {
    const std::string link = normal(path);
    const std::string place = normal(real(folderOf(link)) + '\\' + bareName(link));
    addFolder(folder);
    addFolder(place);
    links_[place] = real(folder);
}

void Files::addFile(const std::string& path, const std::string& text) {
    const std::string name = real(path);
    addFolder(folderOf(name));
    for (File& file : files_) {
        if (file.path != name) continue;
        file.text = text;
        return;
    }
    files_.push_back({name, text});
}

void Files::addHiddenFile(const std::string& path) {
    addFile(path);
    files_.back().hidden = true;
}

void Files::remove(const std::string& path) {
    const std::string name = real(path);
    std::erase_if(files_, [&](const File& file) { return file.path == name; });
    std::erase(folders_, name);
}

bool Files::exists(const std::string& path) const { return find(path) || isFolder(path); }

bool Files::isFolder(const std::string& path) const {
    return std::find(folders_.begin(), folders_.end(), real(path)) != folders_.end();
}

const std::string& Files::text(const std::string& path) const {
    const File* file = find(path);
    if (file == nullptr) misuse("no file " + path);
    return file->text;
}

void Files::setShortName(const std::string& path, const std::string& shortName) {
    shortNames_[normal(path)] = shortName;
}

std::string Files::shortNameOf(const std::string& path) {
    if (!exists(path)) return "";
    std::string name = normal(path);
    const auto known = shortNames_.find(name);
    if (known != shortNames_.end()) return known->second;
    if (name.size() < 64 && name.find(' ') == std::string::npos) return name;
    std::string alias = "C:\\ALIAS~" + std::to_string(shortNames_.size() + 1);
    shortNames_[name] = alias;
    return alias;
}

std::string Files::longNameOf(const std::string& name) const {
    for (const auto& [path, shortName] : shortNames_)
        if (shortName == name) return path;
    return normal(name);
}

int Files::missing(const std::string& path) const {
    return isFolder(folderOf(normal(path))) ? runtime::FileNotFound : runtime::PathNotFound;
}

platform::FileContents Files::read(const std::string& path, std::size_t limit) {
    note("read " + path);
    if (const int fault = std::exchange(nextReadError, 0)) return {fault, ""};
    if (isFolder(path)) return {runtime::PathFileAccess, ""};
    const File* file = find(path);
    if (file == nullptr) return {missing(path), ""};
    return {0, file->text.substr(0, limit)};
}

int Files::replace(const std::string& path, const std::string& text) {
    note("replace " + path);
    if (const int fault = std::exchange(nextReplaceError, 0)) return fault;
    if (diskFull) return runtime::DiskFull;
    if (isFolder(path)) return runtime::PathFileAccess;
    if (!isFolder(folderOf(normal(path)))) return runtime::PathNotFound;
    addFile(path, text);
    return 0;
}

int Files::erase(const std::string& path) {
    note("delete " + path);
    if (const int fault = std::exchange(nextDeleteError, 0)) return fault;
    if (find(path) == nullptr) return runtime::FileNotFound;
    remove(path);
    return 0;
}

platform::FolderListing Files::folders(const std::string& folder) {
    note("list folders " + folder);
    if (const int fault = std::exchange(nextListError, 0)) return {fault, {}};
    if (!isFolder(folder)) return {runtime::PathNotFound, {}};
    const std::string place = real(folder);
    const std::string prefix = isRoot(normal(folder)) ? normal(folder) : normal(folder) + '\\';
    platform::FolderListing listing;
    for (const std::string& one : folders_) {
        if (folderOf(one) != place) continue;
        const auto hidden = std::find(hiddenFolders_.begin(), hiddenFolders_.end(), one);
        if (hidden != hiddenFolders_.end()) continue;
        if (links_.contains(one) && leadsBack(one, folder)) continue;
        listing.names.push_back(prefix + bareName(one));
    }
    return listing;
}

platform::FolderListing Files::files(const std::string& folder, const std::string& extension) {
    note("list files " + folder);
    if (const int fault = std::exchange(nextListError, 0)) return {fault, {}};
    if (!isFolder(folder)) return {runtime::PathNotFound, {}};
    platform::FolderListing listing;
    for (const File& file : files_) {
        if (file.hidden || folderOf(file.path) != real(folder)) continue;
        if (lower(file.path).ends_with(lower(extension)))
            listing.names.push_back(bareName(file.path));
    }
    return listing;
}

} // namespace simulated

namespace platform {

using simulated::world;

FileContents readFile(const std::string& path, std::size_t limit) {
    return world.files.read(path, limit);
}

int replaceFile(const std::string& path, const std::string& text) {
    return world.files.replace(path, text);
}

std::string pathForPeople(const std::string& path) { return path; }

int deleteFile(const std::string& path) { return world.files.erase(path); }

FolderListing listFolders(const std::string& folder) { return world.files.folders(folder); }

FolderListing listFiles(const std::string& folder, const std::string& extension) {
    return world.files.files(folder, extension);
}

} // namespace platform
