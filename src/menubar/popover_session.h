#pragma once

#include "menubar/hot_key_installation.h"
#include "platform/program_information.h"
#include "platform/workspace.h"
#include "ui/popover_controller.h"

#include <functional>
#include <utility>

namespace panewright {

class Model;

/// How a popover of the status item comes and goes, and what is done then: the same for each, of
/// which there is one open at a time. Null stands for a popover that was never opened. Main thread
/// only.
class PopoverSession {
public:
    /// All of it must outlive the session.
    struct Services {
        Workspace& workspace;
        const ProgramInformation& program;
        Model& model;
        /// Asked at each opening.
        std::function<PopoverAnchor()> anchor;
        std::function<void(HotKeyOccasion)> updateHotKeys;
    };

    explicit PopoverSession(Services services) : services_(std::move(services)) {}

    static bool isShown(const Popover* popover) { return popover && popover->isShown(); }

    /// Lets the hot keys go, so that each can be recorded. To be called before the popover is
    /// filled.
    void prepare() const { services_.updateHotKeys(HotKeyOccasion::kPopoverOpened); }

    /// Shows the controller's popover at the anchor with the keyboard in its name field, also one
    /// that is open already.
    void bringForward(const PopoverController& controller) const;

    /// Saves the store, installs the hot keys again, closes the popover and gives the keyboard back
    /// to the program that the user was in.
    void finish(Popover* popover) const;

    /// Closes the popover and gives the keyboard back, nothing else: the hot keys come back with
    /// the application that becomes active.
    void abandon(Popover* popover) const;

    /// Cancels what the popover was opened for, without giving the keyboard away before the other
    /// one is there; nothing while it is closed.
    void cancelForAnother(const Popover* popover, const std::function<void()>& cancel);

private:
    void close(Popover* popover) const;

    Services services_;
    /// Whether the keyboard goes to another popover instead of back to its program.
    bool isForAnother_ = false;
};

} // namespace panewright
