#pragma once

#include "base/lifetime.h"
#include "desktop/freedesktop/desktop_opener.h"
#include "desktop/x11/active_windows.h"
#include "desktop/x11/window_activator.h"
#include "desktop/x11/x11_keyboard_loan.h"
#include "platform/main_loop.h"
#include "platform/workspace.h"

#include <set>

namespace panewright {

/// Applications of an X session: X clients, told apart by process and identifier.
class X11Workspace : public Workspace {
public:
    X11Workspace(XConnection& connection, ActiveWindows& activeWindows, MainLoop& mainLoop);

    std::optional<RunningApplication> frontmostApplication() const override {
        return activeWindows_.frontmost();
    }
    Registration onApplicationActivated(std::function<void()> callback) override {
        return activeWindows_.onActivation(std::move(callback));
    }
    void bringThisApplicationToFront() override;
    void hideThisApplication() override;
    /// Brings that window of ours to the front, from now on instead of the newest.
    void makeKey(xcb_window_t window);
    void openUrl(const std::string& url) override { openWithDesktop(url); }
    void openFile(const std::filesystem::path& file) override { openWithDesktop(file.string()); }
    void launchApplication(const std::string& /*bundlePath*/) override {}

private:
    void handle(const xcb_generic_event_t& event);
    std::vector<xcb_window_t> ownWindows();
    void bringWantedToFront();
    void bringNewWindowToFront(const std::vector<xcb_window_t>& shown);
    void bringToUser(xcb_window_t window);

    XConnection& connection_;
    ActiveWindows& activeWindows_;
    MainLoop& mainLoop_;
    WindowActivator activator_;
    X11KeyboardLoan keyboard_;
    /// Windows of ours that are known to have been shown.
    std::set<xcb_window_t> known_;
    /// The one that asked to come forward; kNoWindow when that is closed, or none did.
    xcb_window_t key_ = kNoWindow;
    /// While a window that is about to be shown is waited for, and until one that was there
    /// already is taken instead.
    Registration newWindowWish_;
    Registration knownWindowWish_;
    Lifetime lifetime_;
    Registration rootSelection_;
    Registration events_;
};

} // namespace panewright
