#pragma once

#include "base/observer_list.h"
#include "desktop/dbus/session_bus.h"
#include "menubar/scripting.h"
#include "platform/main_loop.h"
#include "platform/reopen_requests.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QObject>

#include <memory>
#include <string>

namespace panewright {

/// What began this process.
enum class StartedBy {
    kUser,
    kCall, // the bus, as somebody called the program while it did not run
};

/// The program on the session bus: the object that scripts call, and that desktops and a second
/// start of the program ask to open it. A bus that is missing or goes away, and a name that another
/// owns, cost a line in the log.
class ApplicationService : public QObject, public ReopenRequests, public ScriptingEndpoint {
    Q_OBJECT

public:
    ApplicationService(SessionBus& bus, MainLoop& mainLoop, std::string identifier,
                       StartedBy startedBy);
    ~ApplicationService() override;

    /// Takes the identifier for the bus name, for which callers may be waiting. Once only.
    Registration serve(ScriptingCommands& commands) override;

    /// Where a call started the program, that is not told of, if all that it wanted was that.
    Registration onReopen(std::function<void()> callback) override {
        return requested_.add(std::move(callback));
    }

private:
    struct Object;

    void publish();
    void requestName();
    void nameAnswered(const QDBusMessage& reply) const;
    void requested();

    SessionBus& bus_;
    MainLoop& mainLoop_;
    std::string identifier_;
    StartedBy startedBy_;
    ObserverList<> requested_;
    /// Null while nobody serves.
    ScriptingCommands* commands_ = nullptr;
    /// Null while it is not on the bus.
    std::unique_ptr<Object> object_;
    Registration busKnown_;
    Registration busEnded_;
};

/// The object path that goes with a bus name: dots become slashes, dashes underscores.
std::string objectPathOf(std::string identifier);

} // namespace panewright
