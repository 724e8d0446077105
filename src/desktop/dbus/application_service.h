#pragma once

#include "base/observer_list.h"
#include "desktop/dbus/application_object.h"
#include "desktop/dbus/session_bus.h"
#include "platform/reopen_requests.h"

#include <string>

namespace panewright {

/// The program as an application of the session bus (Desktop Entry Specification, "D-Bus
/// Activation"): the object that desktops and a second start of the program ask to open it.
class ApplicationService : public ReopenRequests {
public:
    /// Takes the identifier for its bus name as soon as there is a bus. Another owner of the name
    /// keeps it.
    ApplicationService(SessionBus& bus, std::string identifier);

    Registration onReopen(std::function<void()> callback) override;

private:
    void publish();
    void requested();

    SessionBus& bus_;
    std::string identifier_;
    ApplicationObject object_;
    ObserverList<> requested_;
    /// Before anybody listened.
    bool wasRequested_ = false;
    Registration busKnown_;
};

/// The object path that goes with a bus name: dots become slashes, dashes underscores.
std::string objectPathOf(std::string identifier);

} // namespace panewright
