#pragma once

#include "base/geometry.h"
#include "desktop/shared/windows.h"
#include "platform/accessibility.h"
#include "platform/displays.h"
#include "platform/hot_keys.h"
#include "platform/work_areas.h"
#include "platform/workspace.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

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

/// What every desktop answers with.
struct DesktopPorts {
    Accessibility& accessibility;
    Displays& displays;
    HotKeys& hotKeys;
    WorkAreas& workAreas;
    Workspace& workspace;
};

/// A desktop as its user: opens windows, presses keys and plugs displays as users do. Frames are
/// outer ones. A key is its virtual key code, pressed with Option.
class DesktopDriver {
public:
    virtual ~DesktopDriver() = default;

    virtual DesktopPorts ports() = 0;
    /// The process that windows of our own program are of.
    virtual ProcessId ownPid() const = 0;

    virtual WindowId open(const OpenedWindow& window) = 0;
    virtual void close(WindowId window) = 0;
    virtual void activate(WindowId window) = 0;
    virtual void setFrame(WindowId window, const Rect& frame) = 0;

    /// The first one is the main display.
    virtual void setDisplays(const std::vector<Rect>& bounds) = 0;

    virtual void tap(std::uint32_t keyCode) = 0;
    virtual void takeByAnotherProgram(std::uint32_t keyCode) = 0;
    virtual void letGoByAnotherProgram(std::uint32_t keyCode) = 0;

    /// Lets time pass until the condition holds; false if it never does.
    virtual bool eventually(const std::function<bool()>& condition) = 0;
};

/// A desktop that suites run on.
struct NamedDesktop {
    const char* name;
    std::unique_ptr<DesktopDriver> (*drive)();
};

std::unique_ptr<DesktopDriver> driveMemoryDesktop();
std::unique_ptr<DesktopDriver> driveX11();
std::unique_ptr<DesktopDriver> driveLateDesktop();

constexpr NamedDesktop kMemory{"memory", driveMemoryDesktop};
constexpr NamedDesktop kX11{"X11", driveX11};
/// A compositor that answers late where its windows are.
constexpr NamedDesktop kLate{"late", driveLateDesktop};

/// A suite for several desktops.
class DesktopContract : public testing::TestWithParam<NamedDesktop> {
public:
    static std::string nameOf(const testing::TestParamInfo<NamedDesktop>& desktop) {
        return desktop.param.name;
    }

protected:
    std::unique_ptr<DesktopDriver> driver_ = GetParam().drive();
    const DesktopPorts ports_ = driver_->ports();
};

} // namespace panewright
