#pragma once

#include "base/registration.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace panewright {

/// Callbacks that want to hear of one thing. A callback may add or release registrations, its own
/// included, while it is being called; one released in that moment is not called any more. The
/// registrations may outlive the list.
template <class... Arguments>
class ObserverList {
public:
    using Callback = std::function<void(Arguments...)>;

    Registration add(Callback callback) {
        auto entry = std::make_shared<Callback>(std::move(callback));
        entries_->push_back(entry);
        std::weak_ptr<Entries> entries = entries_;
        return Registration([entries, entry] {
            *entry = nullptr;
            if (auto list = entries.lock()) {
                list->erase(std::remove(list->begin(), list->end(), entry), list->end());
            }
        });
    }

    void notify(Arguments... arguments) const {
        const Entries snapshot = *entries_;
        for (const auto& entry : snapshot) {
            if (const Callback callback = *entry) {
                callback(arguments...);
            }
        }
    }

    bool empty() const { return entries_->empty(); }

private:
    using Entries = std::vector<std::shared_ptr<Callback>>;
    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
};

} // namespace panewright
