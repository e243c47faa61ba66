#pragma once

#include <QList>
#include <QUrl>

namespace platform {

/// Where a user looks for music: home, music, desktop and the drives that are in, as far as they
/// are there.
QList<QUrl> usersPlaces();

} // namespace platform
