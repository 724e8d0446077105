#pragma once

#include "ui/popover_view.h"

#include <string>

namespace panewright {

/// What a popover shows for editing a state that is stored.
class EditShortcutView : public PopoverView {
public:
    /// Where the state applies.
    virtual void setContext(const std::string& text) = 0;

    /// The check box that has the frame replaced. Nobody but the user changes it.
    virtual bool updateWindowState() const = 0;
    /// Off for a state whose saved frame is never used.
    virtual void setUpdateWindowStateEnabled(bool enabled) = 0;
};

} // namespace panewright
