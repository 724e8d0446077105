#pragma once

#include "base/shared_instance.h"
#include "platform/hot_keys.h"
#include "platform/main_loop.h"
#include "platform/user_defaults.h"
#include "shortcuts/carbon_key_event.h"
#include "shortcuts/hot_key_handlers.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace panewright {

/// The one registry of the program's system-wide hot keys.
///
/// Each registered key event stands in the table twice: under its combined key (key code plus
/// modifier flags in the application's form) and under the id of its registration. Both are numbers
/// of one key space, so a combined key and an id of equal value share an entry. Failures of the
/// hot-key service are ignored: the table is kept as if it had succeeded. Main thread only.
class CarbonEventManager {
public:
    using KeyEventPtr = std::shared_ptr<CarbonKeyEvent>;
    using KeyEventTable = std::map<std::uint64_t, KeyEventPtr>;

    static constexpr std::string_view kKeyEventsDefaultsKey = "CarbonEventManagerKeyEvents";

    /// What the registry works with; all of it must outlive the registry.
    struct Services {
        HotKeys& hotKeys;
        MainLoop& mainLoop;
        UserDefaults& userDefaults;
    };

    /// Made on the first call by the factory, which the composition root sets before. Setting a
    /// factory drops the instance that there may be.
    static CarbonEventManager& sharedManager();
    static void setSharedManagerFactory(SharedInstance<CarbonEventManager>::Factory factory);

    explicit CarbonEventManager(Services services);
    ~CarbonEventManager();
    CarbonEventManager(const CarbonEventManager&) = delete;
    CarbonEventManager& operator=(const CarbonEventManager&) = delete;

    /// The number that the shortcut stands under in the table, and that two equal shortcuts share.
    static std::uint64_t keyForKeyCode(std::uint64_t keyCode, std::uint64_t modifierFlags) {
        return keyCode + modifierFlags;
    }
    static std::uint64_t hotKeyIdFromKeyEvent(const CarbonKeyEvent& event) {
        return event.registration_.hotKeyId.id;
    }
    /// Null when no event has the id.
    KeyEventPtr keyEventFromHotKeyId(std::uint32_t id) const;

    /// Registers the event under a new id. An event with the same combined key is removed before;
    /// its owner is not told.
    void addCarbonKeyEvent(const KeyEventPtr& event);
    void addCarbonKeyEventsInArray(const std::vector<KeyEventPtr>& events);

    /// Releases the handles of the event given, not of the one stored under the same combined key.
    void removeCarbonKeyEvent(const KeyEventPtr& event);
    void removeCarbonKeyEventWithKeyCode(std::uint64_t keyCode, std::uint64_t modifierFlags);

    bool hasCarbonKeyEvent(const CarbonKeyEvent& event) const;
    bool hasCarbonKeyEventWithKeyCode(std::uint64_t keyCode, std::uint64_t modifierFlags) const;

    /// Every value of the table, so each registered event twice.
    std::vector<KeyEventPtr> allKeyEvents() const;
    void removeAllEvents();

    const KeyEventTable& keyEvents() const { return keyEvents_; }
    void setKeyEvents(KeyEventTable keyEvents) { keyEvents_ = std::move(keyEvents); }

    /// Whether each change is written to the user defaults; off at first.
    bool writesToDefaults() const { return writesToDefaults_; }
    void setWritesToDefaults(bool writes) { writesToDefaults_ = writes; }

    /// Both do nothing while writesToDefaults() is off.
    void saveToDefaults();
    void restoreFromDefaults();

    /// The keyed archive of the table. Targets and actions are not in it.
    Bytes keyEventsData() const;
    /// Adds every event of the archive. Absent or unreadable data changes nothing.
    void restoreKeyEventsFromData(const std::optional<Bytes>& data);
    /// Calls back once per entry of the table, so twice per event.
    void restoreTargetActions(const std::function<void(const KeyEventPtr&)>& block);

    /// Fires the event that was pressed. Claims it (kNoError) unless its identifier cannot be read.
    EventStatus handleHotKeyPress(const HotKeyPress& press);

private:
    /// By value: the table's own entry, which goes, may be what is passed.
    void removeEntry(std::uint64_t key, KeyEventPtr event);

    Services services_;
    KeyEventTable keyEvents_;
    HotKeyHandlers handlers_;
    bool writesToDefaults_ = false;
    Registration presses_;
};

/// The handler of presses; `userData` is not used, the shared registry answers.
EventStatus carbonEventHotKeyHandler(const HotKeyPress& press, void* userData);

} // namespace panewright
