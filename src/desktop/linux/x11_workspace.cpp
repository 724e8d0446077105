#include "desktop/linux/x11_workspace.h"

#include "desktop/linux/client_message.h"

#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace panewright {
namespace {

/// How long a toolkit and the window manager may take to show a window.
constexpr std::chrono::seconds kSlowestWindow{1};

} // namespace

X11Workspace::X11Workspace(XConnection& connection, ActiveWindows& activeWindows,
                           MainLoop& mainLoop)
    : connection_(connection), activeWindows_(activeWindows), mainLoop_(mainLoop),
      serverTime_(connection),
      rootSelection_(connection.selectEvents(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE)),
      events_(connection.onEvent([this](const auto& event) {
          if (wish_ && event.response_type == XCB_PROPERTY_NOTIFY &&
              reinterpret_cast<const xcb_property_notify_event_t&>(event).atom ==
                  connection_.atoms()._NET_CLIENT_LIST) {
              bringNewWindowToFront();
          }
      })) {}

void X11Workspace::bringThisApplicationToFront() {
    const auto shown = ownWindows();
    if (!shown.empty()) {
        activate(shown.back());
    }
    shownBefore_ = {shown.begin(), shown.end()};
    wish_ = mainLoop_.after(kSlowestWindow, [this] { wish_.release(); });
}

void X11Workspace::bringNewWindowToFront() {
    for (const auto window : ownWindows()) {
        if (!shownBefore_.contains(window)) {
            wish_.release();
            activate(window);
            return;
        }
    }
}

void X11Workspace::hideThisApplication() {
    wish_.release();
    if (const auto window = activeWindows_.windowBeforeOurs()) {
        activate(*window);
    }
}

std::vector<xcb_window_t> X11Workspace::ownWindows() {
    return activeWindows_.windowsOf(getpid());
}

void X11Workspace::activate(xcb_window_t window) {
    sendToManager(connection_, window, connection_.atoms()._NET_ACTIVE_WINDOW,
                  {kSourcePager, serverTime_.now(), 0, 0, 0});
    connection_.flush();
}

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
