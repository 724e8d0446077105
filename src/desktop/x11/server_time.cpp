#include "desktop/x11/server_time.h"

namespace panewright {

ServerTime::ServerTime(XConnection& connection)
    : connection_(connection), window_(connection.createHelperWindow()),
      selection_(connection.selectEvents(window_, XCB_EVENT_MASK_PROPERTY_CHANGE)),
      arrivals_(connection.onArrival([this](const auto& event) {
          if (event.response_type == XCB_PROPERTY_NOTIFY) {
              const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
              latest_ = change.window == window_ ? change.time : latest_;
          }
      })) {}

xcb_timestamp_t ServerTime::now() {
    // Appending nothing changes nothing, but is told of with the time (ICCCM 2.1).
    latest_ = XCB_CURRENT_TIME;
    xcb_change_property(connection_, XCB_PROP_MODE_APPEND, window_, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    auto seen = connection_.arrivedCount();
    while (latest_ == XCB_CURRENT_TIME && connection_.waitForEvent(deadline, seen)) {
        seen = connection_.arrivedCount();
    }
    return latest_;
}

} // namespace panewright
