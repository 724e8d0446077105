#pragma once

#include "desktop/shared/application_icon_source.h"
#include "desktop/x11/active_windows.h"

#include <cstdint>
#include <vector>

namespace panewright {

/// The pictures in a property of the kind _NET_WM_ICON (EWMH): width, height, pixels, again and
/// again. Any program may have written anything there: of what is cut off, of no or of too large a
/// size there is no picture, and there are 16 at most.
std::vector<IconPicture> iconPictures(const std::vector<std::uint32_t>& property);

/// Icons by the desktop entry that the bundle identifier names, and from the program's windows.
class DesktopEntryIcons : public ApplicationIconSource {
public:
    DesktopEntryIcons(XConnection& connection, ActiveWindows& activeWindows)
        : connection_(connection), activeWindows_(activeWindows) {}

    std::string iconNameOf(const RunningApplication& application) override;
    std::vector<IconPicture> iconPicturesOf(const RunningApplication& application) override;

private:
    XConnection& connection_;
    ActiveWindows& activeWindows_;
};

} // namespace panewright
