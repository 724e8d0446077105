#include "desktop/x11/x11_workspace.h"

#include "desktop/x11/client_message.h"
#include "desktop/x11/window_geometry.h"
#include "desktop/x11/x_properties.h"

#include <algorithm>
#include <unistd.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// How long a toolkit and the window manager may take to show a window, and how long it is likely
/// still to come.
constexpr auto kSlowestWindow = 1s;
constexpr auto kUsualWindow = 100ms;

/// How long a manager may take to focus what lies under the pointer after a window went. xfwm4
/// waits 250 ms.
constexpr auto kSlowestFocus = 500ms;
constexpr int kMaxCrossings = 3;

constexpr std::uint32_t kAllDesktops = 0xFFFFFFFF; // EWMH, _NET_WM_DESKTOP

} // namespace

X11Workspace::X11Workspace(XConnection& connection, ActiveWindows& activeWindows,
                           MainLoop& mainLoop)
    : connection_(connection), activeWindows_(activeWindows), mainLoop_(mainLoop),
      serverTime_(connection),
      rootSelection_(connection.selectEvents(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE)),
      events_(connection.onEvent([this](const auto& event) { handle(event); })) {}

void X11Workspace::handle(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_UNMAP_NOTIFY) {
        const auto closed = reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window;
        known_.erase(closed);
        key_ = key_ == closed ? kNoWindow : key_;
    } else if (newWindowWish_ &&
               isRootProperty(connection_, event, connection_.atoms()._NET_CLIENT_LIST)) {
        bringWantedToFront();
    } else if (wayBackWatch_ &&
               isRootProperty(connection_, event, connection_.atoms()._NET_ACTIVE_WINDOW)) {
        insistOnWayBack();
    }
}

void X11Workspace::makeKey(xcb_window_t window) {
    key_ = window;
    bringThisApplicationToFront();
}

void X11Workspace::bringThisApplicationToFront() {
    wayBackWatch_.release();
    newWindowWish_ = mainLoop_.after(kSlowestWindow, [this] { newWindowWish_.release(); });
    knownWindowWish_ = mainLoop_.after(kUsualWindow, [this] {
        if (const auto shown = ownWindows(); key_ == kNoWindow && !shown.empty()) {
            bringToUser(shown.back());
        }
    });
    // When this turn is over: which window is to come may be said after that the program is to.
    mainLoop_.post(lifetime_.guard([this] {
        if (newWindowWish_) {
            bringWantedToFront();
        }
    }));
}

void X11Workspace::bringWantedToFront() {
    const auto shown = ownWindows();
    if (key_ == kNoWindow) {
        bringNewWindowToFront(shown);
    } else if (std::find(shown.begin(), shown.end(), key_) != shown.end()) {
        newWindowWish_.release();
        knownWindowWish_.release();
        bringToUser(key_);
    }
    known_.insert(shown.begin(), shown.end());
}

void X11Workspace::bringNewWindowToFront(const std::vector<xcb_window_t>& shown) {
    if (!shown.empty() && known_.insert(shown.back()).second) {
        newWindowWish_.release();
        knownWindowWish_.release();
        bringToUser(shown.back());
    }
}

void X11Workspace::hideThisApplication() {
    newWindowWish_.release();
    knownWindowWish_.release();
    key_ = kNoWindow;
    if (const auto way = activeWindows_.wayBack()) {
        wayBack_ = *way;
        crossings_ = 0;
        wayBackWatch_ = mainLoop_.after(kSlowestFocus, [this] { wayBackWatch_.release(); });
        activate(wayBack_.to);
    }
}

void X11Workspace::insistOnWayBack() {
    const auto active = activeWindows_.readActiveWindow();
    const bool isCrossed = active != kNoWindow && active != wayBack_.to && active != wayBack_.from;
    // A user who goes elsewhere so soon does so by keys, or while our window is still shown.
    if (isCrossed && isUnderPointer(active) && !activeWindows_.isShown(wayBack_.from) &&
        ++crossings_ <= kMaxCrossings) {
        activate(wayBack_.to);
    }
}

bool X11Workspace::isUnderPointer(xcb_window_t window) {
    const auto pointer = connection_.reply(xcb_query_pointer_reply,
                                           xcb_query_pointer(connection_, connection_.root()));
    return pointer && outermostAncestor(connection_, window) == pointer->child;
}

std::vector<xcb_window_t> X11Workspace::ownWindows() {
    return activeWindows_.windowsOf(getpid());
}

/// Some managers go to no other virtual desktop for a window that is to be activated.
void X11Workspace::bringToUser(xcb_window_t window) {
    const auto& atoms = connection_.atoms();
    XPropertyRequest shown(connection_, connection_.root(), atoms._NET_CURRENT_DESKTOP);
    XPropertyRequest own(connection_, window, atoms._NET_WM_DESKTOP);
    const auto desktop = shown.number();
    if (const auto its = own.number(); desktop && its && *its != *desktop && *its != kAllDesktops) {
        sendToManager(connection_, window, atoms._NET_WM_DESKTOP,
                      {*desktop, kSourcePager, 0, 0, 0});
    }
    activate(window);
}

void X11Workspace::activate(xcb_window_t window) {
    sendToManager(connection_, window, connection_.atoms()._NET_ACTIVE_WINDOW,
                  {kSourcePager, serverTime_.now(), 0, 0, 0});
    connection_.flush();
}

} // namespace panewright
