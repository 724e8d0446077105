#include "model/window_state_archive.h"

#include "archive/binary_property_list_check.h"
#include "archive/keyed_archiver.h"
#include "archive/keyed_unarchiver.h"
#include "model/gzip.h"

namespace panewright {
namespace {

constexpr int kSmallest = 9;

const ArchiveClasses& knownClasses() {
    static const ArchiveClasses kClasses{
        {std::string(WindowState::kArchiveClassName), &WindowState::initWithCoder},
        {std::string(CarbonKeyEvent::kArchiveClassName), &CarbonKeyEvent::initWithCoder}};
    return kClasses;
}

std::size_t elementsIn(const ArchiveValue& snapshot) {
    std::size_t count = 0;
    if (const ArchiveDictionary* dictionary = snapshot.dictionary()) {
        for (const ArchiveEntry& entry : *dictionary) {
            count += 1 + (entry.value.array() ? entry.value.array()->size() : 0);
        }
    }
    return count;
}

std::shared_ptr<WindowStateArray> statesIn(const ArchiveValue& value) {
    if (!value.array()) {
        return nullptr;
    }
    auto states = std::make_shared<WindowStateArray>();
    states->reserve(value.array()->size());
    for (const ArchiveValue& element : *value.array()) {
        auto state = std::dynamic_pointer_cast<WindowState>(element.object());
        if (!state) {
            return nullptr;
        }
        states->push_back(std::move(state));
    }
    return states;
}

} // namespace

ArchiveValue snapshotOf(const WindowStates& states) {
    ArchiveDictionary dictionary;
    dictionary.reserve(states.size());
    for (const auto& [key, array] : states) {
        ArchiveArray copies;
        copies.reserve(array->size());
        for (const auto& state : *array) {
            copies.emplace_back(state->copyForArchiving());
        }
        dictionary.push_back({key, std::move(copies)});
    }
    return dictionary;
}

std::optional<Bytes> archivedSnapshot(const ArchiveValue& snapshot) {
    if (elementsIn(snapshot) > kMaxArchiveElements) {
        return std::nullopt;
    }
    const Bytes archive = KeyedArchiver::archivedDataWithRootObject(snapshot);
    return isSafeBinaryPropertyList(archive) ? gzippedData(archive, kSmallest) : std::nullopt;
}

std::optional<WindowStates> unarchivedWindowStates(const Bytes& fileContent) {
    const std::optional<Bytes> gunzipped = gunzippedData(fileContent);
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(gunzipped ? *gunzipped : fileContent,
                                                               knownClasses());
    if (!root || !root->dictionary()) {
        return std::nullopt;
    }
    WindowStates states;
    for (const ArchiveEntry& entry : *root->dictionary()) {
        auto array = statesIn(entry.value);
        if (!entry.key.string() || !array) {
            return std::nullopt;
        }
        states.insert_or_assign(*entry.key.string(), std::move(array));
    }
    return states;
}

} // namespace panewright
