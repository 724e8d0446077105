#include "menubar/popover_session.h"

#include "model/model.h"
#include "services/workspace_additions.h"

namespace panewright {

void PopoverSession::bringForward(const PopoverController& controller) const {
    auto& popover = *controller.popover();
    popover.show(services_.anchor());
    bringApplicationToFrontIfInBackground(services_.workspace, services_.program);
    popover.makeKeyAndOrderFront();
    controller.focusWindowStateName();
}

void PopoverSession::finish(Popover* popover) const {
    services_.model.save();
    services_.updateHotKeys(HotKeyOccasion::kPopoverFinished);
    close(popover);
}

void PopoverSession::abandon(Popover* popover) const {
    services_.updateHotKeys(HotKeyOccasion::kPopoverAbandoned);
    close(popover);
}

void PopoverSession::close(Popover* popover) const {
    if (popover) {
        popover->close();
    }
    if (!isForAnother_) {
        services_.workspace.hideThisApplication();
    }
}

void PopoverSession::cancelForAnother(const Popover* popover, const std::function<void()>& cancel) {
    if (isShown(popover)) {
        isForAnother_ = true;
        cancel();
        isForAnother_ = false;
    }
}

} // namespace panewright
