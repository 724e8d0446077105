#pragma once

#include "desktop/shared/own_windows.h"
#include "platform/alerts.h"

namespace panewright {

/// Alerts as message boxes in the colours of the desktop's theme. No main loop runs inside another:
/// the box is one window among others. Only a modal one runs the main loop while it is open.
class QtAlerts : public Alerts {
public:
    explicit QtAlerts(OwnWindows& ownWindows) : ownWindows_(ownWindows) {}

    Registration ask(const Alert& alert, Answered answered) override;
    std::optional<AlertAnswer> runModal(const Alert& alert) override;

private:
    Registration show(const Alert& alert, std::function<void(const AlertAnswer&)> answered);

    OwnWindows& ownWindows_;
};

} // namespace panewright
