#pragma once

#include "base/geometry.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace panewright {

class KeyedEncoder;

/// An object that can be archived: it names its class and writes its fields by key.
class KeyedCoding {
public:
    virtual ~KeyedCoding() = default;

    /// "$classname" in the archive; decoding finds the class by it.
    virtual std::string_view archiveClassName() const = 0;
    virtual void encodeWithCoder(KeyedEncoder& encoder) const = 0;
};

/// Takes the fields of one object while it is being archived, in the order of the calls. Numbers
/// become number objects, text and sizes objects of their own.
class KeyedEncoder {
public:
    virtual ~KeyedEncoder() = default;

    virtual void encodeBool(std::string_view key, bool value) = 0;
    virtual void encodeUnsigned(std::string_view key, std::uint64_t value) = 0;
    virtual void encodeSigned(std::string_view key, std::int64_t value) = 0;
    /// Nil writes nothing.
    virtual void encodeString(std::string_view key, const std::optional<std::string>& value) = 0;
    virtual void encodeSize(std::string_view key, Size value) = 0;
    /// An object archived twice is one entry with two references. Null writes nothing.
    virtual void encodeObject(std::string_view key, std::shared_ptr<const KeyedCoding> value) = 0;
};

/// Gives the fields of one object while it is being unarchived. A missing key, or a value of
/// another kind, reads as the kind's zero: false, 0, nil.
class KeyedDecoder {
public:
    virtual ~KeyedDecoder() = default;

    virtual bool containsValueForKey(std::string_view key) const = 0;
    virtual bool decodeBool(std::string_view key) const = 0;
    virtual std::uint64_t decodeUnsigned(std::string_view key) const = 0;
    virtual std::int64_t decodeSigned(std::string_view key) const = 0;
    virtual std::optional<std::string> decodeString(std::string_view key) const = 0;
    virtual std::optional<Size> decodeSize(std::string_view key) const = 0;
    virtual std::shared_ptr<KeyedCoding> decodeObject(std::string_view key) const = 0;
};

} // namespace panewright
