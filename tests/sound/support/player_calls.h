#pragma once

#include <cstdint>
#include <string>

/// The device as the player calls it.
namespace sound_test {

std::uint32_t send(const std::string& command);

/// Says that a host path will be opened next.
void expectFile(const std::string& hostPath);

/// Sends `open` for a host path, by its short name.
std::uint32_t openFile(const std::string& hostPath);

/// A status reply as a number, -1 for an error.
int status(const std::string& item);
inline int position() { return status("position"); }
inline int length() { return status("length"); }

/// Plays an open file as the player does: from 1 to its length.
std::uint32_t playAll();

/// Closed again when the test ends.
struct OpenFile {
    explicit OpenFile(const std::string& hostPath);
    ~OpenFile() { send("Close mpeg"); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
};

} // namespace sound_test
