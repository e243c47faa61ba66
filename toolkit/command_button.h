#pragma once

#include "platform/window.h"
#include "toolkit/control.h"

#include <string>

namespace toolkit {

/// A push button. The platform draws and operates it; only its click comes here.
class CommandButton : public Control {
  public:
    [[nodiscard]] std::string Caption() const;

    /// Set once, before the form loads. "&" stands before the letter that clicks it with Alt.
    void setFace(std::string caption, platform::Font font, platform::PointerShape pointer);

    void windowMade(platform::WindowHandle window) override;

  private:
    std::string caption_;
    platform::Font font_;
    platform::PointerShape pointer_;
};

} // namespace toolkit
