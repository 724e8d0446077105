#include "desktop/linux/window_facts.h"

#include <utility>

namespace panewright {

WindowFactsReader::WindowFactsReader(XConnection& connection, WindowManager& manager,
                                     MainLoop& mainLoop)
    : connection_(connection), manager_(manager), mainLoop_(mainLoop),
      events_(connection.onEvent([this](const auto&) { kept_.clear(); })) {}

const std::optional<WindowFacts>& WindowFactsReader::of(xcb_window_t window) {
    const auto kept = kept_.find(window);
    return kept == kept_.end() ? readAnew(window) : kept->second;
}

const std::optional<WindowFacts>& WindowFactsReader::readAnew(xcb_window_t window) {
    if (!std::exchange(forgetPending_, true)) {
        mainLoop_.post(lifetime_.guard([this] {
            forgetPending_ = false;
            kept_.clear();
        }));
    }
    auto facts = read(window);
    return kept_.insert_or_assign(window, std::move(facts)).first->second;
}

std::optional<WindowFacts> WindowFactsReader::read(xcb_window_t window) {
    // All requests leave before the first answer is waited for.
    WindowHintsRequest hints(connection_, window);
    const auto attributes = xcb_get_window_attributes(connection_, window);
    const auto geometry = readGeometry(connection_, manager_, window);
    const auto shown = connection_.reply(xcb_get_window_attributes_reply, attributes);
    if (!geometry || !shown) {
        return std::nullopt;
    }
    return WindowFacts{*geometry, hints.size(), hints.states(), hints.actions(),
                       shown->map_state == XCB_MAP_STATE_VIEWABLE};
}

} // namespace panewright
