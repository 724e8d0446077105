#include "desktop/memory/memory_displays.h"

#include <utility>

namespace panewright {

void MemoryDisplays::setDisplays(DisplaySnapshot displays) {
    displays_ = std::move(displays);
    for (auto& display : displays_) {
        display.mirrored = display.mirrored == kNoDisplay ? display.id : display.mirrored;
        display.pixelSize = display.pixelSize == Size{} ? display.bounds.size() : display.pixelSize;
    }
    changed_.notify();
}

} // namespace panewright
