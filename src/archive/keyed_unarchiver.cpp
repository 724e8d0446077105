#include "archive/keyed_unarchiver.h"

#include "archive/binary_property_list_check.h"
#include "archive/geometry_text.h"
#include "archive/keyed_archiver.h"
#include "archive/plist_node.h"
#include "archive/reading_costs.h"
#include "base/unicode.h"

#include <cmath>
#include <type_traits>

namespace panewright {
namespace {

PlistNode parsedBinaryPropertyList(const Bytes& data, MemoryBudget& budget) {
    plist_t node = nullptr;
    if (isSafeBinaryPropertyList(data, budget)) {
        plist_from_bin(reinterpret_cast<const char*>(data.data()),
                       static_cast<std::uint32_t>(data.size()), &node);
    }
    return PlistNode(node);
}

plist_t itemOf(plist_t dictionary, const char* key) {
    return isPlist(dictionary, PLIST_DICT) ? plist_dict_get_item(dictionary, key) : nullptr;
}

std::uint64_t unsignedOf(plist_t node) {
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    return value;
}

double realOf(plist_t node) {
    double value = 0;
    plist_get_real_val(node, &value);
    return value;
}

/// A boolean or a number as a whole number, fractions cut off; zero for any other node and for what
/// does not fit.
template <class Whole>
Whole wholeOf(plist_t node) {
    if (isPlist(node, PLIST_BOOLEAN)) {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value ? 1 : 0;
    }
    if (isPlist(node, PLIST_UINT)) {
        return static_cast<Whole>(unsignedOf(node));
    }
    if (isPlist(node, PLIST_REAL)) {
        const double value = std::trunc(realOf(node));
        const double lowest = std::is_signed_v<Whole> ? -0x1p63 : 0;
        const double beyond = std::is_signed_v<Whole> ? 0x1p63 : 0x1p64;
        return value >= lowest && value < beyond ? static_cast<Whole>(value) : 0;
    }
    return 0;
}

/// One archive while it is being read. Any fault stops the reading for good: from then on
/// everything reads as nil, and the archive as nothing.
class Unarchiving {
public:
    Unarchiving(std::vector<plist_t> objects, const ArchiveClasses& classes, MemoryBudget& budget)
        : objects_(std::move(objects)), made_(objects_.size()), classes_(classes), budget_(budget) {
    }

    bool failed() const { return failed_; }

    ArchiveValue value(plist_t reference);
    std::shared_ptr<KeyedCoding> object(plist_t reference);

    /// The node that a value stands for: it is either in place or a reference into the table. Null
    /// for nil.
    plist_t resolve(plist_t reference) {
        const auto uid = uidOf(reference);
        if (!uid) {
            return reference;
        }
        if (*uid >= objects_.size() || uidOf(objects_[*uid])) {
            failed_ = true;
        }
        return failed_ || *uid == 0 ? nullptr : objects_[*uid];
    }

    /// "$classname" of an object, empty for any other node. Lives as long as the node.
    std::string_view classNameOf(plist_t node) {
        if (!takeForLooking(node)) {
            return {};
        }
        return textOf(itemOf(resolve(itemOf(node, "$class")), "$classname")).value_or("");
    }

    /// Nothing unless it is text, mutable or not, or a size value.
    std::optional<std::string> text(plist_t node);
    std::optional<std::string_view> rawText(plist_t node);
    std::optional<Size> size(plist_t node);

private:
    struct Made {
        bool isBeingMade = false;
        std::shared_ptr<KeyedCoding> object;
    };

    /// Counts one level of nesting while it lives.
    class Level {
    public:
        explicit Level(Unarchiving& owner) : owner_(owner) {
            owner.failed_ = ++owner.depth_ > kMaxArchiveDepth || owner.failed_;
        }
        ~Level() { --owner_.depth_; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

    private:
        Unarchiving& owner_;
    };

