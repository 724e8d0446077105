#pragma once

#include <functional>

namespace panewright {

/// Looks for newer versions of the program. Main thread only.
class SoftwareUpdater {
public:
    virtual ~SoftwareUpdater() = default;

    /// Called on the main loop before the updater shows a window of its own; replaces the handler
    /// set before, and an empty one ends it.
    virtual void setWillShowHandler(std::function<void()> handler) = 0;

    /// Looks now and shows what it finds, also that there is nothing, or why nobody knows.
    virtual void checkForUpdates() = 0;

    /// Looks without showing anything unless there is an update.
    virtual void checkForUpdatesInBackground() = 0;
};

} // namespace panewright
