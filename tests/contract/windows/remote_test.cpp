#include "platform/remote.h"

#include "platform/windows/handles.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace platform;

namespace {

struct Command {
    std::string name;
    WORD number;
    RemoteRequest request;
};

const Command commands[] = {
    {"play", APPCOMMAND_MEDIA_PLAY, RemoteRequest::Play},
    {"pause", APPCOMMAND_MEDIA_PAUSE, RemoteRequest::Pause},
    {"play or pause", APPCOMMAND_MEDIA_PLAY_PAUSE, RemoteRequest::PlayOrPause},
    {"stop", APPCOMMAND_MEDIA_STOP, RemoteRequest::Stop},
    {"next", APPCOMMAND_MEDIA_NEXTTRACK, RemoteRequest::Next},
    {"previous", APPCOMMAND_MEDIA_PREVIOUSTRACK, RemoteRequest::Previous},
};

/// Those that are others' to deal with: the loudness is the whole system's.
const WORD foreignCommands[] = {APPCOMMAND_VOLUME_UP, APPCOMMAND_VOLUME_MUTE,
                                APPCOMMAND_BROWSER_BACKWARD, APPCOMMAND_LAUNCH_MEDIA_SELECT};

LPARAM packed(WORD command) { return MAKELPARAM(0, static_cast<WORD>(command | FAPPCOMMAND_KEY)); }

/// A player whose requests are kept.
struct Asked {
    std::vector<RemoteRequest> requests;
    Asked() {
        RemoteEvents events;
        events.asked = [this](RemoteRequest request) { requests.push_back(request); };
        offerRemote(events);
    }
    Asked(const Asked&) = delete;
    Asked& operator=(const Asked&) = delete;
    ~Asked() {
        RemoteEvents deaf;
        deaf.asked = [](RemoteRequest) {};
        offerRemote(deaf);
    }
    bool become(const std::vector<RemoteRequest>& wanted) {
        return contract::waitUntil([&] { return requests == wanted; });
    }
};

/// The window by which the player hears what the shell is told.
HWND shellListener() { return FindWindowW(L"OrvanRemote", nullptr); }

UINT shellMessage() { return RegisterWindowMessageW(L"SHELLHOOK"); }

} // namespace

TEST_CASE("a media key pressed in a window of the player's own asks for what it says, once") {
    Asked asked;
    const contract::Window window;
    for (const Command& command : commands) {
        CAPTURE(command.name);
        asked.requests.clear();
        CHECK(SendMessageW(windowOf(window.handle), WM_APPCOMMAND, 0, packed(command.number)) ==
              TRUE);
        // Not before its sender has its answer.
        CHECK(asked.requests.empty());
        CHECK(asked.become({command.request}));
        contract::letPass(50);
        CHECK(asked.requests.size() == 1);
    }
}

TEST_CASE("a media key that the program in front has no use for asks the player for it") {
    Asked asked;
    REQUIRE(shellListener() != nullptr);
    for (const Command& command : commands) {
        CAPTURE(command.name);
        asked.requests.clear();
        PostMessageW(shellListener(), shellMessage(), HSHELL_APPCOMMAND, packed(command.number));
        CHECK(asked.become({command.request}));
    }
}

TEST_CASE("what else the shell is told, and other commands, ask the player for nothing") {
    Asked asked;
    const contract::Window window;
    for (const WORD command : foreignCommands) {
        CAPTURE(command);
        CHECK(SendMessageW(windowOf(window.handle), WM_APPCOMMAND, 0, packed(command)) == FALSE);
        SendMessageW(shellListener(), shellMessage(), HSHELL_APPCOMMAND, packed(command));
    }
    for (const int event : {HSHELL_WINDOWCREATED, HSHELL_WINDOWACTIVATED, HSHELL_REDRAW})
        SendMessageW(shellListener(), shellMessage(), static_cast<WPARAM>(event),
                     packed(APPCOMMAND_MEDIA_STOP));
    // What is asked now comes behind all that.
    PostMessageW(shellListener(), shellMessage(), HSHELL_APPCOMMAND, packed(APPCOMMAND_MEDIA_PLAY));
    CHECK(asked.become({RemoteRequest::Play}));
}

TEST_CASE("the window that listens for media keys is never seen and belongs to no other") {
    const Asked asked;
    CHECK(IsWindowVisible(shellListener()) == FALSE);
    CHECK(GetWindow(shellListener(), GW_OWNER) == nullptr);
    CHECK(GetParent(shellListener()) == nullptr);
}

TEST_CASE("media keys ask the player while a message box is open") {
    Asked asked;
    contract::keepNextMessageOpen();
    bool sent = false;
    const contract::Timer timer(20, [&] {
        if (!sent)
            PostMessageW(shellListener(), shellMessage(), HSHELL_APPCOMMAND,
                         packed(APPCOMMAND_MEDIA_NEXTTRACK));
        sent = true;
        if (!asked.requests.empty()) contract::closeWhatIsOpen();
    });
    messageBox("Text", "Title", MessageIcon::None);
    CHECK(asked.requests == std::vector{RemoteRequest::Next});
}

TEST_CASE("media keys reach the player past a window that waits for a modal one") {
    Asked asked;
    const contract::Window window;
    showWindow(window.handle, true);
    EnableWindow(windowOf(window.handle), FALSE);
    PostMessageW(shellListener(), shellMessage(), HSHELL_APPCOMMAND,
                 packed(APPCOMMAND_MEDIA_PAUSE));
    CHECK(asked.become({RemoteRequest::Pause}));
}
