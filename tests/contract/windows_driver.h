#pragma once

#include "base/geometry.h"
#include "desktop/shared/windows.h"
#include "platform/accessibility.h"
#include "platform/workspace.h"

#include <functional>
#include <memory>
#include <string>

namespace panewright {

/// A window that a test opens.
struct OpenedWindow {
    ProcessId pid = 0;
    /// What its program is known by.
    std::string program;
    Rect frame;
    /// Of the outer frame; equal ones for a window that cannot be resized.
    Size minimumSize{1, 1};
    Size maximumSize{30000, 30000};
};

/// A desktop as its user: opens windows and does to them what users do. Frames are outer ones.
class WindowsDriver {
public:
    virtual ~WindowsDriver() = default;

    virtual Accessibility& accessibility() = 0;
    virtual Workspace& workspace() = 0;
    /// The process that windows of our own program are of.
    virtual ProcessId ownPid() const = 0;

    virtual WindowId open(const OpenedWindow& window) = 0;
    virtual void close(WindowId window) = 0;
    virtual void activate(WindowId window) = 0;
    virtual void setFrame(WindowId window, const Rect& frame) = 0;

    /// Lets time pass until the condition holds; false if it never does.
    virtual bool eventually(const std::function<bool()>& condition) = 0;
};

std::unique_ptr<WindowsDriver> driveMemoryDesktop();
std::unique_ptr<WindowsDriver> driveX11();
/// A compositor that answers late.
std::unique_ptr<WindowsDriver> driveLateDesktop();

} // namespace panewright
