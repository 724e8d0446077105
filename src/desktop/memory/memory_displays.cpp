#include "desktop/memory/memory_displays.h"

#include <algorithm>
#include <utility>

namespace panewright {

void MemoryDisplays::setDisplays(std::vector<Display> displays) {
    displays_ = std::move(displays);
    changed_.notify();
}

std::vector<DisplayId> MemoryDisplays::activeDisplays(std::size_t capacity) const {
    return idsWhere([](const Display&) { return true; }, capacity);
}

std::vector<DisplayId> MemoryDisplays::displaysWithPoint(Point point, std::size_t capacity) const {
    return idsWhere([&](const Display& d) { return contains(d.bounds, point); }, capacity);
}

std::vector<DisplayId> MemoryDisplays::displaysWithRect(const Rect& rect,
                                                        std::size_t capacity) const {
    return idsWhere([&](const Display& d) { return intersects(d.bounds, rect); }, capacity);
}

DisplayId MemoryDisplays::primaryDisplay(DisplayId display) const {
    const auto mirrored = find(display).mirrorOf;
    return mirrored == kNoDisplay ? display : mirrored;
}

std::vector<Screen> MemoryDisplays::screens() const {
    std::vector<Screen> screens;
    for (const auto& display : displays_) {
        if (display.mirrorOf == kNoDisplay) {
            screens.push_back({static_cast<std::int64_t>(display.id), ""});
        }
    }
    return screens;
}

MemoryDisplays::Display MemoryDisplays::find(DisplayId display) const {
    const auto found = std::find_if(displays_.begin(), displays_.end(),
                                    [&](const Display& d) { return d.id == display; });
    return found == displays_.end() ? Display{} : *found;
}

template <class Predicate>
std::vector<DisplayId> MemoryDisplays::idsWhere(Predicate predicate, std::size_t capacity) const {
    std::vector<DisplayId> ids;
    for (const auto& display : displays_) {
        if (ids.size() < capacity && predicate(display)) {
            ids.push_back(display.id);
        }
    }
    return ids;
}

} // namespace panewright
