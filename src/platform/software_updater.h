#pragma once

#include <functional>

namespace panewright {

/// Looks for newer versions of the program. Where packages do that, an adapter does nothing.
class SoftwareUpdater {
public:
    virtual ~SoftwareUpdater() = default;

    /// Called before the updater shows a window of its own.
    virtual void setWillShowHandler(std::function<void()> handler) = 0;

    /// Looks now and shows what it finds.
    virtual void checkForUpdates() = 0;

    /// Looks without showing anything unless there is an update.
    virtual void checkForUpdatesInBackground() = 0;
};

} // namespace panewright
