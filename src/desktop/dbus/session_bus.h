#pragma once

#include "base/observer_list.h"
#include "base/registration.h"
#include "platform/main_loop.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace panewright {

/// Ends the process as it stands: the library would wait for the bus first, for ever if that hangs.
[[noreturn]] void endWhileBusHangs(int status);

/// Our connection to the session bus, made on a thread of its own: a bus that hangs holds nobody
/// up. Main thread only; needs the toolkit's application object.
class SessionBus : public QObject {
    Q_OBJECT

public:
    /// Begins to connect.
    explicit SessionBus(MainLoop& mainLoop);
    ~SessionBus() override;

    /// Nil while nobody knows; not connected where there is no bus. A process that ends while it is
    /// nil must end by endWhileBusHangs().
    const std::optional<QDBusConnection>& connection() const { return connection_; }

    /// Calls back on the main loop once connection() is known.
    Registration onKnown(std::function<void()> callback) { return known_.add(std::move(callback)); }

    /// Calls back on the main loop when the bus that was connected has gone away.
    Registration onEnded(std::function<void()> callback) { return ended_.add(std::move(callback)); }

private slots:
    void hasEnded() { ended_.notify(); }

private:
    struct Link;

    void setConnectionSoon(const QDBusConnection& connection);
    void setConnection(const QDBusConnection& connection);

    MainLoop& mainLoop_;
    /// What the thread tells of the connection through, as long as this object lives.
    std::shared_ptr<Link> link_;
    Registration soon_;
    std::optional<QDBusConnection> connection_;
    ObserverList<> known_;
    ObserverList<> ended_;
};

} // namespace panewright
