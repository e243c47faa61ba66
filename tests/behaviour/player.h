#pragma once

#include "app/modMain.h"
#include "platform/simulated/world.h"
#include "runtime/errors.h"
#include "toolkit/guard.h"

#include <doctest/doctest.h>

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>

namespace behaviour {

/// One run of the whole player in a fresh simulated world. Set the world up between the
/// construction and `start`.
class Player {
  public:
    Player() {
        simulated::reset();
        program_ = std::make_unique<ModMain>();
    }

    /// Starts the program, as a user does; with a command-line tail, if there is one.
    void start(const std::string& commandLine = "") {
        simulated::world.desktop.commandLine = commandLine;
        toolkit::guarded([this] { program_->Main(); });
    }

    /// Declares tracks of 200 seconds and puts them in the list, nothing selected.
    void addTracks(std::initializer_list<const char*> paths) {
        for (const char* path : paths) {
            simulated::world.media.addFile(path, 200'000);
            FrmPlayer& form = frmPlayer();
            form.trackPaths.resizeKeeping(form.trackCount);
            form.trackPaths[form.trackCount] = path;
            list().AddItem(std::string(path).substr(std::string(path).rfind('\\') + 1));
            form.trackCount += 1;
        }
    }

    /// A started player that plays the first of these tracks.
    void play(std::initializer_list<const char*> paths) {
        start();
        addTracks(paths);
        list().ListIndex(0);
        frmPlayer().startfile();
    }

    ModMain& program() { return *program_; }
    FrmPlayer& frmPlayer() { return program_->frmPlayer; }
    FrmPlaylist& frmPlaylist() { return program_->frmPlaylist; }
    toolkit::ListBox& list() { return program_->frmPlaylist.List1; }
    Mpeg& engine() { return *program_->engine; }
    std::string status() { return engine().Status(); }
    platform::WindowHandle mainWindow() { return frmPlayer().window.hWnd(); }
    platform::WindowHandle playlistWindow() { return frmPlaylist().window.hWnd(); }

  private:
    std::unique_ptr<ModMain> program_;
};

/// The commands sent since the last look, without trailing blanks.
inline std::vector<std::string> commandsSent() {
    std::vector<std::string> commands = simulated::world.media.trimmedCommands();
    simulated::world.media.forgetCommands();
    return commands;
}

/// Runs code that is to be the fatal end; its message, or nothing if the process goes on.
template <class Code>
std::optional<std::string> fatalMessageOf(Code&& code) {
    try {
        toolkit::guarded(code);
    } catch (const simulated::ProcessEnded& ended) {
        CHECK(ended.status == 1);
        REQUIRE(simulated::world.messages.fatal.size() == 1);
        return simulated::world.messages.fatal.front();
    }
    return std::nullopt;
}

} // namespace behaviour
