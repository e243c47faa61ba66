#pragma once

#include <QString>

namespace platform {

/// The program on the session's message bus that has a name; empty if none has, or without a bus.
QString ownerOf(const QString& name);

/// The program that is GNOME's shell; empty if there is none.
QString gnomesShell();

} // namespace platform
