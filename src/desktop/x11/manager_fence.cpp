#include "desktop/x11/manager_fence.h"

#include "desktop/x11/client_message.h"

#include <algorithm>

namespace panewright {

ManagerFence::ManagerFence(XConnection& connection, WindowManager& manager)
    : connection_(connection), manager_(manager),
      arrivals_(connection.onArrival([this](const auto& event) { noteArrival(event); })) {
    useNewWindow();
}

bool ManagerFence::isReliable() {
    // i3 answers without saying that it does.
    return manager_.name() == "i3" ||
           (manager_.supports(connection_.atoms()._NET_REQUEST_FRAME_EXTENTS) &&
            manager_.name() != "KWin");
}

ManagerFence::Id ManagerFence::send() {
    sendToManager(connection_, window_, connection_.atoms()._NET_REQUEST_FRAME_EXTENTS, {});
    return ++sent_;
}

void ManagerFence::giveUp() {
    answered_ = sent_;
    // A late answer must not count for a later question.
    useNewWindow();
}

void ManagerFence::useNewWindow() {
    if (window_ != kNoWindow) {
        selection_.release();
        xcb_destroy_window(connection_, window_);
    }
    window_ = connection_.createHelperWindow();
    selection_ = connection_.selectEvents(window_, XCB_EVENT_MASK_PROPERTY_CHANGE);
}

void ManagerFence::noteArrival(const xcb_generic_event_t& event) {
    if (event.response_type != XCB_PROPERTY_NOTIFY) {
        return;
    }
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == window_ && change.atom == connection_.atoms()._NET_FRAME_EXTENTS) {
        answered_ = std::min(answered_ + 1, sent_);
    }
}

} // namespace panewright
