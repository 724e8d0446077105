#include "desktop/x11/window_activator.h"

#include "desktop/x11/client_message.h"

namespace panewright {

void WindowActivator::activate(xcb_window_t window) {
    sendToManager(connection_, window, connection_.atoms()._NET_ACTIVE_WINDOW,
                  {kSourcePager, serverTime_.now(), 0, 0, 0});
    connection_.flush();
}

} // namespace panewright
