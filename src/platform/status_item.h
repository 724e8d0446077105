#pragma once

#include "base/geometry.h"
#include "base/registration.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace panewright {

/// How the program shows itself in the desktop's status bar. Sizes in points.
struct StatusItemLook {
    /// A picture in one colour, drawn in whatever colour suits the bar.
    std::string imageName;
    Size imageSize;
    /// Width of the item where the bar leaves that to its items.
    double length = 0;
    /// The program's name, for the tool tip and for those who cannot see the picture.
    std::string name;
};

struct StatusItemClick {
    bool isRightButton = false;
    /// What is held, in the application's form.
    std::uint64_t modifierFlags = 0;
};

/// The program's place in the status bar. Main thread only; clicks come on the main loop.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// Shows the item from now on, also in a bar that comes later.
    virtual void show(const StatusItemLook& look,
                      std::function<void(const StatusItemClick&)> clicked) = 0;

    /// Whether a bar shows it now.
    virtual bool isShown() const = 0;

    /// Calls back after that changed.
    virtual Registration onShownChange(std::function<void()> callback) = 0;

    /// Where it is, in global points; where the bar does not tell, the point, of no size, of the
    /// last click. Nil before either is known.
    virtual std::optional<Rect> frame() const = 0;
};

} // namespace panewright
