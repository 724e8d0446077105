#pragma once

#include "archive/keyed_coding.h"
#include "base/geometry.h"

#include <cstdint>
#include <memory>
#include <optional>
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
    ArchiveValue(bool value) : content_(value) {}
    ArchiveValue(std::int64_t value) : content_(value) {}
    ArchiveValue(std::uint64_t value) : content_(value) {}
    ArchiveValue(double value) : content_(value) {}
    ArchiveValue(std::string value) : content_(std::move(value)) {}
    ArchiveValue(const char* value) : content_(std::string(value)) {}
    ArchiveValue(Size value) : content_(value) {}
    ArchiveValue(ArchiveArray value) : content_(std::move(value)) {}
    ArchiveValue(ArchiveDictionary value) : content_(std::move(value)) {}

    /// A null object is nil.
    ArchiveValue(ObjectPtr value) {
        if (value) {
            content_ = std::move(value);
        }
    }

    bool isNil() const { return std::holds_alternative<std::monostate>(content_); }

    /// Null when the value is of another kind.
    const std::string* string() const { return std::get_if<std::string>(&content_); }
    const Size* size() const { return std::get_if<Size>(&content_); }
    const ArchiveArray* array() const { return std::get_if<ArchiveArray>(&content_); }
    const ArchiveDictionary* dictionary() const {
        return std::get_if<ArchiveDictionary>(&content_);
    }
    ObjectPtr object() const {
        const auto* object = std::get_if<ObjectPtr>(&content_);
        return object ? *object : nullptr;
    }

    /// A whole number as unsigned, a negative one as its two's complement. The file does not tell
    /// signed numbers from unsigned ones. Nothing when the value is of another kind.
    std::optional<std::uint64_t> unsignedNumber() const;

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

inline bool operator==(const ArchiveValue& a, const ArchiveValue& b) {
    return a.content_ == b.content_;
}

inline std::optional<std::uint64_t> ArchiveValue::unsignedNumber() const {
    if (const auto* number = std::get_if<std::uint64_t>(&content_)) {
        return *number;
    }
    if (const auto* number = std::get_if<std::int64_t>(&content_)) {
        return static_cast<std::uint64_t>(*number);
    }
    return std::nullopt;
}

} // namespace panewright
