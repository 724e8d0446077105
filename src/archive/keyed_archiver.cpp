#include "archive/keyed_archiver.h"

#include "archive/binary_property_list_check.h"
#include "archive/geometry_text.h"
#include "archive/plist_node.h"
#include "archive/reading_costs.h"
#include "base/unicode.h"

#include <bit>
#include <initializer_list>
#include <limits>
#include <map>
#include <unordered_map>

namespace panewright {
namespace {

using Uid = std::uint64_t;
constexpr Uid kNilUid = 0;

/// The table of one archive while it is being written.
class ObjectTable {
public:
    explicit ObjectTable(MemoryBudget& readersBudget) : readersBudget_(readersBudget) {
        add(plist_new_string("$null"));
    }

    /// Whether reading all of this back would hold too much: nothing more is taken in then.
    bool isTooLarge() const { return isTooLarge_; }

    Uid encode(const ArchiveValue& value) {
        if (isTooLarge_) {
            return kNilUid;
        }
        return std::visit([this](const auto& content) { return encode(content); }, value.content());
    }
    Uid encode(std::monostate /*nil*/) { return kNilUid; }
    Uid encode(bool value) {
        return shared(PLIST_BOOLEAN, value ? 1 : 0, [&] { return plist_new_bool(value ? 1 : 0); });
    }
    Uid encode(std::uint64_t value) {
        return shared(PLIST_UINT, value, [&] { return plist_new_uint(value); });
    }
    // A negative number goes in as its two's complement and stands as one in the file.
    Uid encode(std::int64_t value) { return encode(static_cast<std::uint64_t>(value)); }
    Uid encode(double value) {
        return shared(PLIST_REAL, std::bit_cast<std::uint64_t>(value),
                      [&] { return plist_new_real(value); });
    }
    Uid encode(const std::string& text) {
        count(costOfText(text.size()));
        if (isTooLarge_) {
            return kNilUid;
        }
        count(wellFormedUtf8Size(text) - text.size()); // mended it is never shorter
        const auto [entry, isNew] = texts_.try_emplace(text, kNilUid);
        if (isNew) {
            entry->second = add(plist_new_string(wellFormedUtf8(text).c_str()));
        }
        return entry->second;
    }
    Uid encode(Size size) {
        const auto [entry, isNew] = sizes_.try_emplace(
            {std::bit_cast<std::uint64_t>(size.width), std::bit_cast<std::uint64_t>(size.height)},
            kNilUid);
        if (isNew) {
            plist_t value = plist_new_dict();
            entry->second = add(value);
            plist_dict_set_item(value, "NS.special", plist_new_uint(kSpecialSize));
            plist_dict_set_item(value, "NS.sizeval", plist_new_uid(encode(NSStringFromSize(size))));
            setClass(value, {"NSValue", "NSObject"});
        }
        return entry->second;
    }
    Uid encode(const ArchiveArray& array) {
        count(array.size() * kCostOfElement);
        plist_t value = plist_new_dict();
        const Uid uid = add(value);
        plist_t objects = plist_new_array();
        for (const ArchiveValue& element : array) {
            plist_array_append_item(objects, plist_new_uid(encode(element)));
        }
        plist_dict_set_item(value, "NS.objects", objects);
        setClass(value, {"NSMutableArray", "NSArray", "NSObject"});
        return uid;
    }
    Uid encode(const ArchiveDictionary& dictionary) {
        count(2 * dictionary.size() * kCostOfElement);
        plist_t value = plist_new_dict();
        const Uid uid = add(value);
        plist_t keys = plist_new_array();
        plist_t objects = plist_new_array();
        for (const ArchiveEntry& entry : dictionary) {
            plist_array_append_item(keys, plist_new_uid(encode(entry.key)));
            plist_array_append_item(objects, plist_new_uid(encode(entry.value)));
        }
        plist_dict_set_item(value, "NS.keys", keys);
        plist_dict_set_item(value, "NS.objects", objects);
        setClass(value, {"NSMutableDictionary", "NSDictionary", "NSObject"});
        return uid;
    }
    Uid encode(const std::shared_ptr<KeyedCoding>& object) {
        return encode(std::shared_ptr<const KeyedCoding>(object));
    }
    Uid encode(const std::shared_ptr<const KeyedCoding>& object);

    /// Hands the table over; nothing can be encoded after that.
    plist_t release() { return objects_.release(); }

private:
    void count(std::uint64_t cost) { isTooLarge_ = !readersBudget_.take(cost) || isTooLarge_; }

    Uid add(plist_t node) {
        count(kCostOfTableEntry);
        plist_array_append_item(objects_.get(), node);
        return count_++;
    }

    /// One entry for all numbers of the kind and the bits.
    template <class Make>
    Uid shared(plist_type kind, std::uint64_t bits, Make make) {
        const auto [entry, isNew] = numbers_.try_emplace({kind, bits}, kNilUid);
        if (isNew) {
            entry->second = add(make());
        }
        return entry->second;
    }

