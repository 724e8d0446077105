#pragma once

#include "base/observer_list.h"
#include "desktop/linux/edid.h"
#include "desktop/x11/x_connection.h"
#include "platform/displays.h"

#include <xcb/randr.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// Displays as the monitors of RandR 1.5, in root-window pixels. A monitor with the rectangle of an
/// earlier one mirrors it. An identifier belongs to the connector with the hardware on it, and
/// comes back with it.
///
/// While displays are being reconfigured there may be none for a moment: the last ones known are
/// kept then.
class RandrDisplays : public Displays {
public:
    RandrDisplays(XConnection& connection, MainLoop& mainLoop);

    const DisplaySnapshot& snapshot() const override;
    Registration onChange(std::function<void()> callback) override {
        return changed_.add(std::move(callback));
    }

private:
    DisplaySnapshot read() const;
    Display rootAsDisplay() const;
    /// One for each output of the monitor.
    std::vector<xcb_randr_get_output_property_cookie_t>
    askForEdids(const xcb_randr_monitor_info_t& info) const;
    /// That of the first output that has one.
    EdidIdentity identityIn(const std::vector<xcb_randr_get_output_property_cookie_t>& edids) const;
    DisplayId idFor(const EdidIdentity& identity, const std::string& name) const;
    std::string nameIn(xcb_get_atom_name_cookie_t asked) const;
    bool isChange(const xcb_generic_event_t& event) const;
    void reportSoon();

    XConnection& connection_;
    MainLoop& mainLoop_;
    std::optional<std::uint8_t> randrEvent_;
    mutable DisplaySnapshot displays_;
    mutable bool stale_ = true;
    mutable std::map<std::string, DisplayId> ids_;
    DisplaySnapshot reported_;
    ObserverList<> changed_;
    Registration pendingReport_;
    Registration rootSelection_;
    Registration arrivals_;
    Registration events_;
};

} // namespace panewright
