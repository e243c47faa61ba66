#pragma once

#include <QAbstractNativeEventFilter>

namespace platform {

/// Keeps Qt from hearing, for as long as the object lives, that a tray has come up: it would put an
/// icon there that went with the tray before. An icon that is lost stays lost.
class NewTrayIgnored : public QAbstractNativeEventFilter {
  public:
    NewTrayIgnored();

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
};

} // namespace platform
