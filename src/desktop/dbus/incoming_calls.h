#pragma once

#include "desktop/dbus/call_queue.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QThread>
#include <QVariant>

#include <cstddef>
#include <functional>

namespace panewright {

/// Takes the calls of an object's methods, and sends the answers, on a thread of its own: a flood
/// of calls would keep the main thread from the keys, even with the connection's lock alone. What
/// is called is done on the main thread, when its turn has come. Too many calls at once are refused
/// with an error. Lives on the main thread.
class IncomingCalls {
public:
    /// What is answered; nothing but the error where there is one.
    struct Answer {
        QVariant value;
        QString error; // empty: none
    };

    IncomingCalls(MainLoop& mainLoop, QDBusConnection connection);
    /// Sends the answers that there are.
    ~IncomingCalls();
    IncomingCalls(const IncomingCalls&) = delete;
    IncomingCalls& operator=(const IncomingCalls&) = delete;

    /// What the adaptors are children of.
    QObject& object() { return *object_; }
    /// Once only, with all adaptors there.
    void registerObject(const QString& path);

    // For the adaptors, on the thread of the object.
    /// Answers with what the work comes to.
    void answerWith(const QDBusMessage& call, std::function<Answer()> work);
    /// Answers first, as the work may open a window or end the program.
    void answerAndDo(const QDBusMessage& call, std::function<void()> work);

    /// Whether the call that is being done is the first that came. Main thread.
    bool isDoingFirst() const { return begun_ == 1; }

private:
    void add(const QDBusMessage& call, std::function<void()> work);
    void send(const QDBusMessage& call, const QDBusMessage& reply);

    QDBusConnection connection_;
    QString path_;
    QThread thread_;
    QObject* object_; // lives, and ends, on the thread
    std::size_t begun_ = 0;
    CallQueue queue_;
};

} // namespace panewright
