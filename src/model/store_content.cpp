#include "model/store_content.h"

#include "archive/keyed_archiver.h"
#include "archive/keyed_unarchiver.h"
#include "archive/reading_costs.h"
#include "model/gzip.h"

#include <algorithm>
#include <new>

namespace panewright {
namespace {

constexpr int kSmallest = 9;

const ArchiveClasses& knownClasses() {
    static const ArchiveClasses kClasses{
        {std::string(WindowState::kArchiveClassName), &WindowState::initWithCoder},
        {std::string(CarbonKeyEvent::kArchiveClassName), &CarbonKeyEvent::initWithCoder}};
    return kClasses;
}

/// What the bytes of a file cost who reads it, its content inflated beside them.
std::uint64_t costOfFile(std::size_t size, std::size_t inflatedSize) {
    return std::uint64_t{size} + 2 * std::uint64_t{inflatedSize};
}

/// The archive in the file, inflated if it is compressed.
std::optional<ArchiveValue> unarchivedContent(const Bytes& fileContent) {
    MemoryBudget budget(kMaxReadingMemory);
    if (!budget.take(costOfFile(fileContent.size(), 0))) {
        return std::nullopt;
    }
    const std::optional<Bytes> gunzipped = gunzippedData(
        fileContent,
        static_cast<std::size_t>(std::min<std::uint64_t>(kMaxArchiveSize, budget.left() / 2)));
    if (gunzipped && !budget.take(costOfFile(0, gunzipped->size()))) {
        return std::nullopt;
    }
    return KeyedUnarchiver::unarchiveObjectWithData(gunzipped ? *gunzipped : fileContent,
                                                    knownClasses(), budget);
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

std::optional<Bytes> archivedSnapshot(const ArchiveValue& snapshot) try {
    MemoryBudget readersBudget(kMaxReadingMemory);
    const auto archive = KeyedArchiver::archivedDataWithRootObject(snapshot, readersBudget);
    auto content = archive && archive->size() <= kMaxArchiveSize ? gzippedData(*archive, kSmallest)
                                                                 : std::nullopt;
    return content && readersBudget.take(costOfFile(content->size(), archive->size()))
               ? std::move(content)
               : std::nullopt;
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

std::optional<WindowStates> unarchivedWindowStates(const Bytes& fileContent) try {
    const auto root = unarchivedContent(fileContent);
    if (!root || !root->dictionary()) {
        return std::nullopt;
    }
    WindowStates states;
    for (const ArchiveEntry& entry : *root->dictionary()) {
        const auto array = statesIn(entry.value);
        if (!entry.key.string() || !array) {
            return std::nullopt;
        }
        auto& known = states.try_emplace(*entry.key.string(), std::make_shared<WindowStateArray>())
                          .first->second;
        known->insert(known->end(), array->begin(), array->end());
    }
    return states;
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

} // namespace panewright
