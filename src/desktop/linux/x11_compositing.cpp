#include "desktop/linux/x11_compositing.h"

#include "desktop/linux/screen_selection.h"

namespace panewright {

X11Compositing::X11Compositing(XConnection& connection)
    : connection_(connection), selection_(screenSelection(connection, "_NET_WM_CM_S")) {}

bool X11Compositing::isActive() const {
    return selectionOwner(connection_, selection_) != kNoWindow;
}

} // namespace panewright
