#include "platform/linux/bus_names.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>

namespace platform {

QString ownerOf(const QString& name) {
    const QDBusConnectionInterface* const bus = QDBusConnection::sessionBus().interface();
    return bus == nullptr ? QString() : bus->serviceOwner(name).value();
}

QString gnomesShell() { return ownerOf(QStringLiteral("org.gnome.Shell")); }

} // namespace platform
