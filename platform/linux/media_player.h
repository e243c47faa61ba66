#pragma once

#include "platform/remote.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <cstdint>
#include <functional>

namespace platform {

/// The player on the session's message bus, by the rules of MPRIS 2. Requests are answered before
/// they are carried out, as that may take as long as a dialog is open.
class MediaPlayer : public QDBusVirtualObject {
  public:
    explicit MediaPlayer(RemoteEvents events);

    /// Takes its place on the bus; nothing happens where there is none.
    void appear();

    void tell(const RemoteState& state);
    void tellSeek(std::int32_t position);

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  private:
    using Answer = QDBusMessage;

    [[nodiscard]] Answer answerTo(const QDBusMessage& message);
    [[nodiscard]] Answer get(const QDBusMessage& message) const;
    [[nodiscard]] Answer getAll(const QDBusMessage& message) const;
    [[nodiscard]] Answer set(const QDBusMessage& message);
    [[nodiscard]] Answer seek(const QDBusMessage& message);
    [[nodiscard]] Answer setPosition(const QDBusMessage& message);
    [[nodiscard]] QVariantMap propertiesOf(const QString& interface, const QString& asker) const;
    [[nodiscard]] QVariant position() const;
    void sendSignal(const QString& interface, const QString& name,
                    const QVariantList& arguments) const;
    void later(std::function<void()> deed);

    RemoteEvents events_;
    RemoteState state_;
    bool present_ = false;
};

} // namespace platform
