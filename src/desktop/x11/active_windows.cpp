#include "desktop/x11/active_windows.h"

#include "desktop/x11/x_properties.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace panewright {

namespace {

using namespace std::chrono_literals;

/// How long a manager that takes over may name no active window and have the one that is unmapped.
constexpr auto kLongestTakeover = 1s;

} // namespace

ActiveWindows::ActiveWindows(XConnection& connection, WindowManager& manager,
                             WindowFactsOfTurn& facts, MainLoop& mainLoop,
                             std::string ownBundleIdentifier)
    : connection_(connection), manager_(manager), facts_(facts), mainLoop_(mainLoop),
      identity_(connection, mainLoop, std::move(ownBundleIdentifier)),
      turnEnd_(mainLoop, [this] { isRefreshed_ = false; }),
      rootSelection_(connection.selectEvents(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE |
                                                                    XCB_EVENT_MASK_FOCUS_CHANGE)),
      arrivals_(connection.onArrival([this](const auto& event) { noteArrival(event); })),
      events_(connection.onEvent([this](const auto& event) { handle(event); })),
      managerChanges_(manager.onChange([this] {
          takeoverEnds_ = Clock::now() + kLongestTakeover;
          update();
      })),
      entryChanges_(identity_.entries().onChange([this] { identifyAgain(); })) {
    update();
}

std::optional<xcb_window_t> ActiveWindows::focusedWindowOf(ProcessId pid) {
    for (const auto& window : windows_) {
        if (window.pid != pid) {
            continue;
        }
        if (window.kind != Kind::kOrdinary) {
            return std::nullopt;
        }
        if (window.window == named_ || isShown(window.window)) {
            return window.window;
        }
    }
    return std::nullopt;
}

std::vector<xcb_window_t> ActiveWindows::allWindows() {
    XPropertyRequest clients(connection_, connection_.root(), connection_.atoms()._NET_CLIENT_LIST,
                             kMaxClients);
    return clients.numbers();
}

std::vector<xcb_window_t> ActiveWindows::windowsOf(ProcessId pid) {
    return identity_.windowsOf(pid, allWindows());
}

xcb_window_t ActiveWindows::lastOfOthers() const {
    const auto found = std::find_if(windows_.begin(), windows_.end(), [](const Window& window) {
        return window.pid != getpid() && window.kind != Kind::kDock;
    });
    return found == windows_.end() ? kNoWindow : found->window;
}

void ActiveWindows::noteArrival(const xcb_generic_event_t& event) {
    if (isRootProperty(connection_, event, connection_.atoms()._NET_ACTIVE_WINDOW)) {
        isRefreshed_ = false;
    }
}

void ActiveWindows::handle(const xcb_generic_event_t& event) {
    if (isRootProperty(connection_, event, connection_.atoms()._NET_ACTIVE_WINDOW)) {
        update();
    } else if (event.response_type == XCB_FOCUS_IN || event.response_type == XCB_FOCUS_OUT) {
        if (!manager_.isRunning()) {
            update();
        }
    } else if (event.response_type == XCB_DESTROY_NOTIFY) {
        const auto gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
        std::erase_if(windows_, [gone](const Window& window) { return window.window == gone; });
        active_ = active_ == gone ? kNoWindow : active_;
        named_ = named_ == gone ? kNoWindow : named_;
    }
}

const std::optional<RunningApplication>& ActiveWindows::frontmost() {
    if (!isRefreshed_) {
        refresh();
        if (hasUntoldActivation_ || hasUntoldWindowChange_) {
            mainLoop_.post(lifetime_.guard([this] { tell(); }));
        }
    }
    return frontmost_;
}

void ActiveWindows::update() {
    refresh();
    tell();
}

void ActiveWindows::refresh() {
    if (active_ != kNoWindow) {
        facts_.ask(active_); // it is most often the one that still is
    }
    const auto active = readActiveWindow();
    isRefreshed_ = true;
    turnEnd_.await();
    if (active != kNoWindow || Clock::now() >= takeoverEnds_) {
        named_ = active;
    }
    if (active != kNoWindow && active != active_) {
        takeNote(active);
    }
    // A window that went before it could be watched is not active any more.
    if (active == kNoWindow || active == active_) {
        asked_.notify(active, active == kNoWindow ? 0 : frontmost_->processIdentifier);
    }
}

