#pragma once

#include "base/image.h"
#include "platform/workspace.h"

namespace panewright {

/// The icons that the desktop shows for programs. Main thread only.
class ApplicationIcons {
public:
    virtual ~ApplicationIcons() = default;

    /// Null for a program without one. Sharp at any size that it is shown in.
    virtual ImagePtr iconOf(const RunningApplication& application) = 0;
};

} // namespace panewright
