#include "desktop/x11/x11_desktop.h"

#include <utility>

namespace panewright {

bool X11Desktop::isReachable() {
    auto* const connection = xcb_connect(nullptr, nullptr);
    const bool isReachable = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isReachable;
}

std::unique_ptr<X11Desktop> X11Desktop::open(MainLoop& mainLoop, std::string ownBundleIdentifier) {
    auto connection = XConnection::open(mainLoop);
    return connection ? std::unique_ptr<X11Desktop>(new X11Desktop(std::move(connection), mainLoop,
                                                                   std::move(ownBundleIdentifier)))
                      : nullptr;
}

X11Desktop::X11Desktop(std::unique_ptr<XConnection> connection, MainLoop& mainLoop,
                       std::string ownBundleIdentifier)
    : connection_(std::move(connection)), manager_(*connection_), keymap_(*connection_, mainLoop),
      facts_(*connection_, manager_, mainLoop),
      activeWindows_(*connection_, manager_, facts_, mainLoop, std::move(ownBundleIdentifier)),
      displays(*connection_, mainLoop), workAreas(*connection_, manager_, displays, mainLoop),
      windows_(*connection_, manager_, facts_, activeWindows_, workAreas, mainLoop),
      accessibility(windows_),
      hotKeys(*connection_, keymap_, mainLoop, [this] { windows_.catchUp(); }),
      keyboardLayout(keymap_), workspace(*connection_, activeWindows_, mainLoop),
      icons(*connection_, activeWindows_, mainLoop), tray(*connection_), brightness(*connection_),
      ownWindows(*connection_, workspace), beeper(*connection_) {}

} // namespace panewright
