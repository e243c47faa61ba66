#include "platform/linux/application_folder.h"

#include "platform/desktop.h"
#include "platform/linux/paths.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>

namespace platform {

namespace {

std::string programFolder() {
    std::string program(PATH_MAX, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", program.data(), program.size());
    program.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    const std::size_t separator = program.rfind('/');
    return separator == std::string::npos ? std::string() : program.substr(0, separator);
}

/// An absolute path from the environment; empty for any other value.
std::string environmentFolder(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value == '/' ? std::string(value) : std::string();
}

std::string homeFolder() {
    std::string home = environmentFolder("HOME");
    if (!home.empty()) return home;
    const passwd* user = ::getpwuid(::geteuid());
    return user == nullptr ? std::string() : std::string(user->pw_dir);
}

std::string configurationFolder() {
    const std::string folder = environmentFolder("XDG_CONFIG_HOME");
    return folder.empty() ? homeFolder() + "/.config" : folder;
}

/// File systems without unnamed files need one with a name, for a moment.
bool canMakeNamedFile(const std::string& folder) {
    std::string name = folder + "/.orvan-XXXXXX";
    const int file = ::mkostemp(name.data(), O_CLOEXEC);
    if (file < 0) return false;
    ::close(file);
    return ::unlink(name.c_str()) == 0;
}

/// What is installed for all users is written by nobody, the superuser included.
bool isForAllUsers(const std::string& folder) { return (folder + '/').starts_with("/usr/"); }

} // namespace

bool canWriteInto(const std::string& folder) {
    const std::string path = folder.empty() ? "/" : folder;
    const int file = ::open(path.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (file < 0) return (errno == EOPNOTSUPP || errno == EISDIR) && canMakeNamedFile(folder);
    return ::close(file) == 0;
}

bool makeFolders(const std::string& folder) {
    std::size_t end = 0;
    while (end != std::string::npos) {
        end = folder.find('/', end + 1);
        ::mkdir(folder.substr(0, end).c_str(), 0700);
    }
    struct stat status {};
    return ::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string chooseApplicationFolder(const std::string& programFolder,
                                    const std::string& configurationFolder) {
    if (!isForAllUsers(programFolder) && canWriteInto(programFolder)) return programFolder;
    std::string folder = configurationFolder + "/orvan";
    // Failing here shows when the settings are written, with the number of that failure.
    makeFolders(folder);
    return folder;
}

std::string applicationFolder() {
    // Chosen once, so that what a run has read from is what it writes to.
    static const std::string folder =
        chooseApplicationFolder(programFolder(), configurationFolder());
    return folder.empty() ? "\\" : fromHost(folder);
}

} // namespace platform
