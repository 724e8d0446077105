#pragma once

#include "base/lifetime.h"
#include "base/observer_list.h"
#include "base/registration.h"
#include "desktop/x11/posted_once.h"
#include "desktop/x11/reached_server.h"
#include "desktop/x11/x_atoms.h"
#include "platform/main_loop.h"

#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace panewright {

constexpr xcb_window_t kNoWindow = XCB_WINDOW_NONE;

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
template <class T>
using XReply = std::unique_ptr<T, FreeDeleter>;
using XEvent = XReply<xcb_generic_event_t>;

/// Our own connection to the X server (beside the toolkit's), watched by the main loop.
///
/// Requests are pipelined: nothing waits but reply() and waitForEvent(), and they only for the
/// server. Coordinates are root-window pixels, which are global points. Main thread only.
class XConnection {
public:
    /// Takes the server's connection.
    XConnection(MainLoop& mainLoop, ReachedServer& server);
    ~XConnection();
    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    xcb_connection_t* get() const { return connection_; }
    operator xcb_connection_t*() const { return connection_; } // for calls of xcb_*
    /// The root window of the screen that $DISPLAY names.
    xcb_window_t root() const { return root_; }
    const XAtoms& atoms() const { return atoms_; }

    /// The base event code of an extension; nil if the server lacks it.
    std::optional<std::uint8_t> firstEventOf(xcb_extension_t& extension) const;

    /// Waits for the server's answer to the request; null for an error, such as a window that is
    /// gone.
    template <class Reply, class Cookie>
    XReply<Reply> reply(Reply* (*take)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                        Cookie cookie) {
        xcb_generic_error_t* error = nullptr;
        XReply<Reply> reply(take(connection_, cookie, &error));
        std::free(error);
        keepQueuedEvents();
        return reply;
    }

    /// Waits for the server to have handled a checked request; false for an error. Of several that
    /// were sent together only the first one waits.
    bool succeeded(xcb_void_cookie_t checked);

    /// To be called after anything else has used the connection: it may have read events, which
    /// will not make the descriptor readable again.
    void keepQueuedEvents();

    /// Sends what is buffered, after the event that is being handled.
    void flushSoon() { flushSoon_.post(); }
    void flush();

    /// Reads no event by itself for so long, or until a rest that has begun ends: what others do
    /// for us meanwhile has the processors to itself. Whoever asks, or waits for an event, is
    /// answered.
    void rest(std::chrono::milliseconds time);

    /// Called with each event, on the main loop. Neither errors of requests without an answer nor
    /// key events that a client made up are events.
    Registration onEvent(std::function<void(const xcb_generic_event_t&)> callback);

    /// Called with each event as soon as it is read, before any is dispatched, also from inside
    /// reply(). For taking note only: it must not send requests or wait.
    Registration onArrival(std::function<void(const xcb_generic_event_t&)> callback);

    /// Called once, when the server has gone away.
    Registration onLost(std::function<void()> callback);

    /// How many events have arrived so far.
    std::uint64_t arrivedCount() const { return arrivedCount_; }

    /// Returns when more than so many have arrived, or the deadline has passed; they are dispatched
    /// later. False at the deadline, or when the connection is lost.
    bool waitForEvent(std::chrono::steady_clock::time_point deadline, std::uint64_t arrivedBefore);

    bool isLost() const { return xcb_connection_has_error(connection_) != 0; }

    /// Adds to what this client is told of the window; several may ask for different events of one
    /// window.
    Registration selectEvents(xcb_window_t window, std::uint32_t eventMask);

    /// A new window of ours that is never shown, for properties and replies. Goes with the
    /// connection, unless it is destroyed before.
    xcb_window_t createHelperWindow();

private:
    void watch();
    void arrived(XEvent event);
    void dispatch();
    void dispatchSoon();
    void applyEventMask(xcb_window_t window);

    MainLoop& mainLoop_;
    xcb_window_t root_;
    XAtoms atoms_;
    xcb_connection_t* connection_;
    std::deque<XEvent> events_;
    std::uint64_t arrivedCount_ = 0;
    ObserverList<const xcb_generic_event_t&> eventObservers_;
    ObserverList<const xcb_generic_event_t&> arrivalObservers_;
    ObserverList<> lostObservers_;
    std::map<xcb_window_t, std::map<std::uint64_t, std::uint32_t>> eventMasks_;
    std::uint64_t nextSelection_ = 0;
    bool lost_ = false;
    PostedOnce dispatchSoon_{mainLoop_, [this] { dispatch(); }};
    PostedOnce flushSoon_{mainLoop_, [this] { flush(); }};
    /// None while the connection rests, or once it is lost.
    std::optional<Registration> watch_;
    Registration restTimer_;
    Lifetime lifetime_;
};

} // namespace panewright