void ActiveWindows::takeNote(xcb_window_t active) {
    const auto known = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const Window& w) { return w.window == active; });
    Registration selection;
    if (known == windows_.end()) {
        selection = connection_.selectEvents(active, XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                                         XCB_EVENT_MASK_FOCUS_CHANGE);
    }
    facts_.follow(active);
    facts_.ask(active);
    XPropertyRequest types(connection_, active, connection_.atoms()._NET_WM_WINDOW_TYPE);
    auto application = identity_.applicationOf(active);
    if (known != windows_.end()) {
        std::rotate(windows_.begin(), known, known + 1);
    } else if (facts_.of(active)) {
        windows_.insert(windows_.begin(), Window{active, application.processIdentifier,
                                                 kindFrom(types.numbers()), std::move(selection)});
    } else {
        return; // it went before it could be watched: another may get its number later
    }
    becameActive(active, std::move(application));
}

void ActiveWindows::becameActive(xcb_window_t window, RunningApplication application) {
    active_ = window;
    if (frontmost_ != application) {
        frontmost_ = std::move(application);
        hasUntoldActivation_ = true;
    } else {
        hasUntoldWindowChange_ = true;
    }
}

void ActiveWindows::tell() {
    const bool isWindowChange = std::exchange(hasUntoldWindowChange_, false);
    if (std::exchange(hasUntoldActivation_, false)) {
        activated_.notify();
    } else if (isWindowChange) {
        windowChanged_.notify(frontmost_->processIdentifier);
    }
}

void ActiveWindows::identifyAgain() {
    if (active_ == kNoWindow || !frontmost_) {
        return;
    }
    auto application = identity_.applicationOf(active_);
    const bool isGone = !application.bundleIdentifier;
    if (!isGone && application != *frontmost_) {
        frontmost_ = std::move(application);
        activated_.notify();
    }
}

xcb_window_t ActiveWindows::readActiveWindow() {
    if (!manager_.isRunning()) {
        return readFocusedTopLevel(); // what a manager that is gone has left behind says nothing
    }
    return XPropertyRequest(connection_, connection_.root(), connection_.atoms()._NET_ACTIVE_WINDOW)
        .number()
        .value_or(kNoWindow);
}

xcb_window_t ActiveWindows::readFocusedTopLevel() {
    const auto focus =
        connection_.reply(xcb_get_input_focus_reply, xcb_get_input_focus(connection_));
    if (!focus || focus->focus == connection_.root() ||
        focus->focus == static_cast<xcb_window_t>(XCB_INPUT_FOCUS_NONE) ||
        focus->focus == static_cast<xcb_window_t>(XCB_INPUT_FOCUS_POINTER_ROOT)) {
        return kNoWindow;
    }
    return outermostAncestor(connection_, focus->focus).value_or(kNoWindow);
}

/// By the first type that means something here; a program may put its own before it (EWMH,
/// _NET_WM_WINDOW_TYPE).
ActiveWindows::Kind ActiveWindows::kindFrom(const std::vector<std::uint32_t>& types) const {
    const auto& atoms = connection_.atoms();
    for (const auto type : types) {
        if (type == atoms._NET_WM_WINDOW_TYPE_DESKTOP) {
            return Kind::kDesktop;
        }
        if (type == atoms._NET_WM_WINDOW_TYPE_DOCK) {
            return Kind::kDock;
        }
        if (type == atoms._NET_WM_WINDOW_TYPE_NORMAL) {
            break;
        }
    }
    return Kind::kOrdinary;
}

bool ActiveWindows::isShown(xcb_window_t window) {
    TraitsRequest traits(connection_, window); // answered in the same round trip
    const auto attributes = connection_.reply(xcb_get_window_attributes_reply,
                                              xcb_get_window_attributes(connection_, window));
    // Some managers unmap a window that they shade.
    return attributes &&
           (attributes->map_state == XCB_MAP_STATE_VIEWABLE || traits.take().states.shaded);
}

} // namespace panewright
