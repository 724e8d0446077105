#pragma once

#include "platform/user_defaults.h"

#include <functional>
#include <map>

namespace panewright {

/// Settings that last as long as the object.
class MemoryUserDefaults : public UserDefaults {
public:
    std::optional<DefaultsValue> objectForKey(std::string_view key) const override {
        const auto found = values_.find(key);
        return found == values_.end() ? std::nullopt : std::optional(found->second);
    }
    void setObject(std::string_view key, const DefaultsValue& value) override {
        values_.insert_or_assign(std::string(key), value);
    }
    void removeObjectForKey(std::string_view key) override {
        if (const auto found = values_.find(key); found != values_.end()) {
            values_.erase(found);
        }
    }
    void synchronize() override {}

private:
    std::map<std::string, DefaultsValue, std::less<>> values_;
};

} // namespace panewright
