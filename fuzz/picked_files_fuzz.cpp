// Any result buffer of the open dialog, taken over by a player that holds a track. It must end in
// one of three ways: nothing is added, tracks are added, or the player ends with the fatal message
// because no empty piece ends them. List and paths must stay in step in all of them.
#include "app/modMain.h"
#include "platform/simulated/world.h"
#include "runtime/characters.h"
#include "toolkit/guard.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

using simulated::world;
using Pieces = std::vector<std::string>;

constexpr std::size_t bufferSize = 16384; // characters
const std::string present = "C:\\Music\\present.mp3";

void require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "picked_files_fuzz: %s\n", what);
    std::abort();
}

/// The pieces up to the first empty one; nothing if there is none, except in an empty buffer.
std::optional<Pieces> piecesOf(const std::string& buffer) {
    Pieces pieces;
    if (buffer.empty()) return pieces;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = buffer.find('\0', start);
        if (end == std::string::npos) return std::nullopt;
        if (end == start) return pieces;
        pieces.push_back(buffer.substr(start, end - start));
        start = end + 1;
    }
}

Pieces expectedPaths(const Pieces& pieces) {
    Pieces paths = {present};
    if (pieces.size() == 1) paths.push_back(pieces[0]);
    for (std::size_t i = 1; i < pieces.size(); ++i)
        paths.push_back(pieces[0] + "\\" + pieces[i]);
    return paths;
}

std::string expectedFolder(const Pieces& pieces) {
    if (pieces.empty()) return "before";
    const std::string& first = pieces[0];
    return pieces.size() > 1 ? first : first.substr(0, first.rfind('\\') + 1);
}

void checkList(ModMain& program, const Pieces& paths, const Pieces& pieces) {
    FrmPlayer& player = program.frmPlayer;
    toolkit::ListBox& list = program.frmPlaylist.List1;
    require(player.trackCount == runtime::Int16(paths.size()), "the count is wrong");
    require(list.ListCount() == player.trackCount, "list and paths are out of step");
    for (runtime::Int16 i = 0; i < player.trackCount; i += 1) {
        const auto index = static_cast<std::size_t>(i.value());
        require(player.trackPaths[i] == paths[index], "a path is wrong");
        const bool bareName = index > 0 && pieces.size() > 1;
        const std::string title =
            bareName ? pieces[index] : paths[index].substr(paths[index].rfind('\\') + 1);
        require(list.List(i) == title, "a title is wrong");
    }
    const runtime::Int16 selected = pieces.empty() ? 0 : 1;
    require(list.ListIndex() == selected, "the selection is wrong");
    require(player.lastFolder == expectedFolder(pieces), "the folder is wrong");
}

/// False for the fatal end.
bool pick(ModMain& program) {
    try {
        toolkit::guarded([&] { program.frmPlayer.openfiles(); });
        return true;
    } catch (const simulated::ProcessEnded& ended) {
        require(ended.status == 1 && world.messages.fatal.size() == 1, "no fatal message");
        return false;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulated::reset();
    world.text.leaveOut = true;
    ModMain program;
    world.media.addFile(present, 1000);
    world.desktop.commandLine = present;
    toolkit::guarded([&] { program.Main(); });
    program.frmPlayer.lastFolder = "before";

    const std::string bytes(data, data + std::min(size, bufferSize));
    world.dialogs.fillBuffer(bytes);
    const std::string filled =
        bytes + std::string(runtime::BytesOfCharacter * bufferSize - bytes.size(), '\0');
    std::string buffer(runtime::firstCharacters(filled, bufferSize));
    buffer.erase(buffer.find_last_not_of(' ') + 1);
    const std::optional<Pieces> pieces = piecesOf(buffer);
    const bool goesOn = pick(program);
    require(goesOn == pieces.has_value(), "it ended where it should go on, or the reverse");
    if (!goesOn) {
        checkList(program, {present}, {});
        return 0;
    }
    checkList(program, expectedPaths(*pieces), *pieces);
    require(program.frmPlayer.lastOpenResult == buffer, "the buffer is not kept as it came");
    return 0;
}
