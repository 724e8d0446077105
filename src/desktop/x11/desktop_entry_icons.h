#pragma once

#include "desktop/shared/application_icon_source.h"
#include "desktop/x11/active_windows.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// The pictures in a property of the kind _NET_WM_ICON (EWMH): width, height, pixels, again and
/// again. Any program may have written anything there: of what is cut off, of no or of too large a
/// size there is no picture, and there are 16 at most.
std::vector<IconPicture> iconPictures(const std::vector<std::uint32_t>& property);

/// Icons by the desktop entry that the bundle identifier names, and from the program's windows.
class DesktopEntryIcons : public ApplicationIconSource {
public:
    DesktopEntryIcons(XConnection& connection, ActiveWindows& activeWindows, MainLoop& mainLoop)
        : connection_(connection), activeWindows_(activeWindows),
          turnEnd_(mainLoop, [this] { windowsById_.reset(); }) {}

    std::string iconNameOf(const std::string& bundleIdentifier) override;
    std::vector<IconPicture> iconPicturesOf(ProcessId pid) override;
    std::vector<IconPicture> iconPicturesOf(const std::string& bundleIdentifier) override;

private:
    using WindowsById = std::multimap<std::string, xcb_window_t>;

    std::vector<IconPicture> pictures(xcb_window_t window);

    XConnection& connection_;
    ActiveWindows& activeWindows_;
    /// Of all programs that run, once they have been asked for in this turn of the main loop.
    std::optional<WindowsById> windowsById_;
    TurnEnd turnEnd_;
};

} // namespace panewright
