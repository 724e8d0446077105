#pragma once

#include "base/lifetime.h"
#include "base/observer_list.h"
#include "desktop/x11/frame_writer.h"
#include "desktop/x11/x_connection.h"

#include <map>
#include <memory>

namespace panewright {

/// Tells when the outer frame of a window has really changed.
class WindowFrameWatch {
public:
    WindowFrameWatch(XConnection& connection, WindowFactsOfTurn& facts, FrameWriter& writer,
                     MainLoop& mainLoop);

    Registration onMoved(xcb_window_t window, std::function<void()> callback);
    Registration onResized(xcb_window_t window, std::function<void()> callback);

    /// Tells now of every change that there has been, or only of those known to have been.
    void checkAll();
    void checkChanged();

private:
    struct Watched {
        Rect reported;
        bool isDirty = false;
        xcb_window_t ancestor = kNoWindow;
        Registration selection;
        Registration ancestorSelection;
        ObserverList<> moved;
        ObserverList<> resized;
    };

    std::shared_ptr<Watched> watch(xcb_window_t window);
    Registration keepWhile(xcb_window_t window, Registration registration);
    void forgetIfUnobserved(xcb_window_t window);
    void followAncestor(xcb_window_t window, Watched& watched);
    void followAncestorSoon(xcb_window_t window);
    void handle(const xcb_generic_event_t& event);
    void checkSoon(xcb_window_t window, Watched& watched);
    void check(xcb_window_t window);

    XConnection& connection_;
    WindowFactsOfTurn& facts_;
    FrameWriter& writer_;
    MainLoop& mainLoop_;
    std::map<xcb_window_t, std::shared_ptr<Watched>> watched_;
    Lifetime lifetime_;
    Registration events_;
    Registration settled_;
};

} // namespace panewright
