#include "toolkit/hook_window.h"

#include "platform/window.h"
#include "toolkit/form.h"
#include "toolkit/guard.h"
#include "toolkit/screen.h"

#include <cstdint>

namespace toolkit {

void HookWindow::add(Form& form) {
    window_ = platform::createHookWindow(form.hWnd(), [this](std::int32_t code) {
        guarded([&] {
            MouseArguments arguments;
            arguments.X = static_cast<Twips>(code) * Screen::TwipsPerPixelX();
            // Held: the handler may end the hook and its owner.
            const MouseHandler handler = MouseMove;
            if (handler) handler(arguments);
        });
    });
}

} // namespace toolkit
