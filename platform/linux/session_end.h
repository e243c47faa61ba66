#pragma once

namespace platform {

/// Has SIGTERM, SIGINT, SIGHUP and the end of the desktop session close the first window, then
/// leave the event loop with status 0. After the application object is there.
void watchSessionEnd();

} // namespace platform
