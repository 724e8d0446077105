#include "model/window_state.h"

#include "archive/geometry_text.h"
#include "model/window_state_applier.h"
#include "shortcuts/carbon_event_manager.h"
#include "shortcuts/shortcut_text.h"

#include <exception>

namespace panewright {
namespace {

constexpr std::string_view kPrefersDisplayKey = "WindowState.PrefersDisplay";
constexpr std::string_view kIsGlobalKey = "WindowState.IsGlobal";
constexpr std::string_view kAppBundleIdKey = "WindowState.AppBundleId";
constexpr std::string_view kAppNameKey = "WindowState.AppName";
constexpr std::string_view kOriginalWindowRectKey = "WindowState.OriginalWindowRect";
constexpr std::string_view kOriginalDisplayKey = "WindowState.OriginalQuartzDisplayBounds";
constexpr std::string_view kWindowStateNameKey = "WindowState.WindowStateName";
constexpr std::string_view kIsDefaultKey = "WindowState.IsDefault";
constexpr std::string_view kCenterWindowKey = "WindowState.CenterWindow";
constexpr std::string_view kWindowScaleKey = "WindowState.WindowScale";
constexpr std::string_view kKeyEventKey = "WindowState.KeyEvent";

std::weak_ptr<WindowStateApplier>& applier() {
    static std::weak_ptr<WindowStateApplier> applier;
    return applier;
}

std::string presentableOrException(const CarbonKeyEvent& event, const ShortcutText& text) {
    try {
        return event.presentableKeyboardShortcut(text);
    } catch (const std::exception&) {
        return "Exception";
    }
}

bool isSameShortcut(const CarbonKeyEvent* a, const CarbonKeyEvent* b) {
    return a && b ? a->keyCode() == b->keyCode() && a->modifierFlags() == b->modifierFlags() &&
                        a->tag() == b->tag()
                  : a == b;
}

} // namespace

std::shared_ptr<WindowState> WindowState::init() {
    return std::shared_ptr<WindowState>(new WindowState);
}

std::shared_ptr<WindowState> WindowState::windowStateIsDefault(bool isDefault, bool isGlobal) {
    auto state = init();
    state->isDefault_ = isDefault;
    state->isGlobal_ = isGlobal;
    return state;
}

std::shared_ptr<WindowState> WindowState::initWithCoder(const KeyedDecoder& decoder) {
    auto state = init();
    state->prefersDisplay_ = decoder.decodeBool(kPrefersDisplayKey);
    state->isGlobal_ = decoder.decodeBool(kIsGlobalKey);
    state->appBundleId_ = decoder.decodeString(kAppBundleIdKey);
    state->appName_ = decoder.decodeString(kAppNameKey);
    state->originalWindowRect_ =
        NSRectFromString(decoder.decodeString(kOriginalWindowRectKey).value_or(""));
    state->originalQuartzDisplayBounds_ =
        NSRectFromString(decoder.decodeString(kOriginalDisplayKey).value_or(""));
    state->windowStateName_ = decoder.decodeString(kWindowStateNameKey);
    state->isDefault_ = decoder.decodeBool(kIsDefaultKey);
    state->centerWindow_ = decoder.decodeBool(kCenterWindowKey);
    state->windowScale_ = decoder.decodeSize(kWindowScaleKey).value_or(Size{});
    if (decoder.containsValueForKey(kKeyEventKey)) {
        state->keyEvent_ =
            std::dynamic_pointer_cast<CarbonKeyEvent>(decoder.decodeObject(kKeyEventKey));
    }
    // Loading takes its time anyway; the save of everything after it must hold nobody up.
    state->copyForArchiving();
    return state;
}

void WindowState::encodeWithCoder(KeyedEncoder& encoder) const {
    encoder.encodeBool(kPrefersDisplayKey, prefersDisplay_);
    encoder.encodeBool(kIsGlobalKey, isGlobal_);
    encoder.encodeString(kAppBundleIdKey, appBundleId_);
    encoder.encodeString(kAppNameKey, appName_);
    encoder.encodeString(kOriginalWindowRectKey, NSStringFromRect(originalWindowRect_));
    encoder.encodeString(kOriginalDisplayKey, NSStringFromRect(originalQuartzDisplayBounds_));
    encoder.encodeString(kWindowStateNameKey, windowStateName_);
    encoder.encodeBool(kIsDefaultKey, isDefault_);
    encoder.encodeBool(kCenterWindowKey, centerWindow_);
    encoder.encodeSize(kWindowScaleKey, windowScale_);
    if (keyEvent_) {
        encoder.encodeObject(kKeyEventKey, keyEvent_);
    }
}

std::shared_ptr<KeyedCoding> WindowState::copyForArchiving() const {
    // The key event may have changed without the state being told.
    if (!copy_ || !isSameShortcut(keyEvent_.get(), copy_->keyEvent_.get())) {
        copy_ = newCopyForArchiving();
    }
    return copy_;
}

std::shared_ptr<WindowState> WindowState::newCopyForArchiving() const {
    auto copy = init();
    copy->isDefault_ = isDefault_;
    copy->isGlobal_ = isGlobal_;
    copy->centerWindow_ = centerWindow_;
    copy->prefersDisplay_ = prefersDisplay_;
    copy->appBundleId_ = appBundleId_;
    copy->appName_ = appName_;
    copy->windowStateName_ = windowStateName_;
    copy->windowScale_ = windowScale_;
    copy->originalWindowRect_ = originalWindowRect_;
    copy->originalQuartzDisplayBounds_ = originalQuartzDisplayBounds_;
    if (keyEvent_) {
        copy->keyEvent_ = CarbonKeyEvent::carbonEventWithKeyCode(keyEvent_->keyCode(),
                                                                 keyEvent_->modifierFlags());
        copy->keyEvent_->setTag(keyEvent_->tag());
    }
    return copy;
}

void WindowState::installKeyEvent() {
    if (keyEvent_) {
        keyEvent_->setTarget(shared_from_this(), &WindowState::onKeyEvent);
        CarbonEventManager::sharedManager().addCarbonKeyEvent(keyEvent_);
    }
}

void WindowState::uninstallKeyEvent() {
    if (keyEvent_) {
        CarbonEventManager::sharedManager().removeCarbonKeyEvent(keyEvent_);
    }
}

void WindowState::onKeyEvent(const std::shared_ptr<CarbonKeyEvent>& /*sender*/) {
    if (const auto launched = applier().lock()) {
        launched->applyWindowStateToActiveWindow(shared_from_this());
    }
}

EventAttributes WindowState::attributesForTracking(const ShortcutText& text) const {
    EventAttributes attributes{{"IsDefault", 0}, {"IsGlobal", 0}, {"PrefersDisplay", 0}};
    const auto setUnlessNil = [&](const char* key, const std::optional<std::string>& value) {
        if (value) {
            attributes[key] = *value;
        }
    };
    setUnlessNil("WindowStateName", windowStateName_);
    if (isDefault_) {
        attributes["IsDefault"] = 1;
        setUnlessNil("DefaultShortcutName", windowStateName_);
    }
    if (isGlobal_) {
        attributes["IsGlobal"] = 1;
    }
    if (prefersDisplay_) {
        attributes["PrefersDisplay"] = 1;
    }
    setUnlessNil("AppBundleId", appBundleId_);
    setUnlessNil("AppName", appName_);
    if (keyEvent_) {
        attributes["KeyboardShortcut"] = presentableOrException(*keyEvent_, text);
    }
    return attributes;
}

void WindowState::setApplier(std::weak_ptr<WindowStateApplier> newApplier) {
    applier() = std::move(newApplier);
}

} // namespace panewright
