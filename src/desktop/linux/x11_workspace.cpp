#include "desktop/linux/x11_workspace.h"

#include "desktop/linux/client_message.h"

#include <unistd.h>

namespace panewright {

void X11Workspace::bringThisApplicationToFront() {
    if (const auto window = activeWindows_.focusedWindowOf(getpid())) {
        sendToManager(connection_, *window, connection_.atoms()._NET_ACTIVE_WINDOW,
                      {kSourcePager, XCB_CURRENT_TIME, 0, 0, 0});
        connection_.flush();
    }
}

} // namespace panewright
