#include "desktop/memory/memory_hot_keys.h"

#include <algorithm>

namespace panewright {
namespace {

constexpr std::uint32_t kLastVirtualKeyCode = 127;

} // namespace

bool MemoryHotKeys::press(std::uint32_t virtualKeyCode, std::uint32_t modifiers) {
    const Key key{virtualKeyCode, modifiers};
    const auto pressed = std::find_if(hotKeys_.begin(), hotKeys_.end(),
                                      [&](const auto& hotKey) { return hotKey.second.key == key; });
    if (pressed == hotKeys_.end() || takenByOthers_.contains(key)) {
        return false;
    }
    mainLoop_.post([this, id = pressed->second.id] { pressed_.notify({readingStatus_, id}); });
    return true;
}

HotKeys::Registered MemoryHotKeys::registerHotKey(std::uint32_t virtualKeyCode,
                                                  std::uint32_t modifiers, HotKeyId id) {
    if (virtualKeyCode > kLastVirtualKeyCode) {
        return {kHotKeyInvalid, 0};
    }
    hotKeys_.emplace(++lastRef_, HotKey{{virtualKeyCode, modifiers}, id});
    return {kNoError, lastRef_};
}

} // namespace panewright
