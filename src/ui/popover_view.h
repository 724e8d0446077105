#pragma once

#include "ui/popover.h"

#include <string>

namespace panewright {

/// What every popover shows in which a state gets its name and its shortcut. It passes what the
/// user does on to its controller and decides nothing. Texts are UTF-8 and in the user's language.
class PopoverView {
public:
    virtual ~PopoverView() = default;

    /// The window that the view stands in.
    virtual Popover& popover() = 0;

    virtual std::string windowStateName() const = 0;
    virtual void setWindowStateName(const std::string& name) = 0;
    /// Gives the name field the keyboard, unless it has it.
    virtual void focusWindowStateName() = 0;

    /// What is to be said of the shortcut that the recorder shows, in lines; empty for nothing.
    virtual void setShortcutRemark(const std::string& text) = 0;
};

} // namespace panewright
