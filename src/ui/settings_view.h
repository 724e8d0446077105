#pragma once

#include <string>

namespace panewright {

/// The settings window. It passes what the user does on to its controller and decides nothing.
/// Texts are UTF-8 and in the user's language.
class SettingsView {
public:
    virtual ~SettingsView() = default;

    virtual void showWindow() = 0;
    virtual void makeKeyAndOrderFront() = 0;

    virtual bool startupItem() const = 0;
    virtual void setStartupItem(bool on) = 0;
    virtual bool allowMoveWindow() const = 0;
    virtual void setAllowMoveWindow(bool on) = 0;
    virtual void setVersion(const std::string& text) = 0;
    /// Whether the window leads to the product's website and its page for feedback.
    virtual void setWebsiteShown(bool isShown) = 0;
    /// The line that leads to what went wrong with the store; empty when nothing did.
    virtual void setStoreTrouble(const std::string& line) = 0;
    /// What is to be said of the shortcut that the recorder shows, in lines; empty for nothing.
    virtual void setShortcutRemark(const std::string& text) = 0;
    /// Whether the window leads to the menu, and to saving the current window, which otherwise the
    /// icon does.
    virtual void setMenuOffered(bool isOffered) = 0;
};

} // namespace panewright
