#pragma once

namespace panewright {

/// What the menu can ask of the program as a whole.
class ApplicationActions {
public:
    virtual ~ApplicationActions() = default;

    virtual void settings() = 0;
    virtual void runAtStartup() = 0;
    virtual void restoreWindowStates() = 0;
    virtual void quit() = 0;
    virtual void checkForUpdates() = 0;
    virtual void sendFeedback() = 0;
    virtual void openFAQ() = 0;
    virtual void crash() = 0;
};

} // namespace panewright
