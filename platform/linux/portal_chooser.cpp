#include "platform/linux/portal_chooser.h"

#include "platform/linux/input_barrier.h"
#include "platform/linux/paths.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QEventLoop>

#include <cstdint>
#include <utility>

/// How the portal takes file types; the message bus looks for these operators beside the types.
namespace platform::portal {

struct Pattern {
    std::uint32_t kind = 0; ///< 0: a pattern of names
    QString text;
};

struct FileType {
    QString label;
    QList<Pattern> patterns;
};

QDBusArgument& operator<<(QDBusArgument& to, const Pattern& pattern) {
    to.beginStructure();
    to << pattern.kind << pattern.text;
    to.endStructure();
    return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, Pattern& pattern) {
    from.beginStructure();
    from >> pattern.kind >> pattern.text;
    from.endStructure();
    return from;
}

QDBusArgument& operator<<(QDBusArgument& to, const FileType& type) {
    to.beginStructure();
    to << type.label << type.patterns;
    to.endStructure();
    return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, FileType& type) {
    from.beginStructure();
    from >> type.label >> type.patterns;
    from.endStructure();
    return from;
}

/// What the portal says once its dialog is closed.
class Answer : public QObject {
    Q_OBJECT

  public:
    explicit Answer(QEventLoop& loop) : loop_(loop) {}
    [[nodiscard]] bool came() const { return came_; }
    [[nodiscard]] const QStringList& uris() const { return uris_; }

  public slots:
    void take(uint code, const QVariantMap& results) {
        came_ = true;
        if (code == 0) uris_ = results.value(QStringLiteral("uris")).toStringList();
        loop_.quit();
    }

  private:
    QEventLoop& loop_;
    bool came_ = false;
    QStringList uris_;
};

} // namespace platform::portal

namespace platform {
namespace {

using portal::FileType;
using portal::Pattern;

/// A portal that has to be started first may take a while; a dialog must come up all the same.
constexpr int patience = 5000;   // ms
constexpr uint foldersSince = 3; // the version that can choose folders

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString chooser = QStringLiteral("org.freedesktop.portal.FileChooser");
const QString requests = QStringLiteral("org.freedesktop.portal.Request");

/// Runs events until the call is answered; an answer of another kind if it isn't.
QDBusMessage answerTo(const QDBusMessage& call) {
    QEventLoop loop;
    const QDBusPendingCallWatcher watcher(QDBusConnection::sessionBus().asyncCall(call, patience));
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!watcher.isFinished()) loop.exec();
    return watcher.isFinished() ? watcher.reply() : QDBusMessage();
}

bool canChoose(const FileRequest& request) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        service, object, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << chooser << QStringLiteral("version");
    const QDBusMessage answer = answerTo(call);
    if (answer.type() != QDBusMessage::ReplyMessage) return false;
    const uint version = answer.arguments().value(0).value<QDBusVariant>().variant().toUInt();
    return version >= (request.folders ? foldersSince : 1);
}

FileType fileTypeOf(const NameFilter& filter) {
    FileType type{QString::fromStdString(filter.label), {}};
    for (const std::string& pattern : filter.patterns)
        type.patterns.append({0, QString::fromStdString(anyCase(pattern))});
    return type;
}

QVariantMap optionsOf(const FileRequest& request, const QString& token) {
    qDBusRegisterMetaType<Pattern>();
    qDBusRegisterMetaType<QList<Pattern>>();
    qDBusRegisterMetaType<FileType>();
    qDBusRegisterMetaType<QList<FileType>>();
    QVariantMap options = {{QStringLiteral("handle_token"), token},
                           {QStringLiteral("modal"), request.owner != 0},
                           {QStringLiteral("multiple"), request.several},
                           {QStringLiteral("directory"), request.folders}};
    QList<FileType> types;
    for (const NameFilter& filter : request.filters)
        types.append(fileTypeOf(filter));
    if (!types.isEmpty()) options[QStringLiteral("filters")] = QVariant::fromValue(types);
    const auto first = static_cast<qsizetype>(request.filter);
    if (first < types.size())
        options[QStringLiteral("current_filter")] = QVariant::fromValue(types[first]);
    // A path is bytes with a nul behind them.
    if (!request.folder.empty())
        options[QStringLiteral("current_folder")] =
            QByteArray(request.folder.c_str(), static_cast<qsizetype>(request.folder.size()) + 1);
    return options;
}

QString nameOfWindow(const QWidget* window) {
    return window == nullptr ? QString() : QStringLiteral("x11:%1").arg(window->winId(), 0, 16);
}

/// Where the portal will tell the outcome.
QString requestPath(const QString& token) {
    QString sender = QDBusConnection::sessionBus().baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return object + QStringLiteral("/request/") + sender + QLatin1Char('/') + token;
}

QString newToken() {
    static int count = 0;
    return QStringLiteral("orvan%1").arg(++count);
}

void takeBack(const QString& path) {
    QDBusConnection::sessionBus().send(
        QDBusMessage::createMethodCall(service, path, requests, QStringLiteral("Close")));
}

/// Shows the dialog and waits for it; nothing if the portal refuses.
std::optional<QStringList> showChooser(const FileRequest& request, const QWidget* owner) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    QEventLoop loop;
    portal::Answer answer(loop);
    const QString token = newToken();
    const QString path = requestPath(token);
    bus.connect(service, path, requests, QStringLiteral("Response"), &answer,
                SLOT(take(uint, QVariantMap)));
    const QDBusServiceWatcher watcher(service, bus, QDBusServiceWatcher::WatchForUnregistration);
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, &loop, &QEventLoop::quit);
    if (owner != nullptr) QObject::connect(owner, &QObject::destroyed, &loop, &QEventLoop::quit);
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, object, chooser, QStringLiteral("OpenFile"));
    call << nameOfWindow(owner) << QString::fromStdString(request.title)
         << optionsOf(request, token);
    if (answerTo(call).type() != QDBusMessage::ReplyMessage) return std::nullopt;
    if (!answer.came()) loop.exec();
    if (!answer.came()) takeBack(path);
    return answer.uris();
}

} // namespace

std::string pathOfUri(const std::string& uri) {
    const std::string scheme = "file://";
    const std::size_t start = uri.find('/', scheme.size());
    if (!uri.starts_with(scheme) || start == std::string::npos) return {};
    std::string path =
        QByteArray::fromPercentEncoding(QByteArray::fromStdString(uri.substr(start))).toStdString();
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return fromHost(path);
}

std::optional<std::vector<std::string>> chooseByPortal(const FileRequest& request) {
    if (!QDBusConnection::sessionBus().isConnected()) return std::nullopt;
    WindowWidget* const owner = findWindow(request.owner);
    std::vector<WindowWidget*> barred;
    if (owner != nullptr) barred.push_back(owner);
    const InputBarrier barrier(barred);
    if (!canChoose(request)) return std::nullopt;
    const WindowWidget* const ownerStill = findWindow(request.owner);
    if (ownerStill != owner) return std::vector<std::string>();
    const auto uris = showChooser(request, ownerStill);
    if (!uris) return std::nullopt;
    std::vector<std::string> paths;
    for (const QString& uri : *uris)
        if (std::string path = pathOfUri(uri.toStdString()); !path.empty())
            paths.push_back(std::move(path));
    return paths;
}

} // namespace platform

#include "portal_chooser.moc"
