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

WindowManager::Current WindowManager::read() {
    Current found;
    found.checkWindow = livingCheckWindow();
    if (found.checkWindow == kNoWindow) {
        return found;
    }
    found.selection = connection_.selectEvents(found.checkWindow, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    const auto& atoms = connection_.atoms();
    XPropertyRequest name(connection_, found.checkWindow, atoms._NET_WM_NAME);
    XPropertyRequest supported(connection_, connection_.root(), atoms._NET_SUPPORTED);
    found.name = name.text().value_or("");
    found.supported = supported.numbers();
    return found;
}

xcb_window_t WindowManager::livingCheckWindow() {
    const auto check = connection_.atoms()._NET_SUPPORTING_WM_CHECK;
    const auto named = XPropertyRequest(connection_, connection_.root(), check).number();
    if (!named) {
        return kNoWindow;
    }
    const auto itself = XPropertyRequest(connection_, *named, check).number();
    return itself == named ? *named : kNoWindow;
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
