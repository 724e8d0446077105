#pragma once

#include "desktop/dbus/call_queue.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariant>

#include <cstddef>
#include <functional>
#include <optional>

namespace panewright {

/// The calls of methods that came over a connection, each answered when its turn has come. Too many
/// at once are refused with an error.
class IncomingCalls {
public:
    /// What is answered; nil where that cannot be had, with the error set.
    struct Answer {
        QVariant value;
        QString error; // empty: none
    };

    explicit IncomingCalls(MainLoop& mainLoop) : queue_(mainLoop) {}

    void setConnection(const QDBusConnection& connection) { connection_ = connection; }

    /// Answers with what the work comes to.
    void answerWith(const QDBusMessage& call, std::function<Answer()> work);
    /// Answers first, as the work may open a window or end the program.
    void answerAndDo(const QDBusMessage& call, std::function<void()> work);

    /// Whether the call that is being done is the first that came.
    bool isDoingFirst() const { return done_ == 0; }

private:
    void add(const QDBusMessage& call, std::function<void()> work);
    void send(const QDBusMessage& reply) const;

    std::size_t done_ = 0;
    CallQueue queue_;
    std::optional<QDBusConnection> connection_;
};

} // namespace panewright
