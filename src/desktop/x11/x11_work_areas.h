#pragma once

#include "base/lifetime.h"
#include "desktop/shared/written_frames.h"
#include "desktop/x11/window_manager.h"
#include "desktop/x11/x_connection.h"
#include "platform/work_areas.h"

#include <array>
#include <cstdint>
#include <map>
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

/// The displays less the struts of the windows that the window manager lists, of any that a manager
/// may keep room for if those have none.
///
/// The struts are remembered, so that asking waits for nobody but the first time, which comes a
/// moment after the start if nobody asks. They are read again a moment after the manager has
/// changed its list or the common work area, or a panel something about its own.
class X11WorkAreas : public WorkAreas {
public:
    X11WorkAreas(XConnection& connection, WindowManager& manager, const Displays& displays,
                 MainLoop& mainLoop);

    Rect workArea(DisplayId display) const override;
    /// That of each display.
    std::vector<DisplayArea> all() const;

private:
    using Followed = std::map<xcb_window_t, Registration>;

    void read() const;
    void readIfUnread() const;
    void readSoon() const;
    /// Follows those that have a strut or may get one.
    std::vector<StrutPartial> strutsOf(const std::vector<xcb_window_t>& windows, Followed& followed,
                                       bool areListed) const;
    void follow(xcb_window_t window, Followed& followed) const;
    /// Whether a manager that does not list the window may keep room for it.
    bool mayBeManaged(xcb_window_t window) const;
    /// The children of the root, which may be frames, and their children.
    std::vector<xcb_window_t> outerWindows() const;
    void noteArrival(const xcb_generic_event_t& event);
    void handle(const xcb_generic_event_t& event);
    bool isOfPanel(const xcb_generic_event_t& event) const;

    XConnection& connection_;
    const Displays& displays_;
    MainLoop& mainLoop_;
    mutable bool isRead_ = false;
    /// Of all displays together.
    mutable Size screen_;
    mutable std::vector<StrutPartial> struts_;
    /// Panels, and other windows that have had a strut.
    mutable Followed followed_;
    mutable Registration pendingRead_;
    Registration rootSelection_;
    Registration arrivals_;
    Registration events_;
    Registration managerChanges_;
};

} // namespace panewright
