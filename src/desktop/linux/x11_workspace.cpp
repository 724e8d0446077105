#include "desktop/linux/x11_workspace.h"

#include "desktop/linux/client_message.h"

#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace panewright {

void X11Workspace::bringThisApplicationToFront() {
    if (const auto window = activeWindows_.focusedWindowOf(getpid())) {
        sendToManager(connection_, *window, connection_.atoms()._NET_ACTIVE_WINDOW,
                      {kSourcePager, XCB_CURRENT_TIME, 0, 0, 0});
        connection_.flush();
    }
}

void X11Workspace::hideThisApplication() {}

void X11Workspace::openUrl(const std::string& url) {
    std::string command = "xdg-open";
    std::string address = url;
    char* const arguments[] = {command.data(), address.data(), nullptr};
    // A child of a child has nobody here to be waited for by.
    const pid_t child = fork();
    if (child == 0) {
        pid_t browser = 0;
        _exit(posix_spawnp(&browser, arguments[0], nullptr, nullptr, arguments, environ));
    }
    if (child > 0) {
        waitpid(child, nullptr, 0);
    }
}

} // namespace panewright
