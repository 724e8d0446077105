#pragma once

#include "support/frames.h"
#include "support/x_client.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace panewright::test {

/// What a panel reserves at the edges of the screen (EWMH, _NET_WM_STRUT_PARTIAL).
using Strut = std::array<std::uint32_t, 12>;

/// The grey window of a panel, on a connection of its own. Goes with its object.
class Panel {
public:
    Panel(const std::string& display, const Frame& frame, const Strut& strut)
        : x_(display), window_(xcb_generate_id(x_.connection())) {
        const std::array<std::uint32_t, 1> grey{0x808080};
        xcb_create_window(
            x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(),
            static_cast<std::int16_t>(frame.x), static_cast<std::int16_t>(frame.y),
            static_cast<std::uint16_t>(frame.width), static_cast<std::uint16_t>(frame.height), 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, grey.data());
        x_.setProperty(window_, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                       {x_.atom("_NET_WM_WINDOW_TYPE_DOCK")});
        std::vector<std::uint32_t> hints(18);
        hints[0] = 1; // the position is the user's
        x_.setProperty(window_, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
        reserve(strut);
        xcb_map_window(x_.connection(), window_);
        x_.synchronize();
    }

    /// Takes the place of what was reserved before.
    void reserve(const Strut& strut) const {
        x_.setProperty(window_, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                       {strut.begin(), strut.end()});
        x_.synchronize();
    }

    /// Shows a tray on it, in place of the one that was there.
    void showTray() const {
        const auto selection = x_.atom("_NET_SYSTEM_TRAY_S0");
        xcb_set_selection_owner(x_.connection(), window_, selection, XCB_CURRENT_TIME);
        x_.sendToWindowManager(x_.root(), "MANAGER", {XCB_CURRENT_TIME, selection, window_});
        x_.synchronize();
    }

private:
    XClient x_;
    xcb_window_t window_;
};

} // namespace panewright::test
