#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace panewright {

/// A member that tells callbacks which outlive their object that it is gone.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// The task, doing nothing once this has been destroyed.
    std::function<void()> guard(std::function<void()> task) const {
        return [watch = watch(), task = std::move(task)] {
            if (!watch.expired()) {
                task();
            }
        };
    }

    std::weak_ptr<void> watch() const { return token_; }

private:
    std::shared_ptr<void> token_ = std::make_shared<char>();
};

} // namespace panewright
