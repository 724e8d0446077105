#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

namespace panewright::test {

/// A reply or event that xcb has allocated.
struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, FreeReply>;

/// A connection to an X server with the little that the tests ask of it.
class XClient {
public:
    explicit XClient(const std::string& display);
    ~XClient();
    XClient(const XClient&) = delete;
    XClient& operator=(const XClient&) = delete;

    xcb_connection_t* connection() const { return connection_; }
    xcb_window_t root() const { return root_; }

    xcb_atom_t atom(std::string_view name) const;

    /// A property of 32-bit values; empty when the window does not have it, or is gone.
    std::vector<std::uint32_t> property(xcb_window_t window, std::string_view name) const;

    void setProperty(xcb_window_t window, std::string_view name, xcb_atom_t type,
                     const std::vector<std::uint32_t>& values) const;

    void setText(xcb_window_t window, std::string_view property, std::string_view text) const;

    /// Makes it the active window, as a pager does, and does not wait.
    void activate(xcb_window_t window) const;
    /// None while no window is active.
    xcb_window_t activeWindow() const;

    /// Tells all who listen at the root window: asks the window manager, as a pager does.
    void sendToWindowManager(xcb_window_t window, std::string_view message,
                             const std::array<std::uint32_t, 5>& values) const;

    /// Returns when the server has handled all that was sent.
    void synchronize() const;

    /// A passive grab; false when another client holds the key.
    bool grabKey(std::uint16_t modifiers, xcb_keycode_t key) const;

private:
    xcb_connection_t* connection_;
    xcb_window_t root_ = XCB_NONE;
};

} // namespace panewright::test
