#pragma once

#include "base/observer_list.h"
#include "desktop/linux/edid.h"
#include "desktop/x11/x_connection.h"
#include "platform/displays.h"

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

    std::vector<DisplayId> activeDisplays(std::size_t capacity) const override;
    std::vector<DisplayId> displaysWithPoint(Point point, std::size_t capacity) const override;
    std::vector<DisplayId> displaysWithRect(const Rect& rect, std::size_t capacity) const override;
    DisplayId primaryDisplay(DisplayId display) const override;
    Rect bounds(DisplayId display) const override;
    Size pixelSize(DisplayId display) const override;
    std::uint32_t serialNumber(DisplayId display) const override;
    std::uint32_t vendorNumber(DisplayId display) const override;
    std::uint32_t unitNumber(DisplayId display) const override;
    std::vector<Screen> screens() const override;
    Registration onChange(std::function<void()> callback) override {
        return changed_.add(std::move(callback));
    }

private:
    struct Monitor {
        DisplayId id = kNoDisplay;
        /// The one that this one mirrors; itself if none.
        DisplayId mirrored = kNoDisplay;
        Rect bounds;
        std::string name;
        EdidIdentity identity;
        bool primary = false;

        friend bool operator==(const Monitor&, const Monitor&) = default;
    };

    /// Valid until the next call.
    const std::vector<Monitor>& monitors() const;
    std::vector<Monitor> readMonitors() const;
    Monitor rootAsMonitor() const;
    EdidIdentity identityOf(const std::vector<std::uint32_t>& outputs) const;
    const Monitor* find(DisplayId display) const;
    DisplayId idFor(const Monitor& monitor) const;
    std::string nameOf(xcb_atom_t atom) const;
    template <class Predicate>
    std::vector<DisplayId> idsWhere(Predicate predicate, std::size_t capacity) const;
    bool isChange(const xcb_generic_event_t& event) const;
    void reportSoon();

    XConnection& connection_;
    MainLoop& mainLoop_;
    std::optional<std::uint8_t> randrEvent_;
    mutable std::vector<Monitor> monitors_;
    mutable bool stale_ = true;
    mutable std::map<std::string, DisplayId> ids_;
    std::vector<Monitor> reported_;
    ObserverList<> changed_;
    Registration pendingReport_;
    Registration rootSelection_;
    Registration arrivals_;
    Registration events_;
};

} // namespace panewright
