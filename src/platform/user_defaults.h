#pragma once

#include "base/bytes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace panewright {

/// A value of the user-defaults store.
using DefaultsValue = std::variant<bool, std::int64_t, double, std::string, Bytes>;

/// The store of the program's few settings, by key. Main thread only.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// Nil when the user has set nothing under the key.
    virtual std::optional<DefaultsValue> objectForKey(std::string_view key) const = 0;
    /// Holds at once, also when it cannot be written (which is logged).
    virtual void setObject(std::string_view key, const DefaultsValue& value) = 0;

    /// Harmless when there is none.
    virtual void removeObjectForKey(std::string_view key) = 0;

    /// Returns when what was set is on disk, or could not be written (which is logged).
    virtual void synchronize() = 0;
};

} // namespace panewright
