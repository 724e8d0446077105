#pragma once

#include "platform/user_defaults.h"

#include <map>
#include <string>

namespace panewright {

/// Typed access to the user-defaults store. Settings may have been typed by hand, so every read
/// takes any kind of value: text counts as the number that it starts with, and as yes when it
/// starts with Y, T or a digit other than zero.
class Defaults {
public:
    explicit Defaults(UserDefaults& store) : store_(store) {}

    /// Values for keys that the user has not set. Not stored; a later value for a key replaces the
    /// earlier one.
    void registerDefaults(const std::map<std::string, DefaultsValue, std::less<>>& values);

    /// What the user set, else what is registered, else nil.
    std::optional<DefaultsValue> objectForKey(std::string_view key) const;

    /// False or zero where there is no value, or none that can be read as the kind.
    bool boolForKey(std::string_view key) const;
    std::int64_t integerForKey(std::string_view key) const;

    void setBool(std::string_view key, bool value) { store_.setObject(key, value); }
    void setInteger(std::string_view key, std::int64_t value) { store_.setObject(key, value); }
    void setObject(std::string_view key, const DefaultsValue& value) {
        store_.setObject(key, value);
    }
    void removeObjectForKey(std::string_view key) { store_.removeObjectForKey(key); }
    void synchronize() { store_.synchronize(); }

private:
    UserDefaults& store_;
    std::map<std::string, DefaultsValue, std::less<>> registered_;
};

} // namespace panewright
