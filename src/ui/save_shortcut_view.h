#pragma once

#include "base/image.h"
#include "ui/popover.h"

#include <string>

namespace panewright {

/// What a popover shows for saving a window's frame. It passes what the user does on to its
/// controller and decides nothing. Texts are UTF-8 and in the user's language.
class SaveShortcutView {
public:
    virtual ~SaveShortcutView() = default;

    /// The window that the view stands in.
    virtual Popover& popover() = 0;

    /// Shown at 16 by 16 points; null shows none.
    virtual void setApplicationImage(const ImagePtr& image) = 0;
    virtual void setWindowStateImage(const ImagePtr& image) = 0;

    virtual std::string windowStateName() const = 0;
    virtual void setWindowStateName(const std::string& name) = 0;
    /// Gives the name field the keyboard, unless it has it.
    virtual void focusWindowStateName() = 0;

    // The two radio buttons, which may both be off for the time of a call.
    virtual bool forAppOnly() const = 0;
    virtual void setForAppOnly(bool on) = 0;
    virtual void setForAppOnlyEnabled(bool enabled) = 0;
    virtual void setForAppOnlyTitle(const std::string& title) = 0;
    virtual void setForAppOnlyToolTip(const std::string& text) = 0;
    virtual bool forAllApplications() const = 0;
    virtual void setForAllApplications(bool on) = 0;
    virtual void setForAllApplicationsToolTip(const std::string& text) = 0;

    virtual bool prefersDisplay() const = 0;
    virtual void setPrefersDisplay(bool on) = 0;

    /// What is to be said of the shortcut that the recorder shows; empty for nothing.
    virtual void setShortcutRemark(const std::string& text) = 0;
};

} // namespace panewright
