#include "desktop/x11/x_connection.h"

#include <poll.h>

#include <algorithm>
#include <iterator>

namespace panewright {
namespace {

/// Set in the type of an event that another client sent (X protocol, "Event Format").
constexpr std::uint8_t kSyntheticBit = 0x80;

} // namespace

XConnection::XConnection(MainLoop& mainLoop, ReachedServer& server)
    : mainLoop_(mainLoop), root_(server.root()), atoms_(server.atoms()),
      connection_(server.takeConnection()) {
    watch();
}

XConnection::~XConnection() {
    watch_.reset();
    xcb_disconnect(connection_);
}

std::optional<std::uint8_t> XConnection::firstEventOf(xcb_extension_t& extension) const {
    const auto* data = xcb_get_extension_data(connection_, &extension);
    return data && data->present ? std::optional(data->first_event) : std::nullopt;
}

void XConnection::flush() {
    xcb_flush(connection_);
    // While xcb writes it also reads.
    keepQueuedEvents();
}

void XConnection::watch() {
    watch_ = mainLoop_.whenReadable(xcb_get_file_descriptor(connection_), [this] { dispatch(); });
}

void XConnection::rest(std::chrono::milliseconds time) {
    if (!watch_) {
        return;
    }
    watch_.reset();
    restTimer_ = mainLoop_.after(time, [this] {
        if (!lost_) { // a lost one is readable for ever
            watch();
            dispatch();
        }
    });
}

Registration XConnection::onEvent(std::function<void(const xcb_generic_event_t&)> callback) {
    return eventObservers_.add(std::move(callback));
}

Registration XConnection::onArrival(std::function<void(const xcb_generic_event_t&)> callback) {
    return arrivalObservers_.add(std::move(callback));
}

Registration XConnection::onLost(std::function<void()> callback) {
    return lostObservers_.add(std::move(callback));
}

bool XConnection::waitForEvent(std::chrono::steady_clock::time_point deadline,
                               std::uint64_t arrivedBefore) {
    xcb_flush(connection_);
    while (!isLost()) {
        if (XEvent event{xcb_poll_for_event(connection_)}) {
            arrived(std::move(event));
            dispatchSoon();
        }
        if (arrivedCount_ > arrivedBefore) {
            return true;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd readable{xcb_get_file_descriptor(connection_), POLLIN, 0};
        if (left.count() <= 0 || poll(&readable, 1, static_cast<int>(left.count())) == 0) {
            return false;
        }
    }
    return false;
}

void XConnection::arrived(XEvent event) {
    const bool isForged = (event->response_type & kSyntheticBit) != 0;
    event->response_type &= static_cast<std::uint8_t>(~kSyntheticBit);
    if (event->response_type == 0) {
        return; // the error of a request without an answer: the window it named is gone
    }
    if (isForged &&
        (event->response_type == XCB_KEY_PRESS || event->response_type == XCB_KEY_RELEASE)) {
        return; // no key moved; managers do send other events, such as ConfigureNotify
    }
    ++arrivedCount_;
    arrivalObservers_.notify(*event);
    events_.push_back(std::move(event));
}

bool XConnection::succeeded(xcb_void_cookie_t checked) {
    const XReply<xcb_generic_error_t> error(xcb_request_check(connection_, checked));
    keepQueuedEvents();
    return !error;
}

void XConnection::keepQueuedEvents() {
    while (XEvent event{xcb_poll_for_queued_event(connection_)}) {
        arrived(std::move(event));
    }
    dispatchSoon();
}

void XConnection::dispatchSoon() {
    if (!events_.empty()) {
        dispatchSoon_.post();
    }
}

void XConnection::dispatch() {
    const auto alive = lifetime_.watch();
    const auto next = [this] {
        while (events_.empty()) {
            XEvent event{xcb_poll_for_event(connection_)};
            if (!event) {
                return false;
            }
            arrived(std::move(event));
        }
        return true;
    };
    while (!alive.expired() && next()) {
        const auto event = std::move(events_.front());
        events_.pop_front();
        eventObservers_.notify(*event);
    }
    if (!alive.expired() && isLost() && !std::exchange(lost_, true)) {
        watch_.reset();
        lostObservers_.notify();
    }
}

Registration XConnection::selectEvents(xcb_window_t window, std::uint32_t eventMask) {
    const auto selection = nextSelection_++;
    eventMasks_[window].emplace(selection, eventMask);
    applyEventMask(window);
    return Registration(lifetime_.guard([this, window, selection] {
        auto& masks = eventMasks_[window];
        masks.erase(selection);
        applyEventMask(window);
        if (masks.empty()) {
            eventMasks_.erase(window);
        }
    }));
}

void XConnection::applyEventMask(xcb_window_t window) {
    std::uint32_t combined = 0;
    for (const auto& [selection, mask] : eventMasks_[window]) {
        combined |= mask;
    }
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &combined);
    flushSoon();
}

xcb_window_t XConnection::createHelperWindow() {
    const auto window = xcb_generate_id(connection_);
    const std::uint32_t overrideRedirect = 1;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, root_, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &overrideRedirect);
    return window;
}

} // namespace panewright
