#include "toolkit/command_button.h"

#include "toolkit/guard.h"

#include <utility>

namespace toolkit {

std::string CommandButton::Caption() const {
    touch();
    return caption_;
}

void CommandButton::setFace(std::string caption, platform::Font font,
                            platform::PointerShape pointer) {
    caption_ = std::move(caption);
    font_ = std::move(font);
    pointer_ = std::move(pointer);
}

void CommandButton::windowMade(platform::WindowHandle window) {
    platform::createPushButton(window, {caption_, area(), font_, pointer_}, [this] {
        guarded([this] {
            if (Click) Click();
        });
    });
}

} // namespace toolkit
