#pragma once

#include "base/lifetime.h"
#include "desktop/linux/window_geometry.h"
#include "desktop/linux/window_hints.h"
#include "desktop/linux/window_manager.h"
#include "desktop/linux/x_connection.h"
#include "platform/main_loop.h"

#include <map>
#include <optional>

namespace panewright {

/// All that placing asks of a window.
struct WindowFacts {
    WindowGeometry geometry;
    SizeHints hints;
    ManagedStates states;
    AllowedActions actions;
    /// Mapped, and so are its ancestors.
    bool isViewable = false;
};

/// Reads all facts of a window in one round trip, and keeps them until the turn of the main loop
/// ends or an event arrives: a key press asks for the same ones many times.
class WindowFactsReader {
public:
    WindowFactsReader(XConnection& connection, WindowManager& manager, MainLoop& mainLoop);

    /// Nil for a window that is gone.
    const std::optional<WindowFacts>& of(xcb_window_t window);

    /// The same, read anew.
    const std::optional<WindowFacts>& readAnew(xcb_window_t window);

private:
    std::optional<WindowFacts> read(xcb_window_t window);

    XConnection& connection_;
    WindowManager& manager_;
    MainLoop& mainLoop_;
    std::map<xcb_window_t, std::optional<WindowFacts>> kept_;
    bool forgetPending_ = false;
    Registration events_;
    Lifetime lifetime_;
};

} // namespace panewright
