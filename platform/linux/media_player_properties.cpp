#include "platform/linux/media_player_properties.h"

#include "platform/linux/paths.h"

#include <QString>
#include <QStringList>

#include <string>

namespace platform::mpris {
namespace {

QString statusText(RemoteStatus status) {
    if (status == RemoteStatus::Playing) return QStringLiteral("Playing");
    return status == RemoteStatus::Paused ? QStringLiteral("Paused") : QStringLiteral("Stopped");
}

/// A name as the desktop shows it; bytes of it that are no text become replacement characters.
QString titleOf(const RemoteState& state) {
    const std::string name = toHost(state.title);
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

QVariantMap metadataOf(const RemoteState& state) {
    QVariantMap map{{QStringLiteral("mpris:trackid"), QVariant::fromValue(trackOf(state))}};
    if (state.track == 0) return map;
    map.insert(QStringLiteral("xesam:title"), titleOf(state));
    if (state.length > 0)
        map.insert(QStringLiteral("mpris:length"), qlonglong{state.length * microseconds});
    return map;
}

} // namespace

QVariantMap rootProperties() {
    return {{QStringLiteral("CanQuit"), true},
            {QStringLiteral("CanRaise"), true},
            {QStringLiteral("HasTrackList"), false},
            {QStringLiteral("Identity"), QStringLiteral("Orvan Music Player")},
            {QStringLiteral("DesktopEntry"), QStringLiteral("orvan")},
            {QStringLiteral("SupportedUriSchemes"), QStringList()},
            {QStringLiteral("SupportedMimeTypes"), QStringList()}};
}

QVariantMap playerProperties(const RemoteState& state) {
    const bool begun = state.status != RemoteStatus::Stopped;
    return {{QStringLiteral("PlaybackStatus"), statusText(state.status)},
            {QStringLiteral("Rate"), 1.0},
            {QStringLiteral("MinimumRate"), 1.0},
            {QStringLiteral("MaximumRate"), 1.0},
            {QStringLiteral("Metadata"), metadataOf(state)},
            {QStringLiteral("Volume"), state.volume},
            {QStringLiteral("CanGoNext"), state.hasNext},
            {QStringLiteral("CanGoPrevious"), state.hasPrevious},
            {QStringLiteral("CanPlay"), true},
            {QStringLiteral("CanPause"), begun},
            // The seek bar is dead while the track stands still.
            {QStringLiteral("CanSeek"), state.status == RemoteStatus::Playing},
            {QStringLiteral("CanControl"), true}};
}

QDBusObjectPath trackOf(const RemoteState& state) {
    if (state.track == 0)
        return QDBusObjectPath(QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack"));
    return QDBusObjectPath(QStringLiteral("/orvan/track/%1").arg(state.track));
}

QVariantMap changes(const QVariantMap& before, const QVariantMap& now) {
    QVariantMap changed;
    for (auto entry = now.begin(); entry != now.end(); ++entry)
        if (before.value(entry.key()) != entry.value()) changed.insert(entry.key(), entry.value());
    return changed;
}

} // namespace platform::mpris
