#pragma once

#include "base/image.h"
#include "platform/workspace.h"

#include <string>

namespace panewright {

/// The icons that the desktop shows for programs. Main thread only.
class ApplicationIcons {
public:
    virtual ~ApplicationIcons() = default;

    /// Null for a program without one. Sharp at any size that it is shown in.
    virtual ImagePtr iconOf(const RunningApplication& application) = 0;

    /// The icon of the program with that identifier, whether it runs or not; null if none is known.
    /// May take time: it looks for files, and at the windows of programs that run.
    virtual ImagePtr iconForBundleIdentifier(const std::string& bundleIdentifier) = 0;
};

} // namespace panewright
