#include "desktop/x11/x11_desktop.h"

#include <utility>

namespace panewright {

X11Desktop::X11Desktop(ReachedServer& server, MainLoop& mainLoop, std::string ownBundleIdentifier)
    : connection_(mainLoop, server), manager_(connection_), keymap_(connection_, mainLoop),
      facts_(connection_, manager_, mainLoop),
      activeWindows_(connection_, manager_, facts_, mainLoop, std::move(ownBundleIdentifier)),
      displays(connection_, mainLoop), workAreas(connection_, manager_, displays, mainLoop),
      windows_(connection_, manager_, facts_, activeWindows_, workAreas, mainLoop),
      accessibility(windows_),
      hotKeys(connection_, keymap_, mainLoop, [this] { windows_.catchUp(); }),
      keyboardLayout(keymap_), workspace(connection_, activeWindows_, mainLoop),
      icons(connection_, activeWindows_, mainLoop), tray(connection_), brightness(connection_),
      ownWindows(connection_, workspace), beeper(connection_) {}

} // namespace panewright
