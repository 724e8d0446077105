#pragma once

#include "base/observer_list.h"
#include "platform/hot_keys.h"
#include "platform/main_loop.h"

#include <map>
#include <set>
#include <utility>

namespace panewright {

/// Hot keys that a test presses.
class MemoryHotKeys : public HotKeys {
public:
    explicit MemoryHotKeys(MainLoop& mainLoop) : mainLoop_(mainLoop) {}

    /// Presses the key as a person would, with the modifiers in the hot-key form; the press is
    /// delivered through the main loop. False when no hot key of ours takes it.
    bool press(std::uint32_t virtualKeyCode, std::uint32_t modifiers);

    /// Makes another program hold the key.
    void takeByAnotherProgram(std::uint32_t virtualKeyCode, std::uint32_t modifiers) {
        takenByOthers_.insert({virtualKeyCode, modifiers});
    }
    /// Makes that program let go of it.
    void letGoByAnotherProgram(std::uint32_t virtualKeyCode, std::uint32_t modifiers) {
        takenByOthers_.erase({virtualKeyCode, modifiers});
    }

    /// What identifiers cannot be read with from now on; kNoError: they can.
    void setReadingStatus(EventStatus status) { readingStatus_ = status; }

    std::size_t registeredCount() const { return hotKeys_.size(); }

    Registered registerHotKey(std::uint32_t virtualKeyCode, std::uint32_t modifiers,
                              HotKeyId id) override;
    void unregisterHotKey(HotKeyRef ref) override { hotKeys_.erase(ref); }
    Registration onPressed(std::function<void(const HotKeyPress&)> callback) override {
        return pressed_.add(std::move(callback));
    }
    bool isTakenByAnotherProgram(std::uint32_t virtualKeyCode,
                                 std::uint32_t modifiers) const override {
        return takenByOthers_.contains({virtualKeyCode, modifiers});
    }

private:
    using Key = std::pair<std::uint32_t, std::uint32_t>;
    struct HotKey {
        Key key;
        HotKeyId id;
    };

    MainLoop& mainLoop_;
    ObserverList<const HotKeyPress&> pressed_;
    std::map<HotKeyRef, HotKey> hotKeys_;
    std::set<Key> takenByOthers_;
    HotKeyRef lastRef_ = 0;
    EventStatus readingStatus_ = kNoError;
};

} // namespace panewright
