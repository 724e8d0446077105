#include "desktop/dbus/incoming_calls.h"

#include "desktop/dbus/bus_priority.h"
#include "desktop/linux/own_thread.h"

#include <QDBusError>

#include <utility>

namespace panewright {
namespace {

/// About what the call holds: only texts can be long.
std::size_t bytesOf(const QDBusMessage& call) {
    std::size_t bytes = 0;
    for (const auto& argument : call.arguments()) {
        bytes += static_cast<std::size_t>(argument.toString().size()) * sizeof(QChar);
    }
    return bytes;
}

} // namespace

IncomingCalls::IncomingCalls(MainLoop& mainLoop, QDBusConnection connection)
    : connection_(std::move(connection)), object_(new QObject), queue_(mainLoop) {
    // Without a receiver: on the thread itself.
    QObject::connect(&thread_, &QThread::started, [] { beginOwnThread(kBusNiceValue); });
    QObject::connect(&thread_, &QThread::finished, object_, &QObject::deleteLater);
}

IncomingCalls::~IncomingCalls() {
    connection_.unregisterObject(path_);
    // Behind the answers.
    QMetaObject::invokeMethod(object_, [this] { thread_.quit(); });
    thread_.wait();
}

void IncomingCalls::registerObject(const QString& path) {
    path_ = path;
    connection_.registerObject(path, object_, QDBusConnection::ExportAdaptors);
    object_->moveToThread(&thread_);
    thread_.start();
}

void IncomingCalls::answerWith(const QDBusMessage& call, std::function<Answer()> work) {
    add(call, [this, call, work = std::move(work)] {
        const auto answer = work();
        send(call, answer.error.isEmpty()
                       ? call.createReply(answer.value)
                       : call.createErrorReply(QDBusError::Failed, answer.error));
    });
}

void IncomingCalls::answerAndDo(const QDBusMessage& call, std::function<void()> work) {
    add(call, [this, call, work = std::move(work)] {
        send(call, call.createReply());
        work();
    });
}

void IncomingCalls::add(const QDBusMessage& call, std::function<void()> work) {
    call.setDelayedReply(true);
    const auto counted = [this, work = std::move(work)] {
        ++begun_;
        work();
    };
    if (!queue_.add(bytesOf(call), counted)) {
        send(call, call.createErrorReply(QDBusError::LimitsExceeded, "too many calls at once"));
    }
}

void IncomingCalls::send(const QDBusMessage& call, const QDBusMessage& reply) {
    if (call.isReplyRequired()) {
        QMetaObject::invokeMethod(object_, [this, reply] { connection_.send(reply); });
    }
}

} // namespace panewright
