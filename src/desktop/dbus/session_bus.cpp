#include "desktop/dbus/session_bus.h"

#include "desktop/dbus/bus_priority.h"
#include "desktop/linux/own_thread.h"

#include <dbus/dbus.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace panewright {
namespace {

/// The bus's library stops reading while the messages that it has read hold too many bytes, and
/// goes on when one of them is released: on that thread, where the toolkit cannot begin to read
/// again. The bus would never reach this process any more, so there is no such limit here.
void readWithoutLimit(const QDBusConnection& connection) {
    if (auto* const bus = static_cast<DBusConnection*>(connection.internalPointer())) {
        dbus_connection_set_max_received_size(bus, LONG_MAX);
    }
}

} // namespace

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
                    owner->setConnectionSoon(connection);
                }
            });
        }
    }
};

SessionBus::SessionBus(MainLoop& mainLoop) : mainLoop_(mainLoop), link_(std::make_shared<Link>()) {
    link_->mainLoop = &mainLoop;
    link_->bus = this;
    // Left to itself: a bus that hangs must not keep the program from ending either.
    std::thread([link = link_] {
        beginOwnThread(kBusNiceValue); // the toolkit's own thread for the bus inherits it
        const auto connection =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, "panewright");
        readWithoutLimit(connection);
        link->tell(connection, link);
    }).detach();
}

/// After what was posted before: at the start the hot keys come first.
void SessionBus::setConnectionSoon(const QDBusConnection& connection) {
    soon_ = mainLoop_.after(std::chrono::milliseconds(0),
                            [this, connection] { setConnection(connection); });
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
