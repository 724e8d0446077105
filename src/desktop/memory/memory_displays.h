#pragma once

#include "base/observer_list.h"
#include "platform/displays.h"

namespace panewright {

/// Displays that a test plugs and unplugs.
class MemoryDisplays : public Displays {
public:
    /// In the server's order, the main display first. One that names no display that it mirrors
    /// mirrors none; one without a size in pixels has as many as points. Tells the observers.
    void setDisplays(DisplaySnapshot displays);

    const DisplaySnapshot& snapshot() const override { return displays_; }
    Registration onChange(std::function<void()> callback) override {
        return changed_.add(std::move(callback));
    }

private:
    DisplaySnapshot displays_;
    ObserverList<> changed_;
};

} // namespace panewright
