#pragma once

#include "base/observer_list.h"
#include "base/registration.h"
#include "platform/main_loop.h"

#include <QDBusConnection>

#include <functional>
#include <memory>
#include <optional>

namespace panewright {

/// Ends the process as it stands: the library would wait for the bus first, for ever if that hangs.
[[noreturn]] void endWhileBusHangs(int status);

/// Our connection to the session bus, made on a thread of its own: a bus that hangs holds nobody
/// up. Main thread only; needs the toolkit's application object.
class SessionBus {
public:
    /// Begins to connect.
    explicit SessionBus(MainLoop& mainLoop);
    ~SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    /// Nil while nobody knows; not connected where there is no bus. A process that ends while it is
    /// nil must end by endWhileBusHangs().
    const std::optional<QDBusConnection>& connection() const { return connection_; }

    /// Calls back on the main loop once connection() is known.
    Registration onKnown(std::function<void()> callback) { return known_.add(std::move(callback)); }

private:
    struct Link;

    /// What the thread tells of the connection through, as long as this object lives.
    std::shared_ptr<Link> link_;
    std::optional<QDBusConnection> connection_;
    ObserverList<> known_;
};

} // namespace panewright
