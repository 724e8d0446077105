#pragma once

#include "archive/keyed_coding.h"
#include "platform/hot_keys.h"
#include "platform/main_loop.h"
#include "shortcuts/hot_key_handlers.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace panewright {

class ShortcutText;

/// One keyboard shortcut: a virtual key code (a physical key, 0 to 127 in practice), modifier flags
/// in the application's form, and who is told when it is pressed anywhere in the system. Releasing
/// one does not unregister it: have it removed from the registry first.
class CarbonKeyEvent : public KeyedCoding, public std::enable_shared_from_this<CarbonKeyEvent> {
public:
    static constexpr std::string_view kArchiveClassName = "CarbonKeyEvent";

    /// Tag 0, no target.
    static std::shared_ptr<CarbonKeyEvent> carbonEventWithKeyCode(std::uint64_t keyCode,
                                                                  std::uint64_t modifiers);

    /// Missing keys read as 0; no target, not registered.
    static std::shared_ptr<CarbonKeyEvent> initWithCoder(const KeyedDecoder& decoder);
    std::string_view archiveClassName() const override { return kArchiveClassName; }
    void encodeWithCoder(KeyedEncoder& encoder) const override;

    std::uint64_t keyCode() const { return keyCode_; }
    void setKeyCode(std::uint64_t keyCode) { keyCode_ = keyCode; }
    std::uint64_t modifierFlags() const { return modifierFlags_; }
    void setModifierFlags(std::uint64_t flags) { modifierFlags_ = flags; }
    /// Free for the owner.
    std::int64_t tag() const { return tag_; }
    void setTag(std::int64_t tag) { tag_ = tag; }

    /// The target is not kept alive. The action is called with the key event as its one argument.
    template <class Target>
    void setTarget(const std::shared_ptr<Target>& target,
                   void (Target::*action)(const std::shared_ptr<CarbonKeyEvent>& sender)) {
        target_ = target;
        action_ = [action](void* receiver, const std::shared_ptr<CarbonKeyEvent>& sender) {
            (static_cast<Target*>(receiver)->*action)(sender);
        };
    }
    /// Null once the receiver is gone.
    std::shared_ptr<void> target() const { return target_.lock(); }

    /// Sends the action to the target after the event that is being handled, without waiting. With
    /// no target logs a line and does nothing else.
    void invoke(MainLoop& mainLoop);

    std::string presentableKeyboardShortcut(const ShortcutText& text) const;

    /// Written only by the registry, never archived, zero until registered; a removal leaves them.
    struct HotKeyRegistration {
        EventHandlerRef eventHandlerRef = 0;
        HotKeyRef hotKeyRef = 0;
        HotKeyId hotKeyId;
        EventTypeSpec eventSpec;
    };
    const HotKeyRegistration& registration() const { return registration_; }

private:
    friend class CarbonEventManager;
    CarbonKeyEvent() = default;

    std::int64_t tag_ = 0;
    std::uint64_t modifierFlags_ = 0;
    std::uint64_t keyCode_ = 0;
    std::weak_ptr<void> target_;
    std::function<void(void* receiver, const std::shared_ptr<CarbonKeyEvent>& sender)> action_;
    HotKeyRegistration registration_;
};

} // namespace panewright