    /// `names` are the class itself and the classes that it comes from.
    void setClass(plist_t object, std::initializer_list<std::string_view> names) {
        auto entry = classes_.find(*names.begin());
        if (entry == classes_.end()) {
            entry = classes_.emplace(*names.begin(), kNilUid).first;
            plist_t description = plist_new_dict();
            entry->second = add(description);
            plist_t chain = plist_new_array();
            for (const std::string_view name : names) {
                plist_array_append_item(chain, plist_new_string(std::string(name).c_str()));
            }
            plist_dict_set_item(description, "$classname", plist_new_string(entry->first.c_str()));
            plist_dict_set_item(description, "$classes", chain);
        }
        plist_dict_set_item(object, "$class", plist_new_uid(entry->second));
    }

    MemoryBudget& readersBudget_;
    bool isTooLarge_ = false;
    PlistNode objects_{plist_new_array()};
    Uid count_ = 0;
    std::map<std::pair<plist_type, std::uint64_t>, Uid> numbers_;
    std::unordered_map<std::string, Uid> texts_;
    std::map<std::pair<std::uint64_t, std::uint64_t>, Uid> sizes_; // by the bits of both numbers
    std::map<std::string, Uid, std::less<>> classes_;
    // Holding the objects keeps an address from being used twice.
    std::unordered_map<std::shared_ptr<const KeyedCoding>, Uid> seen_;
};

/// Writes the fields of one object into its entry.
class ObjectEncoder : public KeyedEncoder {
public:
    ObjectEncoder(ObjectTable& table, plist_t entry) : table_(table), entry_(entry) {}

    void encodeBool(std::string_view key, bool value) override { set(key, table_.encode(value)); }
    void encodeUnsigned(std::string_view key, std::uint64_t value) override {
        set(key, table_.encode(value));
    }
    void encodeSigned(std::string_view key, std::int64_t value) override {
        set(key, table_.encode(value));
    }
    void encodeString(std::string_view key, const std::optional<std::string>& value) override {
        if (value) {
            set(key, table_.encode(*value));
        }
    }
    void encodeSize(std::string_view key, Size value) override { set(key, table_.encode(value)); }
    void encodeObject(std::string_view key, std::shared_ptr<const KeyedCoding> value) override {
        if (value) {
            set(key, table_.encode(value));
        }
    }

private:
    void set(std::string_view key, Uid value) {
        plist_dict_set_item(entry_, escapedArchiveKey(key).c_str(), plist_new_uid(value));
    }

    ObjectTable& table_;
    plist_t entry_;
};

Uid ObjectTable::encode(const std::shared_ptr<const KeyedCoding>& object) {
    const auto [entry, isNew] = seen_.try_emplace(object, count_);
    const Uid uid = entry->second;
    if (isNew) {
        count(kCostOfObject);
        plist_t fields = plist_new_dict();
        add(fields);
        ObjectEncoder encoder(*this, fields);
        object->encodeWithCoder(encoder);
        setClass(fields, {object->archiveClassName(), "NSObject"});
    }
    return uid;
}

/// The archive of all that the table took in, which is handed over.
Bytes binaryArchive(ObjectTable& table, Uid root) {
    const PlistNode archive(plist_new_dict());
    plist_dict_set_item(archive.get(), "$version", plist_new_uint(kArchiverVersion));
    plist_dict_set_item(archive.get(), "$archiver", plist_new_string(kArchiverName.data()));
    plist_t top = plist_new_dict();
    plist_dict_set_item(archive.get(), "$top", top);
    plist_dict_set_item(top, "root", plist_new_uid(root));
    plist_dict_set_item(archive.get(), "$objects", table.release());

    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(archive.get(), &bytes, &length);
    const CPointer<char> owned(bytes);
    return Bytes(bytes, bytes + length);
}

} // namespace

std::string escapedArchiveKey(std::string_view key) {
    return key.substr(0, 1) == "$" ? '$' + std::string(key) : std::string(key);
}

Bytes KeyedArchiver::archivedDataWithRootObject(const ArchiveValue& root) {
    MemoryBudget unlimited(std::numeric_limits<std::uint64_t>::max());
    ObjectTable table(unlimited);
    const Uid rootUid = table.encode(root);
    return binaryArchive(table, rootUid);
}

std::optional<Bytes> KeyedArchiver::archivedDataWithRootObject(const ArchiveValue& root,
                                                               MemoryBudget& readersBudget) {
    ObjectTable table(readersBudget);
    const Uid rootUid = table.encode(root);
    if (table.isTooLarge()) {
        return std::nullopt;
    }
    Bytes archive = binaryArchive(table, rootUid);
    return isSafeBinaryPropertyList(archive, readersBudget) ? std::optional(std::move(archive))
                                                            : std::nullopt;
}

} // namespace panewright
