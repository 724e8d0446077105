#pragma once

#include "desktop/shared/own_windows.h"
#include "desktop/x11/x_connection.h"

namespace panewright {

/// Our windows, which are the toolkit's and known by their X identifiers.
class X11OwnWindows : public OwnWindows {
public:
    explicit X11OwnWindows(XConnection& connection);

    /// While somebody owns the selection of compositing managers (EWMH, _NET_WM_CM_Sn).
    bool areComposited() const override;
    void keepOutOfTaskBars(std::uint32_t window) override;

private:
    XConnection& connection_;
    xcb_atom_t compositingManager_;
};

} // namespace panewright
