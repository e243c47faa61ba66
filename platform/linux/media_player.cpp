#include "platform/linux/media_player.h"

#include "platform/linux/bus_names.h"
#include "platform/linux/media_player_properties.h"

#include <QDBusPendingCall>
#include <QDBusVariant>

#include <cstdint>
#include <limits>
#include <utility>

namespace platform {
namespace {

const QString busName = QStringLiteral("org.mpris.MediaPlayer2.orvan");
const QString objectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString rootInterface = QStringLiteral("org.mpris.MediaPlayer2");
const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

const QString positionName = QStringLiteral("Position");

const QString description = QStringLiteral(R"(
<interface name="org.mpris.MediaPlayer2">
 <method name="Raise"/>
 <method name="Quit"/>
 <property name="CanQuit" type="b" access="read"/>
 <property name="CanRaise" type="b" access="read"/>
 <property name="HasTrackList" type="b" access="read"/>
 <property name="Identity" type="s" access="read"/>
 <property name="DesktopEntry" type="s" access="read"/>
 <property name="SupportedUriSchemes" type="as" access="read"/>
 <property name="SupportedMimeTypes" type="as" access="read"/>
</interface>
<interface name="org.mpris.MediaPlayer2.Player">
 <method name="Next"/>
 <method name="Previous"/>
 <method name="Pause"/>
 <method name="PlayPause"/>
 <method name="Stop"/>
 <method name="Play"/>
 <method name="Seek"><arg name="Offset" type="x" direction="in"/></method>
 <method name="SetPosition">
  <arg name="TrackId" type="o" direction="in"/>
  <arg name="Position" type="x" direction="in"/>
 </method>
 <method name="OpenUri"><arg name="Uri" type="s" direction="in"/></method>
 <signal name="Seeked"><arg name="Position" type="x"/></signal>
 <property name="PlaybackStatus" type="s" access="read"/>
 <property name="Rate" type="d" access="readwrite"/>
 <property name="Metadata" type="a{sv}" access="read"/>
 <property name="Volume" type="d" access="readwrite"/>
 <property name="Position" type="x" access="read">
  <annotation name="org.freedesktop.DBus.Property.EmitsChangedSignal" value="false"/>
 </property>
 <property name="MinimumRate" type="d" access="read"/>
 <property name="MaximumRate" type="d" access="read"/>
 <property name="CanGoNext" type="b" access="read"/>
 <property name="CanGoPrevious" type="b" access="read"/>
 <property name="CanPlay" type="b" access="read"/>
 <property name="CanPause" type="b" access="read"/>
 <property name="CanSeek" type="b" access="read"/>
 <property name="CanControl" type="b" access="read">
  <annotation name="org.freedesktop.DBus.Property.EmitsChangedSignal" value="false"/>
 </property>
</interface>
)");

/// The requests without arguments, by their names on the bus.
struct Named {
    QString interface;
    QString name;
    RemoteRequest request;
};
const Named requests[] = {
    {rootInterface, QStringLiteral("Raise"), RemoteRequest::Raise},
    {rootInterface, QStringLiteral("Quit"), RemoteRequest::Quit},
    {playerInterface, QStringLiteral("Next"), RemoteRequest::Next},
    {playerInterface, QStringLiteral("Previous"), RemoteRequest::Previous},
    {playerInterface, QStringLiteral("Pause"), RemoteRequest::Pause},
    {playerInterface, QStringLiteral("PlayPause"), RemoteRequest::PlayOrPause},
    {playerInterface, QStringLiteral("Stop"), RemoteRequest::Stop},
    {playerInterface, QStringLiteral("Play"), RemoteRequest::Play},
};

/// A call need not name its interface.
bool calls(const QDBusMessage& message, const QString& interface, const QString& name) {
    return message.member() == name &&
           (message.interface() == interface || message.interface().isEmpty());
}

bool isPosition(const QString& interface, const QString& name) {
    return interface == playerInterface && name == positionName;
}

QDBusMessage refusal(const QDBusMessage& message, QDBusError::ErrorType type, const char* why) {
    return message.createErrorReply(type, QString::fromLatin1(why));
}

QDBusMessage wrongArguments(const QDBusMessage& message) {
    return refusal(message, QDBusError::InvalidArgs, "These are not the arguments of the call.");
}

QDBusMessage unknownProperty(const QDBusMessage& message) {
    return refusal(message, QDBusError::UnknownProperty, "There is no such property.");
}

QDBusMessage toTheBus(const QString& call) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), call);
}

/// Messages are sent one after another by a thread of their own. Once the bus has answered, what
/// was said before has left the process, which may end then.
void awaitSent() {
    constexpr int longest = 1000; // ms
    QDBusConnection::sessionBus().call(toTheBus(QStringLiteral("GetId")), QDBus::Block, longest);
}

/// A number that the player's own thousandths take, whatever the bus was given.
std::int64_t milliseconds(std::int64_t microseconds) { return microseconds / mpris::microseconds; }

std::int64_t sum(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (!__builtin_add_overflow(a, b, &result)) return result;
    return b > 0 ? std::numeric_limits<std::int64_t>::max()
                 : std::numeric_limits<std::int64_t>::min();
}

} // namespace

MediaPlayer::MediaPlayer(RemoteEvents events) : events_(std::move(events)) {}

void MediaPlayer::appear() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    present_ = bus.registerVirtualObject(objectPath, this, QDBusConnection::SingleNode);
    if (!present_) return;
    // A player on another display may have the name; then this one waits for it.
    QDBusMessage request = toTheBus(QStringLiteral("RequestName"));
    request << busName << 0U;
    bus.asyncCall(request);
}

