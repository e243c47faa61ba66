#pragma once

#include "platform/text.h"

#include <QFont>

namespace platform {

/// The font of this desktop that stands for one that is asked for.
const QFont& fontFor(const Font& font);

} // namespace platform