    ArchiveValue number(plist_t node) const;
    ArchiveValue container(plist_t node, std::string_view className);
    ArchiveArray array(const std::vector<plist_t>& items);
    ArchiveDictionary dictionary(const std::vector<plist_t>& keys,
                                 const std::vector<plist_t>& items);
    std::shared_ptr<KeyedCoding> make(plist_t node);
    /// Counts what is about to be held; a reading that would hold too much fails.
    bool take(std::uint64_t bytes) {
        failed_ = failed_ || !budget_.take(bytes);
        return !failed_;
    }
    /// Looking for a key goes through all of a dictionary, which many may refer to. A byte for each
    /// key bounds the time.
    bool takeForLooking(plist_t node) {
        return take(isPlist(node, PLIST_DICT) ? plist_dict_get_size(node) : 1);
    }
    std::nullptr_t fail() {
        failed_ = true;
        return nullptr;
    }

    std::vector<plist_t> objects_;
    std::vector<Made> made_; // by the same index
    const ArchiveClasses& classes_;
    MemoryBudget& budget_;
    int depth_ = 0;
    bool failed_ = false;
};

class ObjectDecoder : public KeyedDecoder {
public:
    ObjectDecoder(Unarchiving& archive, plist_t fields) : archive_(archive), fields_(fields) {}

    bool containsValueForKey(std::string_view key) const override { return item(key) != nullptr; }
    bool decodeBool(std::string_view key) const override {
        plist_t node = field(key);
        return isPlist(node, PLIST_REAL) ? realOf(node) != 0 : wholeOf<std::uint64_t>(node) != 0;
    }
    std::uint64_t decodeUnsigned(std::string_view key) const override {
        return wholeOf<std::uint64_t>(field(key));
    }
    std::int64_t decodeSigned(std::string_view key) const override {
        return wholeOf<std::int64_t>(field(key));
    }
    std::optional<std::string> decodeString(std::string_view key) const override {
        return archive_.text(field(key));
    }
    std::optional<Size> decodeSize(std::string_view key) const override {
        return archive_.size(field(key));
    }
    std::shared_ptr<KeyedCoding> decodeObject(std::string_view key) const override {
        return archive_.object(item(key));
    }

private:
    plist_t item(std::string_view key) const {
        return itemOf(fields_, escapedArchiveKey(key).c_str());
    }
    plist_t field(std::string_view key) const { return archive_.resolve(item(key)); }

