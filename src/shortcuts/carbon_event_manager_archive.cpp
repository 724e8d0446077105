// The registry's table in the user defaults, as a keyed archive.

#include "archive/keyed_archiver.h"
#include "archive/keyed_unarchiver.h"
#include "archive/reading_costs.h"
#include "shortcuts/carbon_event_manager.h"

namespace panewright {

void CarbonEventManager::saveToDefaults() {
    if (writesToDefaults_) {
        services_.userDefaults.setObject(kKeyEventsDefaultsKey, keyEventsData());
    }
}

void CarbonEventManager::restoreFromDefaults() {
    if (!writesToDefaults_) {
        return;
    }
    const auto value = services_.userDefaults.objectForKey(kKeyEventsDefaultsKey);
    const auto* data = value ? std::get_if<Bytes>(&*value) : nullptr;
    restoreKeyEventsFromData(data ? std::optional(*data) : std::nullopt);
}

Bytes CarbonEventManager::keyEventsData() const {
    ArchiveDictionary table;
    for (const auto& [key, event] : keyEvents_) {
        table.push_back({key, ArchiveValue(std::shared_ptr<KeyedCoding>(event))});
    }
    return KeyedArchiver::archivedDataWithRootObject(table);
}

void CarbonEventManager::restoreKeyEventsFromData(const std::optional<Bytes>& data) {
    static const ArchiveClasses kClasses{
        {std::string(CarbonKeyEvent::kArchiveClassName), &CarbonKeyEvent::initWithCoder}};
    MemoryBudget budget(kMaxReadingMemory);
    const auto root =
        data ? KeyedUnarchiver::unarchiveObjectWithData(*data, kClasses, budget) : std::nullopt;
    const ArchiveDictionary* table = root ? root->dictionary() : nullptr;
    if (!table) {
        return;
    }
    // Each event stands there under both of its keys, so it is added twice and takes two ids.
    for (const ArchiveEntry& entry : *table) {
        if (const auto event = std::dynamic_pointer_cast<CarbonKeyEvent>(entry.value.object())) {
            addCarbonKeyEvent(event);
        }
    }
}

void CarbonEventManager::restoreTargetActions(
    const std::function<void(const KeyEventPtr&)>& block) {
    for (const auto& [key, event] : keyEvents_) {
        block(event);
    }
}

} // namespace panewright
