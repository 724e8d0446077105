#pragma once

#include "platform/program_information.h"
#include "platform/workspace.h"
#include "ui/popover.h"

#include <functional>
#include <utility>

namespace panewright {

/// Who gets the keyboard when a popover closes.
enum class KeyboardGoes { kBackToItsProgram, kToTheNextPopover };

/// How a popover of the status item comes and goes: the same for each. Main thread only.
class PopoverPresenter {
public:
    /// Both ports must outlive it. `anchor` is asked at each opening.
    PopoverPresenter(Workspace& workspace, const ProgramInformation& program,
                     std::function<PopoverAnchor()> anchor)
        : workspace_(workspace), program_(program), anchor_(std::move(anchor)) {}

    /// Shows it at the anchor with the keyboard in it, also one that is open already.
    void bringForward(Popover& popover) const;

    /// Closes it (null: nothing). The keyboard goes back to the program that had it, unless another
    /// popover opens in its place.
    void close(Popover* popover, KeyboardGoes where) const;

private:
    Workspace& workspace_;
    const ProgramInformation& program_;
    std::function<PopoverAnchor()> anchor_;
};

} // namespace panewright
