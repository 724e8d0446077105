#pragma once

#include <functional>
#include <utility>

namespace panewright {

/// Keeps something registered for as long as it lives: destroying or releasing it takes the
/// registration back. An empty one does nothing.
class [[nodiscard]] Registration {
public:
    Registration() = default;
    explicit Registration(std::function<void()> release) : release_(std::move(release)) {}
    ~Registration() { release(); }

    Registration(Registration&& other) noexcept
        : release_(std::exchange(other.release_, nullptr)) {}
    Registration& operator=(Registration&& other) noexcept {
        if (this != &other) {
            release();
            release_ = std::exchange(other.release_, nullptr);
        }
        return *this;
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

    void release() {
        if (auto release = std::exchange(release_, nullptr)) {
            release();
        }
    }

    explicit operator bool() const { return release_ != nullptr; }

private:
    std::function<void()> release_;
};

} // namespace panewright
