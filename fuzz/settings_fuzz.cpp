// Any settings file. Its line is applied, or it is ignored, or a numbered error ends the player.
// The first byte picks the locale's decimal sign, the rest is the file. Every file is taken apart
// alone; one in so many is met by a whole player, which takes far longer.
#include "app/modMain.h"
#include "app/settings.h"
#include "platform/simulated/world.h"
#include "toolkit/guard.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

using simulated::world;

const std::string file = "C:\\Orvan\\MyPlayerSettings.mps";

void require(bool condition, const char* what) {
    if (condition) return;
    std::fprintf(stderr, "settings_fuzz: %s\n", what);
    std::abort();
}

enum class End { Fatal, Runs };

End start(ModMain& program) {
    try {
        toolkit::guarded([&] { program.Main(); });
    } catch (const simulated::ProcessEnded& ended) {
        require(ended.status == 1, "the start ended without an error");
        require(world.messages.fatal.size() == 1, "the end came without its message");
        require(world.messages.fatal[0].find(file) != std::string::npos, "it names no file");
        return End::Fatal;
    }
    return End::Runs;
}

void checkIgnored(ModMain& program) {
    require(program.frmPlayer.trackCount == 0, "an ignored line brought tracks");
    require(program.frmPlayer.window.Left() == 5610, "an ignored line moved the window");
}

void checkApplied(ModMain& program) {
    const runtime::Int16 count = program.frmPlayer.trackCount;
    const toolkit::ListBox& list = program.frmPlaylist.List1;
    require(list.ListCount() == count, "list and paths are out of step");
    require(list.ListIndex() == (count == 0 ? -1 : 0), "the first entry isn't selected");
}

/// Quits and looks at what was saved: thirteen fields that have the very same list.
void checkSaved(ModMain& program) {
    std::vector<std::string> tracks;
    for (runtime::Int16 i = 0; i < program.frmPlayer.trackCount; i += 1)
        tracks.push_back(program.frmPlayer.trackPaths[i]);
    try {
        program.frmPlayer.unloadmebaby();
    } catch (const simulated::ProcessEnded& ended) {
        require(ended.status == 0, "quitting failed");
    }
    std::size_t fields = 0;
    for (const char c : world.files.text(file))
        fields += c == settings::FieldEnd ? 1U : 0U;
    require(fields == 13, "the saved line has other than thirteen fields");
    const std::string listField = "*" + settings::joinTracks(tracks) + "*";
    require(world.files.text(file).find(listField) != std::string::npos, "the list is not saved");
}

/// Takes the line apart, as far as it goes; a line that was taken is written again.
void readAlone(const std::string& line, char decimalSign) {
    if (line.size() < settings::ShortestLine) return;
    try {
        if (!settings::hasPresentVersion(line)) return;
        const settings::Fields fields = settings::read(line, decimalSign).fields;
        require(settings::write(fields, decimalSign).starts_with("3*"), "a line without a version");
    } catch (const runtime::NumberedError& error) {
        const bool known =
            error.number == runtime::Overflow || error.number == runtime::TypeMismatch;
        require(known, "an error that no line may give");
    }
}

void startWith(const std::string& text, const std::string& line, char decimalSign) {
    simulated::reset();
    world.desktop.decimalSign = decimalSign;
    world.files.addFile(file, text);
    world.files.addFile("c:\\MyPlayerSettings.txt");
    ModMain program;
    if (start(program) == End::Fatal) return;
    if (line.size() < settings::ShortestLine || line[0] != '3')
        checkIgnored(program);
    else
        checkApplied(program);
    checkSaved(program);
}

/// The same for the same file, so that what was found is found again.
bool meetsWholePlayer(const std::string& text) {
    constexpr std::size_t oneIn = 512;
    return std::hash<std::string>()(text) % oneIn == 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const char decimalSign = data[0] % 2 == 0 ? '.' : ',';
    const std::string text(data + 1, data + size);
    const std::string line = text.substr(0, text.find_first_of("\r\n"));
    readAlone(line, decimalSign);
    if (meetsWholePlayer(text)) startWith(text, line, decimalSign);
    return 0;
}
