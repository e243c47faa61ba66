#include "toolkit/msgbox.h"

#include "platform/window.h"

namespace toolkit {

void MsgBox(const std::string& prompt, MsgBoxStyle style, const std::string& title) {
    using platform::MessageIcon;
    platform::messageBox(
        prompt, title, style == MsgBoxStyle::Critical ? MessageIcon::Critical : MessageIcon::None);
}

} // namespace toolkit
