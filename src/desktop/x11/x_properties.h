#pragma once

#include "desktop/x11/x_connection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

/// Where lists of windows are cut off.
constexpr std::uint32_t kMaxClients = 16384;

/// Whether the event tells of a change of that property of the root window.
bool isRootProperty(const XConnection& connection, const xcb_generic_event_t& event,
                    xcb_atom_t property);

/// A window property that has been asked for. Asking for several before taking the first answer
/// costs one round trip. A property that is missing, of another format, or of a window that is
/// gone, is nil or empty.
class XPropertyRequest {
public:
    /// `longLength` bounds the answer, in units of four bytes.
    XPropertyRequest(XConnection& connection, xcb_window_t window, xcb_atom_t property,
                     std::uint32_t longLength = 1024);
    ~XPropertyRequest();
    XPropertyRequest(const XPropertyRequest&) = delete;
    XPropertyRequest& operator=(const XPropertyRequest&) = delete;

    // Each takes the answer; only one of them may be called, once.
    std::vector<std::uint32_t> numbers();
    std::optional<std::uint32_t> number();
    /// Bytes as they are (Latin-1 or UTF-8, as the property's owner has it).
    std::optional<std::string> text();

private:
    XReply<xcb_get_property_reply_t> take();

    XConnection& connection_;
    xcb_get_property_cookie_t cookie_;
    bool taken_ = false;
};

} // namespace panewright
