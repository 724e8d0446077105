#pragma once

#include "desktop/x11/x_connection.h"
#include "platform/work_areas.h"

#include <array>
#include <cstdint>
#include <vector>

namespace panewright {

/// What a window reserves at the edges of the whole screen, which may hold several displays (EWMH,
/// _NET_WM_STRUT_PARTIAL), in root-window pixels: the widths left, right, top, bottom; then for
/// each of them the first and the last pixel along that edge that it holds for.
using StrutPartial = std::array<std::uint32_t, 12>;

/// What the struts leave of a display on a screen of that size. A strut counts for the displays
/// that it reaches into, but not for one that it covers from edge to edge: it is meant for one
/// behind that.
Rect areaWithoutStruts(const Rect& display, Size screen, const std::vector<StrutPartial>& struts);

/// The displays less the struts of the windows that the window manager lists, of any if those have
/// none.
class X11WorkAreas : public WorkAreas {
public:
    X11WorkAreas(XConnection& connection, const Displays& displays)
        : connection_(connection), displays_(displays) {}

    Rect workArea(DisplayId display) const override;

private:
    std::vector<StrutPartial> readStruts() const;
    std::vector<StrutPartial> strutsOf(const std::vector<xcb_window_t>& windows) const;
    /// The children of the root, which may be frames, and their children.
    std::vector<xcb_window_t> outerWindows() const;

    XConnection& connection_;
    const Displays& displays_;
};

} // namespace panewright
