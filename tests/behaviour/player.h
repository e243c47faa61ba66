#pragma once

#include "app/modMain.h"
#include "platform/simulated/world.h"
#include "playback/Mpeg.h"
#include "runtime/errors.h"
#include "toolkit/event_loop.h"
#include "toolkit/guard.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace behaviour {

using platform::PointerButton;

/// The middle of a control, in pixels of its window.
inline platform::Point middleOf(const toolkit::Control& control) {
    const platform::Rect area = control.area();
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

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

    /// Adds the folder of these tracks, of 200 seconds each, as a user does who picks it: nothing
    /// is selected by that and nothing starts. It must hold no other tracks.
    void addTracks(const std::vector<std::string>& paths) {
        if (paths.empty()) return;
        for (const std::string& path : paths)
            simulated::world.media.addFile(path, 200'000);
        const std::int32_t before = frmPlayer().trackCount.value();
        const std::size_t end = paths[0].rfind('\\');
        const bool root = paths[0][end - 1] == ':'; // which keeps its separator
        simulated::world.dialogs.pickFolder(paths[0].substr(0, root ? end + 1 : end));
        frmPlayer().opendir();
        std::vector<std::string> added;
        for (std::int32_t n = before; n < frmPlayer().trackCount; ++n)
            added.push_back(frmPlayer().trackPaths[n]);
        REQUIRE(added == paths);
    }

    /// A started player that plays the first of these tracks.
    void play(const std::vector<std::string>& paths) {
        start();
        addTracks(paths);
        list().ListIndex(0);
        frmPlayer().startfile();
    }

    // The user's hand on the controls of both windows. A control is met in its middle, where no
    // other one may lie over it.

    void hover(const toolkit::Control& control) {
        const platform::Point place = reach(control);
        simulated::moveTo(windowOf(control), place.x, place.y);
    }
    void press(const toolkit::Control& control, PointerButton button = PointerButton::Left) {
        const platform::Point place = reach(control);
        simulated::pressAt(windowOf(control), place.x, place.y, button);
    }
    void click(const toolkit::Control& control, PointerButton button = PointerButton::Left) {
        press(control, button);
        simulated::release(button);
    }
    void doubleClick(const toolkit::Control& control) {
        const platform::Point place = reach(control);
        simulated::doubleClick(windowOf(control), place.x, place.y);
    }
    /// Moves the pointer so many pixels away from the middle of a control that may be hidden.
    void moveFrom(const toolkit::Control& control, int right, int down = 0) {
        const platform::Point place = middleOf(control);
        simulated::moveTo(windowOf(control), place.x + right, place.y + down);
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
    toolkit::Form& formOf(const toolkit::Control& control) {
        for (toolkit::Form* form : {&frmPlayer().window, &frmPlaylist().window})
            for (const toolkit::Control* one : form->controls())
                if (one == &control) return *form;
        FAIL("the control " << control.name() << " lies on neither window");
        return frmPlayer().window;
    }
    platform::WindowHandle windowOf(const toolkit::Control& control) {
        return formOf(control).hWnd();
    }

    /// Where the pointer meets a control.
    platform::Point reach(const toolkit::Control& control) {
        const platform::Point place = middleOf(control);
        const auto& all = formOf(control).controls();
        const auto met = std::find_if(all.begin(), all.end(), [&](const toolkit::Control* one) {
            const platform::Rect area = one->area();
            return one->shown() && area.left <= place.x && place.x < area.right &&
                   area.top <= place.y && place.y < area.bottom;
        });
        if (met == all.end() || *met != &control)
            FAIL("the pointer can't reach the control " << control.name());
        return place;
    }

    std::unique_ptr<ModMain> program_;
};

/// The commands sent since the last look, without trailing blanks.
inline std::vector<std::string> commandsSent() {
    std::vector<std::string> commands = simulated::world.media.trimmedCommands();
    simulated::world.media.forgetCommands();
    return commands;
}

/// Slides off everything and lets go there.
inline void releaseFarAway(PointerButton button = PointerButton::Left) {
    simulated::moveToScreen(-500, -500);
    simulated::release(button);
}

/// What the platform was told to show as a tooltip.
inline std::string tooltipOf(platform::WindowHandle window) {
    return simulated::window(window).tooltip;
}

/// Runs code that is to end the process in order; whether it did.
template <class Code>
bool endsTheProcess(Code&& code) {
    try {
        code();
    } catch (const simulated::ProcessEnded& ended) {
        return ended.status == 0;
    }
    return false;
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