void MediaPlayer::tell(const RemoteState& state) {
    const QVariantMap changed =
        mpris::changes(mpris::playerProperties(state_), mpris::playerProperties(state));
    state_ = state;
    if (changed.isEmpty()) return;
    sendSignal(propertiesInterface, QStringLiteral("PropertiesChanged"),
               {playerInterface, changed, QStringList()});
}

void MediaPlayer::tellSeek(std::int32_t position) {
    sendSignal(playerInterface, QStringLiteral("Seeked"),
               {qlonglong{position * mpris::microseconds}});
}

void MediaPlayer::sendSignal(const QString& interface, const QString& name,
                             const QVariantList& arguments) const {
    if (!present_) return;
    QDBusMessage signal = QDBusMessage::createSignal(objectPath, interface, name);
    signal.setArguments(arguments);
    QDBusConnection::sessionBus().send(signal);
}

QString MediaPlayer::introspect(const QString& /*path*/) const { return description; }

bool MediaPlayer::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    const QDBusMessage answer = answerTo(message);
    if (answer.type() == QDBusMessage::InvalidMessage) return false;
    if (message.isReplyRequired()) connection.send(answer);
    return true;
}

/// An invalid message for calls that there are not.
QDBusMessage MediaPlayer::answerTo(const QDBusMessage& message) {
    for (const Named& named : requests) {
        if (!calls(message, named.interface, named.name)) continue;
        later([this, request = named.request] {
            if (request == RemoteRequest::Quit) awaitSent();
            events_.asked(request);
        });
        return message.createReply();
    }
    if (calls(message, playerInterface, QStringLiteral("Seek"))) return seek(message);
    if (calls(message, playerInterface, QStringLiteral("SetPosition"))) return setPosition(message);
    if (calls(message, playerInterface, QStringLiteral("OpenUri")))
        return refusal(message, QDBusError::NotSupported, "No address is opened from outside.");
    if (calls(message, propertiesInterface, QStringLiteral("Get"))) return get(message);
    if (calls(message, propertiesInterface, QStringLiteral("GetAll"))) return getAll(message);
    if (calls(message, propertiesInterface, QStringLiteral("Set"))) return set(message);
    return {};
}

QVariantMap MediaPlayer::propertiesOf(const QString& interface, const QString& asker) const {
    if (interface == rootInterface) {
        QVariantMap all = mpris::rootProperties();
        // It would start a second player by it rather than have a hidden one come forward.
        if (asker == gnomesShell()) all.remove(QStringLiteral("DesktopEntry"));
        return all;
    }
    if (interface == playerInterface) return mpris::playerProperties(state_);
    return {};
}

/// The sound device is asked for it each time.
QVariant MediaPlayer::position() const {
    return qlonglong{events_.position() * mpris::microseconds};
}

QDBusMessage MediaPlayer::get(const QDBusMessage& message) const {
    if (message.signature() != QLatin1String("ss")) return wrongArguments(message);
    const QString interface = message.arguments()[0].toString();
    const QString name = message.arguments()[1].toString();
    const QVariant value = isPosition(interface, name)
                               ? position()
                               : propertiesOf(interface, message.service()).value(name);
    if (!value.isValid()) return unknownProperty(message);
    return message.createReply(QVariant::fromValue(QDBusVariant(value)));
}

QDBusMessage MediaPlayer::getAll(const QDBusMessage& message) const {
    if (message.signature() != QLatin1String("s")) return wrongArguments(message);
    const QString interface = message.arguments()[0].toString();
    QVariantMap all = propertiesOf(interface, message.service());
    if (interface == playerInterface) all.insert(positionName, position());
    return message.createReply(all);
}

QDBusMessage MediaPlayer::set(const QDBusMessage& message) {
    if (message.signature() != QLatin1String("ssv")) return wrongArguments(message);
    const QString interface = message.arguments()[0].toString();
    const QString name = message.arguments()[1].toString();
    if (!isPosition(interface, name) && !propertiesOf(interface, message.service()).contains(name))
        return unknownProperty(message);
    // The rate may be set, to the only one that there is.
    if (name == QLatin1String("Rate")) return message.createReply();
    if (name != QLatin1String("Volume"))
        return refusal(message, QDBusError::PropertyReadOnly, "This property can't be set.");
    const QVariant value = message.arguments()[2].value<QDBusVariant>().variant();
    if (value.metaType().id() != QMetaType::Double) return wrongArguments(message);
    later([this, volume = value.toDouble()] { events_.volume(volume); });
    return message.createReply();
}

QDBusMessage MediaPlayer::seek(const QDBusMessage& message) {
    if (message.signature() != QLatin1String("x")) return wrongArguments(message);
    const std::int64_t offset = milliseconds(message.arguments()[0].toLongLong());
    later([this, offset] { events_.seek(sum(events_.position(), offset)); });
    return message.createReply();
}

/// A place that isn't in the track, or in one that plays no more, is no place to go to.
QDBusMessage MediaPlayer::setPosition(const QDBusMessage& message) {
    if (message.signature() != QLatin1String("ox")) return wrongArguments(message);
    const auto track = message.arguments()[0].value<QDBusObjectPath>();
    const std::int64_t place = milliseconds(message.arguments()[1].toLongLong());
    later([this, track, place] {
        const bool beyond = state_.length > 0 && place > state_.length;
        if (state_.track != 0 && track == mpris::trackOf(state_) && place >= 0 && !beyond)
            events_.seek(place);
    });
    return message.createReply();
}

void MediaPlayer::later(std::function<void()> deed) {
    QMetaObject::invokeMethod(this, std::move(deed), Qt::QueuedConnection);
}

} // namespace platform
