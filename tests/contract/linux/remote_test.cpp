#include "platform/remote.h"

#include "platform/window.h"
#include "tests/contract/world.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QVariantMap>

#include <doctest/doctest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

using namespace platform;

namespace {

const QString busName = QStringLiteral("org.mpris.MediaPlayer2.orvan");
const QString rootInterface = QStringLiteral("org.mpris.MediaPlayer2");
const QString playerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

/// A program that asks the player, by a connection of its own.
class Asker {
  public:
    Asker() {
        CHECK(contract::waitUntil([&] {
            return call(propertiesInterface, QStringLiteral("Get"),
                        {playerInterface, QStringLiteral("Rate")})
                       .type() == QDBusMessage::ReplyMessage;
        }));
    }
    Asker(const Asker&) = delete;
    Asker& operator=(const Asker&) = delete;
    ~Asker() { QDBusConnection::disconnectFromBus(QStringLiteral("asker")); }

    /// The answer to a call, once it is there.
    QDBusMessage call(const QString& interface, const QString& name,
                      const QVariantList& arguments = {}) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            busName, QStringLiteral("/org/mpris/MediaPlayer2"), interface, name);
        message.setArguments(arguments);
        const QDBusPendingCall pending = bus_.asyncCall(message);
        CHECK(contract::waitUntil([&] { return pending.isFinished(); }));
        return pending.reply();
    }

    QVariant get(const QString& interface, const QString& name) {
        const QDBusMessage answer =
            call(propertiesInterface, QStringLiteral("Get"), {interface, name});
        REQUIRE(answer.type() == QDBusMessage::ReplyMessage);
        return answer.arguments()[0].value<QDBusVariant>().variant();
    }

    QVariantMap metadata() {
        return qdbus_cast<QVariantMap>(get(playerInterface, QStringLiteral("Metadata")));
    }

    /// Takes a name on the bus.
    bool becomes(const QString& name) { return bus_.registerService(name); }

    /// The name of the error by which a call is refused; empty where it isn't.
    QString refusal(const QString& interface, const QString& name,
                    const QVariantList& arguments = {}) {
        return call(interface, name, arguments).errorName();
    }

  private:
    QDBusConnection bus_ =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("asker"));
};

/// A player that is offered to the desktop, and what it has been asked.
struct Offered {
    std::vector<RemoteRequest> requests;
    std::vector<std::int64_t> places;
    std::vector<double> volumes;
    std::int32_t position = 0;
    int positionsAsked = 0;

    Offered() {
        RemoteEvents events;
        events.asked = [this](RemoteRequest request) { requests.push_back(request); };
        events.seek = [this](std::int64_t place) { places.push_back(place); };
        events.volume = [this](double volume) { volumes.push_back(volume); };
        events.position = [this] {
            ++positionsAsked;
            return position;
        };
        offerRemote(events);
    }
};

RemoteState playing(const std::string& title) {
    RemoteState state;
    state.status = RemoteStatus::Playing;
    state.track = 7;
    state.title = title;
    state.length = 200'000;
    state.volume = 0.25;
    return state;
}

} // namespace

TEST_CASE("GNOME's shell, which would start a second player, is told of no desktop entry") {
    const Offered player;
    const QString entry = QStringLiteral("DesktopEntry");
    Asker asker;
    CHECK(asker.get(rootInterface, entry) == QStringLiteral("orvan"));
    REQUIRE(asker.becomes(QStringLiteral("org.gnome.Shell")));
    CHECK(asker.refusal(propertiesInterface, QStringLiteral("Get"), {rootInterface, entry}) ==
          QStringLiteral("org.freedesktop.DBus.Error.UnknownProperty"));
    const QDBusMessage answer =
        asker.call(propertiesInterface, QStringLiteral("GetAll"), {rootInterface});
    REQUIRE(answer.type() == QDBusMessage::ReplyMessage);
    const auto all = qdbus_cast<QVariantMap>(answer.arguments()[0]);
    CHECK(all.contains(QStringLiteral("CanRaise")));
    CHECK_FALSE(all.contains(entry));
}

