#pragma once

#include "desktop/x11/x_connection.h"

#include <xcb/xinput.h>

#include <functional>
#include <optional>
#include <set>

namespace panewright {

/// Tells when keys go up that no grab of ours hears of: the raw key events of XInput 2, which every
/// client gets while it asks for them. Nothing is asked for while there is no such key.
class KeyReleaseWatch {
public:
    /// `released` is called on the main loop, once for each key.
    KeyReleaseWatch(XConnection& connection, std::function<void(xcb_keycode_t)> released);

    /// Watches these keys and no others from now on; tells at once of those that are up already.
    /// Without XInput 2 tells of all.
    void watch(const std::set<xcb_keycode_t>& keys);

private:
    bool hasRawEvents();
    void handle(const xcb_generic_event_t& event);
    void tell(xcb_keycode_t key);
    void select(bool wanted);
    std::set<xcb_keycode_t> keysDown();

    XConnection& connection_;
    std::function<void(xcb_keycode_t)> released_;
    /// Of the extension; 0 without it.
    std::uint8_t opcode_ = 0;
    /// Whether it is new enough, while nobody needed the answer.
    std::optional<xcb_input_xi_query_version_cookie_t> asked_;
    bool isSelected_ = false;
    std::set<xcb_keycode_t> watched_;
    Registration events_;
};

} // namespace panewright
