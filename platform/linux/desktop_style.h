#pragma once

namespace platform {

/// Has what Qt shows speak the user's language and follow the desktop's preference of light or
/// dark. To be called before a menu or a dialog; at the first time it asks the desktop, which takes
/// a tenth of a second at most, and from then on it is told.
void followDesktop();

} // namespace platform