TEST_CASE("the desktop reads what the player has told, the last of it") {
    const Offered player;
    tellRemote(playing("first.mp3"));
    Asker asker;
    CHECK(asker.get(rootInterface, QStringLiteral("DesktopEntry")) == QStringLiteral("orvan"));
    CHECK(asker.get(playerInterface, QStringLiteral("PlaybackStatus")) ==
          QStringLiteral("Playing"));
    CHECK(asker.get(playerInterface, QStringLiteral("Volume")) == 0.25);
    CHECK(asker.get(playerInterface, QStringLiteral("CanGoNext")) == false);
    CHECK(asker.metadata()[QStringLiteral("xesam:title")] == QStringLiteral("first.mp3"));
    CHECK(asker.metadata()[QStringLiteral("mpris:length")] == qlonglong{200'000'000});
    RemoteState paused = playing("second.mp3");
    paused.status = RemoteStatus::Paused;
    paused.hasNext = true;
    paused.length = 0;
    tellRemote(paused);
    CHECK(asker.get(playerInterface, QStringLiteral("PlaybackStatus")) == QStringLiteral("Paused"));
    CHECK(asker.get(playerInterface, QStringLiteral("CanGoNext")) == true);
    CHECK(asker.metadata()[QStringLiteral("xesam:title")] == QStringLiteral("second.mp3"));
    CHECK_FALSE(asker.metadata().contains(QStringLiteral("mpris:length")));
    tellRemote({});
    CHECK(asker.get(playerInterface, QStringLiteral("PlaybackStatus")) ==
          QStringLiteral("Stopped"));
    CHECK(asker.metadata().keys() == QStringList{QStringLiteral("mpris:trackid")});
}

TEST_CASE("the player is asked where it stands when the desktop wants to know, and not before") {
    Offered player;
    Asker asker;
    tellRemote(playing("a.mp3"));
    asker.get(playerInterface, QStringLiteral("Metadata"));
    CHECK(player.positionsAsked == 0);
    player.position = 1234;
    CHECK(asker.get(playerInterface, QStringLiteral("Position")) == qlonglong{1'234'000});
    CHECK(player.positionsAsked == 1);
    const QDBusMessage all =
        asker.call(propertiesInterface, QStringLiteral("GetAll"), {playerInterface});
    CHECK(qdbus_cast<QVariantMap>(all.arguments()[0])[QStringLiteral("Position")] ==
          qlonglong{1'234'000});
    CHECK(player.positionsAsked == 2);
}

TEST_CASE("names in any script, and names that are no text, are texts on the bus") {
    struct Row {
        std::string title;
        QString shown;
    };
    const Row rows[] = {
        {"Übung-音楽-😀-Ωμέγα-שלום.mp3", QStringLiteral("Übung-音楽-😀-Ωμέγα-שלום.mp3")},
        {"a\xEF\x80\xAA\x62.mp3", QStringLiteral("a*b.mp3")},           // a star of the host's
        {"caf\xEF\x83\xA9.mp3", QStringLiteral("caf\uFFFD.mp3")},       // the byte E9 of the host's
        {"caf\xE9.mp3", QStringLiteral("caf\uFFFD.mp3")},               // the byte itself
        {"\xED\xA0\x80.mp3", QStringLiteral("\uFFFD\uFFFD\uFFFD.mp3")}, // half a character
        {"\xEF\xBF\xBE\xEF\xBF\xBF.mp3", QStringLiteral("\uFFFE\uFFFF.mp3")},
        {"\t\n\x7F.mp3", QStringLiteral("\t\n\x7F.mp3")},
        {"", QString()},
    };
    const Offered player;
    Asker asker;
    for (const Row& row : rows) {
        CAPTURE(row.title);
        tellRemote(playing(row.title));
        CHECK(asker.metadata()[QStringLiteral("xesam:title")].toString().toStdString() ==
              row.shown.toStdString());
    }
}

TEST_CASE("each request on the bus reaches the player by its name") {
    struct Row {
        QString interface;
        QString name;
        RemoteRequest request;
    };
    const Row rows[] = {
        {rootInterface, QStringLiteral("Raise"), RemoteRequest::Raise},
        {rootInterface, QStringLiteral("Quit"), RemoteRequest::Quit},
        {playerInterface, QStringLiteral("Play"), RemoteRequest::Play},
        {playerInterface, QStringLiteral("Pause"), RemoteRequest::Pause},
        {playerInterface, QStringLiteral("PlayPause"), RemoteRequest::PlayOrPause},
        {playerInterface, QStringLiteral("Stop"), RemoteRequest::Stop},
        {playerInterface, QStringLiteral("Next"), RemoteRequest::Next},
        {playerInterface, QStringLiteral("Previous"), RemoteRequest::Previous},
    };
    Offered player;
    Asker asker;
    for (const Row& row : rows) {
        CAPTURE(row.name.toStdString());
        player.requests.clear();
        CHECK(asker.refusal(row.interface, row.name).isEmpty());
        CHECK(contract::waitUntil([&] { return player.requests == std::vector{row.request}; }));
    }
}

