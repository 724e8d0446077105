#include "model/window_state.h"

#include "archive/geometry_text.h"
#include "model/window_state_applier.h"
#include "shortcuts/carbon_event_manager.h"
#include "shortcuts/shortcut_text.h"

#include <exception>
#include <utility>

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

void encode(KeyedEncoder& encoder, const WindowStateRecord& record,
            const std::shared_ptr<CarbonKeyEvent>& keyEvent) {
    encoder.encodeBool(kPrefersDisplayKey, record.prefersDisplay);
    encoder.encodeBool(kIsGlobalKey, record.isGlobal);
    encoder.encodeString(kAppBundleIdKey, record.appBundleId);
    encoder.encodeString(kAppNameKey, record.appName);
    encoder.encodeString(kOriginalWindowRectKey, NSStringFromRect(record.originalWindowRect));
    encoder.encodeString(kOriginalDisplayKey, NSStringFromRect(record.originalQuartzDisplayBounds));
    encoder.encodeString(kWindowStateNameKey, record.windowStateName);
    encoder.encodeBool(kIsDefaultKey, record.isDefault);
    encoder.encodeBool(kCenterWindowKey, record.centerWindow);
    encoder.encodeSize(kWindowScaleKey, record.windowScale);
    if (keyEvent) {
        encoder.encodeObject(kKeyEventKey, keyEvent);
    }
}

WindowStateRecord decodedRecord(const KeyedDecoder& decoder) {
    WindowStateRecord record;
    record.prefersDisplay = decoder.decodeBool(kPrefersDisplayKey);
    record.isGlobal = decoder.decodeBool(kIsGlobalKey);
    record.appBundleId = decoder.decodeString(kAppBundleIdKey);
    record.appName = decoder.decodeString(kAppNameKey);
    record.originalWindowRect =
        NSRectFromString(decoder.decodeString(kOriginalWindowRectKey).value_or(""));
    record.originalQuartzDisplayBounds =
        NSRectFromString(decoder.decodeString(kOriginalDisplayKey).value_or(""));
    record.windowStateName = decoder.decodeString(kWindowStateNameKey);
    record.isDefault = decoder.decodeBool(kIsDefaultKey);
    record.centerWindow = decoder.decodeBool(kCenterWindowKey);
    record.windowScale = decoder.decodeSize(kWindowScaleKey).value_or(Size{});
    return record;
}

std::shared_ptr<CarbonKeyEvent> copied(const std::shared_ptr<CarbonKeyEvent>& event) {
    if (!event) {
        return nullptr;
    }
    auto copy = CarbonKeyEvent::carbonEventWithKeyCode(event->keyCode(), event->modifierFlags());
    copy->setTag(event->tag());
    return copy;
}

std::string presentableOrException(const CarbonKeyEvent& event, const ShortcutText& text) {
    try {
        return event.presentableKeyboardShortcut(text);
    } catch (const std::exception&) {
        return "Exception";
    }
}

bool isUnchanged(const CarbonKeyEvent* a, const CarbonKeyEvent* b) {
    return a && b ? a->keyCode() == b->keyCode() && a->modifierFlags() == b->modifierFlags() &&
                        a->tag() == b->tag()
                  : a == b;
}

} // namespace

/// A state as it was when it was to be archived. The record does not change any more.
class ArchivedWindowState : public KeyedCoding {
public:
    ArchivedWindowState(std::shared_ptr<const WindowStateRecord> record,
                        std::shared_ptr<CarbonKeyEvent> keyEvent)
        : record_(std::move(record)), keyEvent_(std::move(keyEvent)) {}

    const CarbonKeyEvent* keyEvent() const { return keyEvent_.get(); }
    std::string_view archiveClassName() const override { return WindowState::kArchiveClassName; }
    void encodeWithCoder(KeyedEncoder& encoder) const override {
        encode(encoder, *record_, keyEvent_);
    }

private:
    std::shared_ptr<const WindowStateRecord> record_;
    std::shared_ptr<CarbonKeyEvent> keyEvent_;
};

std::shared_ptr<WindowState> WindowState::init() {
    return std::shared_ptr<WindowState>(new WindowState);
}

std::shared_ptr<WindowState> WindowState::windowStateIsDefault(bool isDefault, bool isGlobal) {
    auto state = init();
    state->setIsDefault(isDefault);
    state->setIsGlobal(isGlobal);
    return state;
}

std::shared_ptr<WindowState> WindowState::initWithCoder(const KeyedDecoder& decoder) {
    auto state = init();
    *state->record_ = decodedRecord(decoder);
    if (decoder.containsValueForKey(kKeyEventKey)) {
        state->keyEvent_ =
            std::dynamic_pointer_cast<CarbonKeyEvent>(decoder.decodeObject(kKeyEventKey));
    }
    // Loading takes its time anyway; the save of everything after it must hold nobody up.
    state->copyForArchiving();
    return state;
}

void WindowState::encodeWithCoder(KeyedEncoder& encoder) const {
    encode(encoder, *record_, keyEvent_);
}

std::shared_ptr<KeyedCoding> WindowState::copyForArchiving() const {
    // The key event may have changed without the state being told.
    if (!copy_ || !isUnchanged(keyEvent_.get(), copy_->keyEvent())) {
        copy_ = std::make_shared<ArchivedWindowState>(record_, copied(keyEvent_));
    }
    return copy_;
}

WindowStateRecord& WindowState::change() {
    if (std::exchange(copy_, nullptr)) {
        record_ = std::make_shared<WindowStateRecord>(*record_);
    }
    return *record_;
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
    setUnlessNil("WindowStateName", record_->windowStateName);
    if (record_->isDefault) {
        attributes["IsDefault"] = 1;
        setUnlessNil("DefaultShortcutName", record_->windowStateName);
    }
    if (record_->isGlobal) {
        attributes["IsGlobal"] = 1;
    }
    if (record_->prefersDisplay) {
        attributes["PrefersDisplay"] = 1;
    }
    setUnlessNil("AppBundleId", record_->appBundleId);
    setUnlessNil("AppName", record_->appName);
    if (keyEvent_) {
        attributes["KeyboardShortcut"] = presentableOrException(*keyEvent_, text);
    }
    return attributes;
}

void WindowState::setApplier(std::weak_ptr<WindowStateApplier> newApplier) {
    applier() = std::move(newApplier);
}

} // namespace panewright
