#pragma once

#include "toolkit/app.h"

#include <string>

namespace toolkit {

/// Style flags of `MsgBox`; both have an OK button.
enum class MsgBoxStyle { Plain = 0, Critical = 16 };

/// Shows a message and waits for its OK button; events and ticks go on meanwhile.
void MsgBox(const std::string& prompt, MsgBoxStyle style = MsgBoxStyle::Plain,
            const std::string& title = App::Title);

} // namespace toolkit
