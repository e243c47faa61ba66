/// A tray on the session's message bus, as today's desktops have one, without anything to see. It
/// says "ready" once it is there and "icon" for each icon that comes, and passes on to the latest
/// icon what it reads, a line each: "Activate" for a click, "ContextMenu" for a right one; after
/// each it says "done".

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSocketNotifier>

#include <iostream>
#include <string>
#include <unistd.h>

namespace {

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

void say(const char* word) { std::cout << word << std::endl; }

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

    void pass(const std::string& call) const {
        QDBusMessage message =
            QDBusMessage::createMethodCall(icon_, QStringLiteral("/StatusNotifierItem"),
                                           itemInterface, QString::fromStdString(call));
        message << 0 << 0;
        QDBusConnection::sessionBus().call(message);
        say("done");
    }

  private:
    QString icon_;
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
