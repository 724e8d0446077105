#pragma once

#include "desktop/linux/active_windows.h"
#include "platform/workspace.h"

namespace panewright {

/// Applications of an X session: X clients, told apart by process and identifier.
class X11Workspace : public Workspace {
public:
    X11Workspace(XConnection& connection, ActiveWindows& activeWindows)
        : connection_(connection), activeWindows_(activeWindows) {}

    std::optional<RunningApplication> frontmostApplication() const override {
        return activeWindows_.frontmost();
    }
    Registration onApplicationActivated(std::function<void()> callback) override {
        return activeWindows_.onActivation(std::move(callback));
    }
    void bringThisApplicationToFront() override;
    void hideThisApplication() override;
    void openUrl(const std::string& url) override;
    void launchApplication(const std::string& /*bundlePath*/) override {}

private:
    XConnection& connection_;
    ActiveWindows& activeWindows_;
};

} // namespace panewright
