#include "menubar/popover_presenter.h"

#include "services/workspace_additions.h"

namespace panewright {

void PopoverPresenter::bringForward(Popover& popover) const {
    popover.show(anchor_());
    bringApplicationToFrontIfInBackground(workspace_, program_);
    popover.makeKeyAndOrderFront();
}

void PopoverPresenter::close(Popover* popover, KeyboardGoes where) const {
    if (popover) {
        popover->close();
    }
    if (where == KeyboardGoes::kBackToItsProgram) {
        workspace_.hideThisApplication();
    }
}

} // namespace panewright
