#include "desktop/x11/window_manager.h"

#include "desktop/x11/x_properties.h"

#include <algorithm>
#include <utility>

namespace panewright {

WindowManager::WindowManager(XConnection& connection)
    : connection_(connection),
      rootSelection_(connection.selectEvents(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE)),
      events_(connection.onEvent([this](const auto& event) { handle(event); })) {}

bool WindowManager::supports(xcb_atom_t feature) {
    const auto& supported = current().supported;
    return std::find(supported.begin(), supported.end(), feature) != supported.end();
}

WindowManager::Current& WindowManager::current() {
    if (!current_) {
        current_ = read();
    }
    return *current_;
}

/// One that has died leaves the root's properties behind: a living one says of its check window the
/// same as of the root (EWMH, _NET_SUPPORTING_WM_CHECK).
WindowManager::Current WindowManager::read() {
    const auto& atoms = connection_.atoms();
    const auto check = atoms._NET_SUPPORTING_WM_CHECK;
    XPropertyRequest ofRoot(connection_, connection_.root(), check);
    XPropertyRequest supported(connection_, connection_.root(), atoms._NET_SUPPORTED);
    const auto named = ofRoot.number();
    if (!named) {
        return {};
    }
    auto selection = connection_.selectEvents(*named, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    XPropertyRequest itself(connection_, *named, check);
    XPropertyRequest name(connection_, *named, atoms._NET_WM_NAME);
    if (itself.number() != named) {
        return {};
    }
    return {.checkWindow = *named,
            .name = name.text().value_or(""),
            .supported = supported.numbers(),
            .selection = std::move(selection)};
}

void WindowManager::handle(const xcb_generic_event_t& event) {
    const auto& atoms = connection_.atoms();
    if (isRootProperty(connection_, event, atoms._NET_SUPPORTING_WM_CHECK) ||
        isRootProperty(connection_, event, atoms._NET_SUPPORTED)) {
        forget();
    } else if (event.response_type == XCB_DESTROY_NOTIFY && current_) {
        const auto& gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
        if (gone.window == current_->checkWindow) {
            forget();
        }
    }
}

void WindowManager::forget() {
    current_.reset();
    changed_.notify();
}

} // namespace panewright
