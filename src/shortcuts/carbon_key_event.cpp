#include "shortcuts/carbon_key_event.h"

#include "base/log.h"
#include "shortcuts/shortcut_text.h"

#include <fmt/core.h>

namespace panewright {
namespace {

constexpr std::string_view kKeyCodeKey = "keyCode";
constexpr std::string_view kModifierFlagsKey = "modifierFlags";
constexpr std::string_view kTagKey = "tag";

} // namespace

std::shared_ptr<CarbonKeyEvent> CarbonKeyEvent::carbonEventWithKeyCode(std::uint64_t keyCode,
                                                                       std::uint64_t modifiers) {
    std::shared_ptr<CarbonKeyEvent> event(new CarbonKeyEvent);
    event->keyCode_ = keyCode;
    event->modifierFlags_ = modifiers;
    return event;
}

std::shared_ptr<CarbonKeyEvent> CarbonKeyEvent::initWithCoder(const KeyedDecoder& decoder) {
    auto event = carbonEventWithKeyCode(decoder.decodeUnsigned(kKeyCodeKey),
                                        decoder.decodeUnsigned(kModifierFlagsKey));
    event->tag_ = decoder.decodeSigned(kTagKey);
    return event;
}

void CarbonKeyEvent::encodeWithCoder(KeyedEncoder& encoder) const {
    encoder.encodeUnsigned(kKeyCodeKey, keyCode_);
    encoder.encodeUnsigned(kModifierFlagsKey, modifierFlags_);
    encoder.encodeSigned(kTagKey, tag_);
}

void CarbonKeyEvent::invoke(MainLoop& mainLoop) {
    const auto receiver = target();
    if (!receiver) {
        logLine(
            fmt::format("keyCode: {}, withModifiers:{} invoked but no target/action is available.",
                        keyCode_, modifierFlags_));
        return;
    }
    mainLoop.post([receiver, action = action_, sender = shared_from_this()] {
        action(receiver.get(), sender);
    });
}

std::string CarbonKeyEvent::presentableKeyboardShortcut(const ShortcutText& text) const {
    return text.presentableKeyboardShortcut(keyCode_, modifierFlags_);
}

} // namespace panewright
