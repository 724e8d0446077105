#pragma once

#include "desktop/shared/own_windows.h"
#include "desktop/x11/x11_workspace.h"
#include "desktop/x11/x_connection.h"

namespace panewright {

/// Our windows, which are the toolkit's and known by their X identifiers.
class X11OwnWindows : public OwnWindows {
public:
    X11OwnWindows(XConnection& connection, X11Workspace& workspace);

    bool areInPixels() const override { return true; }
    /// While somebody owns the selection of compositing managers (EWMH, _NET_WM_CM_Sn).
    bool areComposited() const override;
    void keepOutOfTaskBars(NativeWindow window) override;
    void makeKey(NativeWindow window) override {
        workspace_.makeKey(static_cast<xcb_window_t>(window));
    }

private:
    XConnection& connection_;
    X11Workspace& workspace_;
};

} // namespace panewright
