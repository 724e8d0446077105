#pragma once

#include "desktop/x11/x_connection.h"

#include <string>
#include <vector>

namespace panewright {

/// The EWMH window manager that runs now, if any: it is followed when it dies or is replaced.
class WindowManager {
public:
    explicit WindowManager(XConnection& connection);

    /// Whether one runs: the check window that the root names lives and names itself (EWMH,
    /// _NET_SUPPORTING_WM_CHECK).
    bool isRunning() { return current().checkWindow != kNoWindow; }

    /// Its _NET_WM_NAME; empty when none runs or it has no name.
    const std::string& name() { return current().name; }

    /// Whether it lists the atom in _NET_SUPPORTED.
    bool supports(xcb_atom_t feature);

    /// Called after a manager died, came or was replaced.
    Registration onChange(std::function<void()> callback) {
        return changed_.add(std::move(callback));
    }

private:
    struct Current {
        xcb_window_t checkWindow = kNoWindow;
        std::string name;
        std::vector<std::uint32_t> supported;
        Registration selection;
    };

    Current& current();
    Current read();
    void handle(const xcb_generic_event_t& event);
    void forget();

    XConnection& connection_;
    std::optional<Current> current_;
    ObserverList<> changed_;
    Registration rootSelection_;
    Registration events_;
};

} // namespace panewright
