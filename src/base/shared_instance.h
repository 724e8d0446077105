#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace panewright {

/// The one object of a class that the whole program shares, made when it is first asked for.
template <class Object>
class SharedInstance {
public:
    using Factory = std::function<std::unique_ptr<Object>()>;

    /// Drops the object that there may be.
    void setFactory(Factory factory) {
        object_ = nullptr;
        factory_ = std::move(factory);
    }

    /// The factory must have been set.
    Object& get() {
        if (!object_) {
            object_ = factory_();
        }
        return *object_;
    }

private:
    Factory factory_;
    std::unique_ptr<Object> object_;
};

} // namespace panewright
