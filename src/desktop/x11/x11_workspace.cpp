#include "desktop/x11/x11_workspace.h"

#include "desktop/x11/client_message.h"
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

constexpr std::uint32_t kAllDesktops = 0xFFFFFFFF; // EWMH, _NET_WM_DESKTOP

} // namespace

X11Workspace::X11Workspace(XConnection& connection, ActiveWindows& activeWindows,
                           MainLoop& mainLoop)
    : connection_(connection), activeWindows_(activeWindows), mainLoop_(mainLoop),
      activator_(connection), keyboard_(connection, activeWindows, activator_, mainLoop),
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
    }
}

void X11Workspace::makeKey(xcb_window_t window) {
    key_ = window;
    bringThisApplicationToFront();
}

void X11Workspace::bringThisApplicationToFront() {
    keyboard_.keep();
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
    keyboard_.giveBack();
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
    activator_.activate(window);
}

} // namespace panewright
