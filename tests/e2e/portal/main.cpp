/// The portal of a desktop on the session's message bus, without anything to see. It says "ready"
/// once it is there, "open" and what it was asked for at each file dialog, and "closed" when one is
/// taken back. It reads lines: "Choose URI..." or "Cancel" answer the latest dialog, "Scheme N" is
/// a new preference of dark (1) or light, "Leave" takes the portal away. Its first argument is the
/// preference to begin with.

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

const QString serviceName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colourScheme = QStringLiteral("color-scheme");

void say(const QString& words) { std::cout << words.toStdString() << std::endl; }

/// The file types as "label=pattern pattern".
QString typesOf(const QDBusArgument& types) {
    QStringList told;
    types.beginArray();
    while (!types.atEnd()) {
        QString label;
        QStringList patterns;
        types.beginStructure();
        types >> label;
        types.beginArray();
        while (!types.atEnd()) {
            uint kind = 0;
            QString pattern;
            types.beginStructure();
            types >> kind >> pattern;
            types.endStructure();
            patterns.append(pattern);
        }
        types.endArray();
        types.endStructure();
        told.append(label + QLatin1Char('=') + patterns.join(QLatin1Char(' ')));
    }
    types.endArray();
    return told.join(QLatin1Char(';'));
}

class Portal : public QDBusVirtualObject {
  public:
    explicit Portal(uint scheme) : scheme_(scheme) {}

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        const QString member = message.member();
        if (member == QLatin1String("Get"))
            return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(4U))));
        if (member == QLatin1String("Read"))
            return bus.send(message.createReply(
                QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(scheme_))))));
        if (member == QLatin1String("Close")) say(QStringLiteral("closed"));
        if (member == QLatin1String("Close")) return bus.send(message.createReply());
        if (member == QLatin1String("OpenFile")) return open(message, bus);
        return false;
    }

    void obey(const std::string& line) {
        QStringList words = QString::fromStdString(line).split(QLatin1Char(' '));
        const QString order = words.takeFirst();
        if (order == QLatin1String("Choose")) answer(0, words);
        if (order == QLatin1String("Cancel")) answer(1, {});
        if (order == QLatin1String("Scheme")) prefer(words.value(0).toUInt());
        if (order == QLatin1String("Leave")) QCoreApplication::quit();
    }

  private:
    bool open(const QDBusMessage& message, const QDBusConnection& bus) {
        const QVariantMap options = qdbus_cast<QVariantMap>(message.arguments().value(2));
        const auto is = [&](const char* name) {
            return options.value(QLatin1String(name)).toBool() ? QLatin1String("1")
                                                               : QLatin1String("0");
        };
        QString sender = message.service().mid(1);
        sender.replace(QLatin1Char('.'), QLatin1Char('_'));
        request_ = object + QStringLiteral("/request/") + sender + QLatin1Char('/') +
                   options.value(QStringLiteral("handle_token")).toString();
        const QByteArray folder = options.value(QStringLiteral("current_folder")).toByteArray();
        const QString types =
            options.contains(QStringLiteral("filters"))
                ? typesOf(options.value(QStringLiteral("filters")).value<QDBusArgument>())
                : QString();
        bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request_))));
        say(QStringLiteral("open|%1|%2|%3|%4|%5|%6|%7")
                .arg(message.arguments().value(0).toString(),
                     message.arguments().value(1).toString(), is("modal"), is("multiple"),
                     is("directory"), QString::fromLatin1(folder.toPercentEncoding("/")), types));
        return true;
    }

    void answer(uint code, const QStringList& uris) const {
        QDBusMessage told = QDBusMessage::createSignal(
            request_, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        told << code << QVariantMap{{QStringLiteral("uris"), uris}};
        QDBusConnection::sessionBus().send(told);
    }

    void prefer(uint scheme) {
        scheme_ = scheme;
        QDBusMessage told =
            QDBusMessage::createSignal(object, settings, QStringLiteral("SettingChanged"));
        told << appearance << colourScheme << QVariant::fromValue(QDBusVariant(scheme));
        QDBusConnection::sessionBus().send(told);
    }

    uint scheme_;
    QString request_;
};

} // namespace

int main(int argumentCount, char** arguments) {
    const QCoreApplication application(argumentCount, arguments);
    QDBusConnection bus = QDBusConnection::sessionBus();
    Portal portal(QCoreApplication::arguments().value(1).toUInt());
    if (!bus.registerVirtualObject(object, &portal, QDBusConnection::SubPath) ||
        !bus.registerService(serviceName)) {
        std::cerr << "no place for a portal on the bus\n";
        return 1;
    }
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &portal, [&] {
        std::string line;
        char letter = 0;
        while (read(STDIN_FILENO, &letter, 1) == 1 && letter != '\n')
            line += letter;
        if (line.empty()) return QCoreApplication::quit();
        portal.obey(line);
    });
    say(QStringLiteral("ready"));
    return QCoreApplication::exec();
}
