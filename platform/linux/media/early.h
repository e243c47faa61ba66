#pragma once

namespace platform::media {

/// Begins to connect to the sound server while the windows are still to be made. Waits for nothing;
/// whether there is a server shows at the first command that needs one. Interface thread, once,
/// when nothing writes into the environment any more: the client library reads there from a thread.
void connectEarly();

} // namespace platform::media
