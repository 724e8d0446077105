#pragma once

#include "desktop/linux/x_connection.h"
#include "platform/compositing.h"

namespace panewright {

/// A compositing manager runs while somebody owns its selection (EWMH, _NET_WM_CM_Sn).
class X11Compositing : public Compositing {
public:
    explicit X11Compositing(XConnection& connection);

    bool isActive() const override;

private:
    XConnection& connection_;
    xcb_atom_t selection_;
};

} // namespace panewright
