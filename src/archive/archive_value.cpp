#include "archive/archive_value.h"

namespace panewright {

// Here, because an entry, which a value may hold, is complete only after the class.
ArchiveValue::ArchiveValue(bool value) : content_(value) {}
ArchiveValue::ArchiveValue(std::int64_t value) : content_(value) {}
ArchiveValue::ArchiveValue(std::uint64_t value) : content_(value) {}
ArchiveValue::ArchiveValue(double value) : content_(value) {}
ArchiveValue::ArchiveValue(std::string value) : content_(std::move(value)) {}
ArchiveValue::ArchiveValue(const char* value) : content_(std::string(value)) {}
ArchiveValue::ArchiveValue(Size value) : content_(value) {}
ArchiveValue::ArchiveValue(ArchiveArray value) : content_(std::move(value)) {}
ArchiveValue::ArchiveValue(ArchiveDictionary value) : content_(std::move(value)) {}

ArchiveValue::ArchiveValue(ObjectPtr value) {
    if (value) {
        content_ = std::move(value);
    }
}

const std::string* ArchiveValue::string() const {
    return std::get_if<std::string>(&content_);
}

const Size* ArchiveValue::size() const {
    return std::get_if<Size>(&content_);
}

const ArchiveArray* ArchiveValue::array() const {
    return std::get_if<ArchiveArray>(&content_);
}

const ArchiveDictionary* ArchiveValue::dictionary() const {
    return std::get_if<ArchiveDictionary>(&content_);
}

ArchiveValue::ObjectPtr ArchiveValue::object() const {
    const auto* object = std::get_if<ObjectPtr>(&content_);
    return object ? *object : nullptr;
}

bool operator==(const ArchiveValue& a, const ArchiveValue& b) {
    return a.content_ == b.content_;
}

} // namespace panewright
