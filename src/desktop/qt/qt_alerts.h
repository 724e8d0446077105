#pragma once

#include "desktop/shared/own_windows.h"
#include "platform/alerts.h"

namespace panewright {

/// Alerts as message boxes in the colours of the desktop's theme. No main loop runs inside another:
/// the box is one window among others.
class QtAlerts : public Alerts {
public:
    explicit QtAlerts(OwnWindows& ownWindows) : ownWindows_(ownWindows) {}

    Registration ask(const Alert& alert, Answered answered) override;

private:
    OwnWindows& ownWindows_;
};

} // namespace panewright
