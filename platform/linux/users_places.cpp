#include "platform/linux/users_places.h"

#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>

#include <algorithm>
#include <array>

namespace platform {
namespace {

/// Where desktops and administrators put drives; the rest of the mounts are the system's.
bool isUsersDrive(const QString& root) {
    const std::array<QLatin1String, 3> homes = {
        QLatin1String("/media/"), QLatin1String("/run/media/"), QLatin1String("/mnt/")};
    return std::any_of(homes.begin(), homes.end(),
                       [&](QLatin1String home) { return root.startsWith(home); });
}

} // namespace

QList<QUrl> usersPlaces() {
    QStringList folders = {QDir::homePath()};
    for (const auto place : {QStandardPaths::MusicLocation, QStandardPaths::DesktopLocation})
        folders.append(QStandardPaths::writableLocation(place));
    for (const QStorageInfo& drive : QStorageInfo::mountedVolumes())
        if (isUsersDrive(drive.rootPath())) folders.append(drive.rootPath());
    folders.removeDuplicates();
    QList<QUrl> places;
    for (const QString& folder : folders)
        if (QDir(folder).exists()) places.append(QUrl::fromLocalFile(folder));
    places.append(QUrl::fromLocalFile(QDir::rootPath()));
    return places;
}

} // namespace platform
