#pragma once

#include "base/registration.h"

#include <functional>

namespace panewright {

/// The colours that the user wants programs to have. Main thread only.
class ColourScheme {
public:
    virtual ~ColourScheme() = default;

    /// Whether light text on dark grounds is wanted; false where nobody has said, or it is not
    /// known yet.
    virtual bool isDark() const = 0;

    /// Calls back on the main loop after that changed.
    virtual Registration onChange(std::function<void()> callback) = 0;
};

} // namespace panewright
