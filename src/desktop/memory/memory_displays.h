#pragma once

#include "base/observer_list.h"
#include "platform/displays.h"

#include <vector>

namespace panewright {

/// Displays that a test plugs and unplugs.
class MemoryDisplays : public Displays {
public:
    struct Display {
        DisplayId id = kNoDisplay;
        Rect bounds;
        std::uint32_t serial = 0;
        std::uint32_t vendor = 0;
        std::uint32_t unit = 0;
        /// The display that this one mirrors; kNoDisplay if none.
        DisplayId mirrorOf = kNoDisplay;
    };

    /// In the server's order, the main display first. Tells the observers.
    void setDisplays(std::vector<Display> displays);

    std::vector<DisplayId> activeDisplays(std::size_t capacity) const override;
    std::vector<DisplayId> displaysWithPoint(Point point, std::size_t capacity) const override;
    std::vector<DisplayId> displaysWithRect(const Rect& rect, std::size_t capacity) const override;
    DisplayId primaryDisplay(DisplayId display) const override;
    Rect bounds(DisplayId display) const override { return find(display).bounds; }
    Size pixelSize(DisplayId display) const override { return find(display).bounds.size(); }
    std::uint32_t serialNumber(DisplayId display) const override { return find(display).serial; }
    std::uint32_t vendorNumber(DisplayId display) const override { return find(display).vendor; }
    std::uint32_t unitNumber(DisplayId display) const override { return find(display).unit; }
    std::vector<Screen> screens() const override;
    Registration onChange(std::function<void()> callback) override {
        return changed_.add(std::move(callback));
    }

private:
    Display find(DisplayId display) const;
    template <class Predicate>
    std::vector<DisplayId> idsWhere(Predicate predicate, std::size_t capacity) const;

    std::vector<Display> displays_;
    ObserverList<> changed_;
};

} // namespace panewright