    Unarchiving& archive_;
    plist_t fields_;
};

std::optional<std::string_view> Unarchiving::rawText(plist_t node) {
    std::optional<std::string_view> text = textOf(node);
    if (!text && isPlist(node, PLIST_DICT)) {
        const std::string_view name = classNameOf(node);
        if (name == "NSMutableString" || name == "NSString") {
            text = textOf(resolve(itemOf(node, "NS.string")));
        }
    }
    return text;
}

std::optional<std::string> Unarchiving::text(plist_t node) {
    auto raw = rawText(node);
    if (!raw || !take(costOfText(raw->size()))) {
        return std::nullopt;
    }
    raw = raw->substr(0, raw->find('\0'));
    // Written again, what was mended stands in the file too: it must stay readable.
    const std::uint64_t added = wellFormedUtf8Size(*raw) - raw->size();
    return take(4 * added) ? std::optional(wellFormedUtf8(*raw)) : std::nullopt;
}

std::optional<Size> Unarchiving::size(plist_t node) {
    if (classNameOf(node) != "NSValue" ||
        wholeOf<std::uint64_t>(resolve(itemOf(node, "NS.special"))) != kSpecialSize) {
        return std::nullopt;
    }
    const auto numbers = rawText(resolve(itemOf(node, "NS.sizeval")));
    return numbers ? std::optional(NSSizeFromString(*numbers)) : std::nullopt;
}

ArchiveValue Unarchiving::number(plist_t node) const {
    if (isPlist(node, PLIST_REAL)) {
        return realOf(node);
    }
    if (isPlist(node, PLIST_BOOLEAN)) {
        return wholeOf<std::uint64_t>(node) != 0;
    }
    const std::uint64_t value = unsignedOf(node);
    return value >> 63 ? ArchiveValue(static_cast<std::int64_t>(value)) : ArchiveValue(value);
}

ArchiveValue Unarchiving::value(plist_t reference) {
    const Level level(*this);
    plist_t node = resolve(reference);
    if (failed_ || !node) {
        return {};
    }
    if (isPlist(node, PLIST_BOOLEAN) || isPlist(node, PLIST_UINT) || isPlist(node, PLIST_REAL)) {
        return number(node);
    }
    if (const auto uid = uidOf(reference); uid && made_[*uid].object) {
        return ArchiveValue(made_[*uid].object);
    }
    const std::string_view name = classNameOf(node);
    if (name == "NSArray" || name == "NSMutableArray" || name == "NSDictionary" ||
        name == "NSMutableDictionary") {
        return container(node, name);
    }
    if (!classes_.contains(name)) {
        if (auto found = text(node)) {
            return *std::move(found);
        }
        if (const auto found = size(node)) {
            return *found;
        }
    }
    return object(reference);
}

ArchiveValue Unarchiving::container(plist_t node, std::string_view className) {
    const std::vector<plist_t> items = itemsOf(itemOf(node, "NS.objects"));
    const bool isArray = className == "NSArray" || className == "NSMutableArray";
    const std::vector<plist_t> keys =
        isArray ? std::vector<plist_t>() : itemsOf(itemOf(node, "NS.keys"));
    if (!isPlist(itemOf(node, "NS.objects"), PLIST_ARRAY) ||
        (!isArray && keys.size() != items.size()) ||
        !take((items.size() + keys.size()) * kCostOfElement)) {
        return ArchiveValue(std::shared_ptr<KeyedCoding>(fail()));
    }
    return isArray ? ArchiveValue(array(items)) : ArchiveValue(dictionary(keys, items));
}

ArchiveArray Unarchiving::array(const std::vector<plist_t>& items) {
    ArchiveArray array;
    array.reserve(items.size());
    for (std::size_t index = 0; index < items.size() && !failed_; ++index) {
        array.push_back(value(items[index]));
    }
    return array;
}

ArchiveDictionary Unarchiving::dictionary(const std::vector<plist_t>& keys,
                                          const std::vector<plist_t>& items) {
    ArchiveDictionary dictionary;
    dictionary.reserve(items.size());
    for (std::size_t index = 0; index < items.size() && !failed_; ++index) {
        dictionary.push_back({value(keys[index]), value(items[index])});
    }
    return dictionary;
}

std::shared_ptr<KeyedCoding> Unarchiving::object(plist_t reference) {
    plist_t node = resolve(reference);
    if (failed_ || !node) {
        return nullptr;
    }
    const auto uid = uidOf(reference);
    if (!uid) { // an object stands in the table, always
        return fail();
    }
    if (made_[*uid].object) {
        return made_[*uid].object;
    }
    if (made_[*uid].isBeingMade) {
        return fail();
    }
    made_[*uid].isBeingMade = true;
    made_[*uid].object = make(node);
    made_[*uid].isBeingMade = false;
    return made_[*uid].object;
}

std::shared_ptr<KeyedCoding> Unarchiving::make(plist_t node) {
    const Level level(*this);
    const auto known = classes_.find(classNameOf(node));
    if (failed_ || known == classes_.end() || !take(kCostOfObject)) {
        return fail();
    }
    auto object = known->second(ObjectDecoder(*this, node));
    return object ? object : fail();
}

} // namespace

std::optional<ArchiveValue> KeyedUnarchiver::unarchiveObjectWithData(const Bytes& data,
                                                                     const ArchiveClasses& classes,
                                                                     MemoryBudget& budget) {
    const PlistNode archive = parsedBinaryPropertyList(data, budget);
    const auto archiver = textOf(itemOf(archive.get(), "$archiver"));
    plist_t version = itemOf(archive.get(), "$version");
    plist_t root = itemOf(itemOf(archive.get(), "$top"), "root");
    plist_t table = itemOf(archive.get(), "$objects");
    if (archiver != kArchiverName || !isPlist(version, PLIST_UINT) ||
        unsignedOf(version) != kArchiverVersion || !uidOf(root) || !isPlist(table, PLIST_ARRAY) ||
        plist_array_get_size(table) == 0 ||
        !budget.take(plist_array_get_size(table), kCostOfTableEntry)) {
        return std::nullopt;
    }
    Unarchiving unarchiving(itemsOf(table), classes, budget);
    ArchiveValue value = unarchiving.value(root);
    return unarchiving.failed() ? std::nullopt : std::optional(std::move(value));
}

} // namespace panewright
