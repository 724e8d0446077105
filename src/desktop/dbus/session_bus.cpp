#include "desktop/dbus/session_bus.h"

#include "desktop/linux/signal_stack.h"

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace panewright {

void endWhileBusHangs(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

struct SessionBus::Link {
    std::mutex mutex; // guards what follows
    MainLoop* mainLoop = nullptr;
    SessionBus* bus = nullptr; // only looked at on the main thread

    void tell(const QDBusConnection& connection, const std::shared_ptr<Link>& self) {
        const std::scoped_lock lock(mutex);
        if (mainLoop) {
            mainLoop->post([self, connection] {
                if (auto* const owner = self->bus) {
                    owner->setConnection(connection);
                }
            });
        }
    }
};

SessionBus::SessionBus(MainLoop& mainLoop) : link_(std::make_shared<Link>()) {
    link_->mainLoop = &mainLoop;
    link_->bus = this;
    // Left to itself: a bus that hangs must not keep the program from ending either.
    std::thread([link = link_] {
        useOwnSignalStack();
        link->tell(QDBusConnection::connectToBus(QDBusConnection::SessionBus, "panewright"), link);
    }).detach();
}

void SessionBus::setConnection(const QDBusConnection& connection) {
    connection_ = connection;
    if (connection_->isConnected()) {
        connection_->connect("", "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local",
                             "Disconnected", this, SLOT(hasEnded()));
    }
    known_.notify();
}

SessionBus::~SessionBus() {
    const std::scoped_lock lock(link_->mutex);
    link_->mainLoop = nullptr;
    link_->bus = nullptr;
}

} // namespace panewright
