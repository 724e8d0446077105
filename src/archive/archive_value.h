#pragma once

#include "archive/keyed_coding.h"
#include "base/geometry.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace panewright {

class ArchiveValue;
struct ArchiveEntry;

using ArchiveArray = std::vector<ArchiveValue>;

/// The entries of a dictionary in their order. Keys are text or numbers.
using ArchiveDictionary = std::vector<ArchiveEntry>;

/// What a keyed archive holds under its root: nil, a number, text, a size, an object, or an array
/// or dictionary of those. Objects keep their identity; everything else is held by value.
class ArchiveValue {
public:
    using ObjectPtr = std::shared_ptr<KeyedCoding>;
    using Content = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double,
                                 std::string, Size, ObjectPtr, ArchiveArray, ArchiveDictionary>;

    ArchiveValue() = default;
    ArchiveValue(bool value);
    ArchiveValue(std::int64_t value);
    ArchiveValue(std::uint64_t value);
    ArchiveValue(double value);
    ArchiveValue(std::string value);
    ArchiveValue(const char* value);
    ArchiveValue(Size value);
    ArchiveValue(ArchiveArray value);
    ArchiveValue(ArchiveDictionary value);
    /// A null object is nil.
    ArchiveValue(ObjectPtr value);

    /// Null when the value is of another kind.
    const std::string* string() const;
    const Size* size() const;
    const ArchiveArray* array() const;
    const ArchiveDictionary* dictionary() const;
    ObjectPtr object() const;

    const Content& content() const { return content_; }

    friend bool operator==(const ArchiveValue& a, const ArchiveValue& b);

private:
    Content content_;
};

struct ArchiveEntry {
    ArchiveValue key;
    ArchiveValue value;

    friend bool operator==(const ArchiveEntry&, const ArchiveEntry&) = default;
};

} // namespace panewright
