#pragma once

#include <QObject>

namespace platform {

/// Puts an object's end off until none of its handlers runs: a handler may open a dialog in whose
/// loop another one ends the object.
class Lifetime {
  public:
    explicit Lifetime(QObject& object) : object_(object) {}

    /// Runs a handler of the object, unless its end has come.
    template <class Handler>
    void run(const Handler& handler) {
        if (ended_) return;
        ++running_;
        handler();
        --running_;
        deleteAtEnd();
    }

    void end() {
        ended_ = true;
        deleteAtEnd();
    }

  private:
    void deleteAtEnd() {
        if (ended_ && running_ == 0) object_.deleteLater();
    }

    QObject& object_;
    int running_ = 0;
    bool ended_ = false;
};

} // namespace platform
