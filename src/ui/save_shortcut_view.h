#pragma once

#include "base/image.h"
#include "ui/popover_view.h"

#include <string>

namespace panewright {

/// What a popover shows for saving a window's frame.
class SaveShortcutView : public PopoverView {
public:
    /// Shown at 16 by 16 points; null shows none.
    virtual void setApplicationImage(const ImagePtr& image) = 0;
    virtual void setWindowStateImage(const ImagePtr& image) = 0;

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

    /// Why nothing can be saved, beside a button that then saves nothing; empty when it can.
    virtual void setSavingRefusal(const std::string& text) = 0;
};

} // namespace panewright
