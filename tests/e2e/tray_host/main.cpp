/// A tray on the session's message bus, as today's desktops have one, without anything to see. It
/// says "ready" once it is there and "icon" for each icon that comes, and passes on to the latest
/// icon what it reads, a line each, and says "done" after each: "Activate" for a click,
/// "ContextMenu" for a right one, "Pick" and a caption for an entry of the menu that the icon gives
/// away. "Icons" has it say how many have come instead, "Title" what the icon calls itself. "Close"
/// takes the tray away while the program goes on, "Open" brings it back. "Give" and a word gives
/// the icon the word by which the desktop waits for what comes of a click, "Heard" has the host say
/// what a program has told all who wait. Called with "--gnome" it has the name of GNOME's shell
/// too.

#include "tests/e2e/tray_host/start_words.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSocketNotifier>

#include <iostream>
#include <string>
#include <unistd.h>

namespace {

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

void say(const std::string& word) { std::cout << word << std::endl; }

/// The id of the entry with a caption in a menu's layout, its sub-menus' included; 0 for none.
int entryOf(const QDBusArgument& layout, const QString& caption) {
    int id = 0;
    QVariantMap properties;
    int found = 0;
    layout.beginStructure();
    layout >> id >> properties;
    if (properties.value(QStringLiteral("label")).toString() == caption) found = id;
    layout.beginArray();
    while (!layout.atEnd()) {
        QDBusVariant child;
        layout >> child;
        const int below = entryOf(qvariant_cast<QDBusArgument>(child.variant()), caption);
        if (below != 0) found = below;
    }
    layout.endArray();
    layout.endStructure();
    return found;
}

class Watcher : public QDBusVirtualObject {
  public:
    [[nodiscard]] QString introspect(const QString& /*path*/) const override {
        return QStringLiteral(R"(<interface name="org.kde.StatusNotifierWatcher">
  <method name="RegisterStatusNotifierItem"><arg name="service" type="s" direction="in"/></method>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
</interface>)");
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() == QLatin1String("RegisterStatusNotifierItem")) {
            icon_ = message.service();
            ++icons_;
            bus.send(message.createReply());
            say("icon");
            return true;
        }
        if (message.member() == QLatin1String("Get")) {
            bus.send(message.createReply(QVariant::fromValue(QDBusVariant(true))));
            return true;
        }
        return false;
    }

    void pass(const std::string& call) {
        const std::string pick = "Pick ";
        const std::string give = "Give ";
        if (call == "Title") return say(property(QStringLiteral("Title")).toString().toStdString());
        if (call == "Icons") return say(std::to_string(icons_));
        if (call == "Heard") return say(startWords_.next());
        if (call.starts_with(give))
            return send(QStringLiteral("ProvideXdgActivationToken"),
                        {QString::fromStdString(call.substr(give.size()))});
        if (call == "Close" || call == "Open") return setOpen(call == "Open");
        if (call.starts_with(pick)) return choose(QString::fromStdString(call.substr(pick.size())));
        send(QString::fromStdString(call), {0, 0});
    }

  private:
    void send(const QString& call, const QVariantList& arguments) const {
        QDBusMessage message = QDBusMessage::createMethodCall(
            icon_, QStringLiteral("/StatusNotifierItem"), itemInterface, call);
        message.setArguments(arguments);
        QDBusConnection::sessionBus().call(message);
        say("done");
    }

    static void setOpen(bool open) {
        QDBusConnection bus = QDBusConnection::sessionBus();
        const bool done =
            open ? bus.registerService(watcherName) : bus.unregisterService(watcherName);
        say(done ? "done" : "refused");
    }

    [[nodiscard]] QVariant property(const QString& name) const {
        QDBusMessage ask = QDBusMessage::createMethodCall(
            icon_, QStringLiteral("/StatusNotifierItem"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
        ask << itemInterface << name;
        const QDBusMessage answer = QDBusConnection::sessionBus().call(ask);
        return answer.arguments().value(0).value<QDBusVariant>().variant();
    }

    /// Picks an entry as hosts do that show the menu themselves.
    void choose(const QString& caption) const {
        const QDBusConnection bus = QDBusConnection::sessionBus();
        const QString path = property(QStringLiteral("Menu")).value<QDBusObjectPath>().path();
        const QString menu = QStringLiteral("com.canonical.dbusmenu");
        QDBusMessage list =
            QDBusMessage::createMethodCall(icon_, path, menu, QStringLiteral("GetLayout"));
        list << 0 << -1 << QStringList();
        const QVariantList layout = bus.call(list).arguments();
        const int id = layout.size() < 2 ? 0 : entryOf(layout[1].value<QDBusArgument>(), caption);
        if (id == 0) return say("no such entry in " + path.toStdString());
        QDBusMessage click =
            QDBusMessage::createMethodCall(icon_, path, menu, QStringLiteral("Event"));
        click << id << QStringLiteral("clicked") << QVariant::fromValue(QDBusVariant(0)) << 0U;
        bus.call(click);
        say("done");
    }

    QString icon_;
    int icons_ = 0;
    StartWords startWords_;
};

} // namespace

int main(int argumentCount, char** arguments) {
    QCoreApplication application(argumentCount, arguments);
    QDBusConnection bus = QDBusConnection::sessionBus();
    Watcher watcher;
    if (!bus.registerVirtualObject(QStringLiteral("/StatusNotifierWatcher"), &watcher) ||
        !bus.registerService(watcherName)) {
        std::cerr << "no place for a tray on the bus\n";
        return 1;
    }
    if (application.arguments().contains(QLatin1String("--gnome")) &&
        !bus.registerService(QStringLiteral("org.gnome.Shell")))
        return 1;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &watcher, [&] {
        std::string call;
        char letter = 0;
        while (read(STDIN_FILENO, &letter, 1) == 1 && letter != '\n')
            call += letter;
        if (call.empty()) return QCoreApplication::quit();
        watcher.pass(call);
    });
    say("ready");
    return QCoreApplication::exec();
}