TEST_CASE("the desktop has its answer, and may ask more, while a request holds the player up") {
    int asked = 0;
    bool answered = false;
    RemoteEvents events;
    events.position = [] { return 0; };
    events.asked = [&](RemoteRequest) {
        if (++asked == 1) {
            contract::keepNextMessageOpen();
            messageBox("Text", "Title", MessageIcon::None);
        }
    };
    offerRemote(events);
    Asker asker;
    const contract::Timer timer(20, [&] {
        if (asked == 1 && !answered) {
            answered = true;
            CHECK(asker.refusal(playerInterface, QStringLiteral("Next")).isEmpty());
        }
        if (asked == 2) contract::closeWhatIsOpen();
    });
    CHECK(asker.refusal(playerInterface, QStringLiteral("Play")).isEmpty());
    CHECK(contract::waitUntil([&] { return asked == 2; }));
    contract::letPass(100);
}

TEST_CASE("seeks go by the place that has been heard, or to a place of the track that plays") {
    Offered player;
    Asker asker;
    tellRemote(playing("a.mp3"));
    player.position = 60'000;
    const auto seek = [&](qlonglong offset) {
        CHECK(asker.refusal(playerInterface, QStringLiteral("Seek"), {offset}).isEmpty());
    };
    const auto goTo = [&](const char* track, qlonglong place) {
        CHECK(asker
                  .refusal(playerInterface, QStringLiteral("SetPosition"),
                           {QVariant::fromValue(QDBusObjectPath(QLatin1String(track))), place})
                  .isEmpty());
    };
    seek(5'000'000);
    seek(-70'000'000);
    seek(std::numeric_limits<qlonglong>::max());
    goTo("/orvan/track/7", 42'000'000);
    goTo("/orvan/track/7", 0);
    goTo("/orvan/track/7", 200'000'000);
    goTo("/orvan/track/7", -1'000'000);
    goTo("/orvan/track/7", 200'001'000);
    goTo("/orvan/track/6", 1'000'000);
    goTo("/org/mpris/MediaPlayer2/TrackList/NoTrack", 1'000'000);
    seek(0);
    const std::int64_t farAway = std::numeric_limits<std::int64_t>::max() / 1000 + 60'000;
    const std::vector<std::int64_t> wanted{65'000, -10'000, farAway, 42'000, 0, 200'000, 60'000};
    CHECK(contract::waitUntil([&] { return player.places.size() >= wanted.size(); }));
    CHECK(player.places == wanted);
}

TEST_CASE("the desktop sets the volume, and nothing else of the player") {
    Offered player;
    Asker asker;
    const auto set = [&](const QString& name, const QVariant& value) {
        return asker.refusal(propertiesInterface, QStringLiteral("Set"),
                             {playerInterface, name, QVariant::fromValue(QDBusVariant(value))});
    };
    CHECK(set(QStringLiteral("Volume"), 0.75).isEmpty());
    CHECK(contract::waitUntil([&] { return player.volumes == std::vector{0.75}; }));
    CHECK(set(QStringLiteral("Rate"), 1.0).isEmpty());
    CHECK_FALSE(set(QStringLiteral("Volume"), QStringLiteral("loud")).isEmpty());
    CHECK_FALSE(set(QStringLiteral("Position"), qlonglong{0}).isEmpty());
    CHECK_FALSE(set(QStringLiteral("CanQuit"), true).isEmpty());
    CHECK_FALSE(set(QStringLiteral("Fullscreen"), true).isEmpty());
    CHECK(player.volumes.size() == 1);
}

TEST_CASE("calls that the player has no answer for are refused") {
    const Offered player;
    Asker asker;
    CHECK_FALSE(asker.refusal(playerInterface, QStringLiteral("Dance")).isEmpty());
    CHECK_FALSE(asker.refusal(rootInterface, QStringLiteral("Next")).isEmpty());
    CHECK_FALSE(asker.refusal(playerInterface, QStringLiteral("Seek")).isEmpty());
    CHECK_FALSE(
        asker.refusal(playerInterface, QStringLiteral("Seek"), {QStringLiteral("far")}).isEmpty());
    CHECK_FALSE(
        asker.refusal(playerInterface, QStringLiteral("SetPosition"), {qlonglong{1}}).isEmpty());
    CHECK_FALSE(
        asker.refusal(playerInterface, QStringLiteral("OpenUri"), {QStringLiteral("file:///a.mp3")})
            .isEmpty());
    CHECK_FALSE(
        asker.refusal(propertiesInterface, QStringLiteral("Get"), {playerInterface}).isEmpty());
    CHECK_FALSE(asker
                    .refusal(propertiesInterface, QStringLiteral("Get"),
                             {playerInterface, QStringLiteral("Colour")})
                    .isEmpty());
}
