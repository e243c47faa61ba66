#include "app/modMain.h"
#include "app/start_file.h"
#include "assets/assets.h"
#include "platform/desktop.h"
#include "platform/events.h"
#include "platform/media.h"
#include "platform/window.h"
#include "toolkit/bitmap.h"
#include "toolkit/guard.h"

#include <cstdint>
#include <memory>
#include <string>

namespace {

/// Desktops show no larger one of a window, pixels.
constexpr std::int32_t largestIcon = 128;

} // namespace

int main(int argumentCount, char** arguments) {
    // Read while the windows are made, it sounds that much sooner.
    if (const std::string file = startFile(); !file.empty()) platform::expectFile(file);
    if (!platform::start(argumentCount, arguments)) return 1;
    platform::setApplicationIcon(toolkit::decodeIcon(assets::file("orvan.ico"), largestIcon));
    const auto program = std::make_unique<ModMain>();
    toolkit::guarded([&] { program->Main(); });
    if (!program->frmPlayer.window.loaded()) return 0;
    return platform::runEvents();
}
