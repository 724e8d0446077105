#pragma once

#include "base/observer_list.h"
#include "desktop/shared/system_tray.h"
#include "desktop/x11/x_connection.h"

namespace panewright {

/// The tray for icons that are windows, on the screen that $DISPLAY names: whoever owns its manager
/// selection (System Tray Protocol; ICCCM 2.8).
class XEmbedTray : public SystemTray {
public:
    explicit XEmbedTray(XConnection& connection);

    std::optional<bool> isPresent() const override { return owner_ != kNoWindow; }
    bool onlyOpensMenus() const override { return false; }
    Registration onChange(std::function<void()> callback) override {
        return changed_.add(std::move(callback));
    }

private:
    void handle(const xcb_generic_event_t& event);
    void findOwner();
    xcb_window_t readOwner();

    XConnection& connection_;
    xcb_atom_t selection_;
    xcb_window_t owner_ = kNoWindow;
    ObserverList<> changed_;
    Registration ownerEvents_;
    Registration rootSelection_;
    Registration events_;
};

} // namespace panewright
