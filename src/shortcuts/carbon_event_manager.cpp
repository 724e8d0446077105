#include "shortcuts/carbon_event_manager.h"

#include "shortcuts/hot_key_id_counter.h"
#include "shortcuts/modifier_flags.h"

namespace panewright {
namespace {

/// One for the process: ids are never shared, whichever registry takes them.
HotKeyIdCounter& hotKeyIds() {
    static HotKeyIdCounter counter;
    return counter;
}

SharedInstance<CarbonEventManager>& shared() {
    static SharedInstance<CarbonEventManager> shared;
    return shared;
}

} // namespace

CarbonEventManager& CarbonEventManager::sharedManager() {
    return shared().get();
}

void CarbonEventManager::setSharedManagerFactory(
    SharedInstance<CarbonEventManager>::Factory factory) {
    shared().setFactory(std::move(factory));
}

CarbonEventManager::CarbonEventManager(Services services)
    : services_(services), presses_(services.hotKeys.onPressed([this](const HotKeyPress& press) {
          handlers_.deliver(kHotKeyPressed, press);
      })) {
    restoreFromDefaults(); // for a registry that writes from the start; this one does not
}

CarbonEventManager::~CarbonEventManager() {
    writesToDefaults_ = false;
    removeAllEvents();
}

CarbonEventManager::KeyEventPtr CarbonEventManager::keyEventFromHotKeyId(std::uint32_t id) const {
    const auto found = keyEvents_.find(id);
    return found == keyEvents_.end() ? nullptr : found->second;
}

void CarbonEventManager::addCarbonKeyEvent(const KeyEventPtr& event) {
    const auto key = keyForKeyCode(event->keyCode(), event->modifierFlags());
    if (const auto stored = keyEvents_.find(key); stored != keyEvents_.end()) {
        removeCarbonKeyEvent(stored->second); // under its own shortcut, which may be another one
    }
    auto& registration = event->registration_;
    registration.hotKeyId.id = hotKeyIds().take();
    registration.eventSpec = kHotKeyPressed;
    const auto modifiers = cocoaToCarbonModifierFlags(event->modifierFlags());
    registration.hotKeyRef =
        services_.hotKeys
            .registerHotKey(static_cast<std::uint32_t>(event->keyCode()),
                            static_cast<std::uint32_t>(modifiers), registration.hotKeyId)
            .ref;
    registration.eventHandlerRef =
        handlers_.install(registration.eventSpec, carbonEventHotKeyHandler, nullptr);
    keyEvents_[key] = event;
    keyEvents_[hotKeyIdFromKeyEvent(*event)] = event;
    saveToDefaults();
}

void CarbonEventManager::addCarbonKeyEventsInArray(const std::vector<KeyEventPtr>& events) {
    for (const auto& event : events) {
        addCarbonKeyEvent(event);
    }
}

void CarbonEventManager::removeCarbonKeyEvent(const KeyEventPtr& event) {
    removeEntry(keyForKeyCode(event->keyCode(), event->modifierFlags()), event);
}

void CarbonEventManager::removeCarbonKeyEventWithKeyCode(std::uint64_t keyCode,
                                                         std::uint64_t modifierFlags) {
    const auto key = keyForKeyCode(keyCode, modifierFlags);
    const auto stored = keyEvents_.find(key);
    removeEntry(key, stored == keyEvents_.end() ? nullptr : stored->second);
}

void CarbonEventManager::removeEntry(
    std::uint64_t key, KeyEventPtr event) { // NOLINT(performance-unnecessary-value-param)
    if (keyEvents_.contains(key)) {
        handlers_.remove(event->registration_.eventHandlerRef);
        services_.hotKeys.unregisterHotKey(event->registration_.hotKeyRef);
        keyEvents_.erase(key);
        keyEvents_.erase(hotKeyIdFromKeyEvent(*event));
    }
    saveToDefaults();
}

bool CarbonEventManager::hasCarbonKeyEvent(const CarbonKeyEvent& event) const {
    return hasCarbonKeyEventWithKeyCode(event.keyCode(), event.modifierFlags());
}

bool CarbonEventManager::hasCarbonKeyEventWithKeyCode(std::uint64_t keyCode,
                                                      std::uint64_t modifierFlags) const {
    return keyEvents_.contains(keyForKeyCode(keyCode, modifierFlags));
}

std::vector<CarbonEventManager::KeyEventPtr> CarbonEventManager::allKeyEvents() const {
    std::vector<KeyEventPtr> events;
    events.reserve(keyEvents_.size());
    for (const auto& [key, event] : keyEvents_) {
        events.push_back(event);
    }
    return events;
}

void CarbonEventManager::removeAllEvents() {
    for (const auto& event : allKeyEvents()) {
        removeCarbonKeyEvent(event);
    }
    saveToDefaults();
}

EventStatus CarbonEventManager::handleHotKeyPress(const HotKeyPress& press) {
    if (press.status != kNoError) {
        return press.status;
    }
    if (const auto pressed = keyEventFromHotKeyId(press.hotKeyId.id)) {
        pressed->invoke(services_.mainLoop);
    }
    return kNoError;
}

EventStatus carbonEventHotKeyHandler(const HotKeyPress& press, void* /*userData*/) {
    return CarbonEventManager::sharedManager().handleHotKeyPress(press);
}

} // namespace panewright
