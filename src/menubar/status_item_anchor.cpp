#include "menubar/status_item_anchor.h"

namespace panewright {
namespace {

DisplayId displayOf(const Displays& displays, const Rect& rect) {
    const Point middle{rect.x + rect.width / 2, rect.y + rect.height / 2};
    const auto display = QuartzDisplay::withPoint(displays, middle);
    return display ? display->displayId() : kNoDisplay;
}

} // namespace

PopoverAnchor statusItemAnchor(const StatusItem& item, const Displays& displays,
                               const WorkAreas& workAreas,
                               const std::optional<QuartzDisplay>& focused) {
    if (const auto frame = item.frame()) {
        if (const auto display = displayOf(displays, *frame); display != kNoDisplay) {
            return {*frame, workAreas.workArea(display)};
        }
    }
    const bool isConnected = boundsOf(focused) != Rect{};
    const auto area = workAreas.workArea(isConnected ? focused->displayId()
                                                     : mainDisplayOf(displays.snapshot()).id);
    return {{area.x + area.width, area.y, 0, 0}, area};
}

} // namespace panewright
