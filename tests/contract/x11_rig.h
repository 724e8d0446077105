#pragma once

#include "desktop/memory/memory_desktop.h"
#include "desktop/x11/x11_desktop.h"
#include "support/desktop.h"
#include "support/eventually.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace panewright {

/// The X11 adapter on a desktop of the test's own.
class X11Rig {
public:
    explicit X11Rig(const test::Screen& screen = {}, std::string_view windowManager = "openbox")
        : desktop(screen, windowManager) {
        setenv("DISPLAY", desktop.display().c_str(), 1);
        ports = X11Desktop::open(loop, "com.quillfen.Panewright");
    }

    /// Lets the main loop run until the condition holds; false if it never does. What asking found
    /// has then been told of too.
    template <class Condition>
    bool eventually(Condition condition) {
        const bool holds = test::eventually([&] {
            loop.runPending();
            loop.advance(std::chrono::milliseconds(1)); // a try takes about that long
            return condition();
        });
        loop.runPending();
        return holds;
    }

    test::Desktop desktop;
    MemoryMainLoop loop;
    std::unique_ptr<X11Desktop> ports;
};

/// What both desktops have.
struct DesktopPorts {
    template <class Desktop>
    explicit DesktopPorts(Desktop& desktop)
        : displays(desktop.displays), workAreas(desktop.workAreas),
          accessibility(desktop.accessibility), workspace(desktop.workspace),
          hotKeys(desktop.hotKeys), keyboardLayout(desktop.keyboardLayout) {}

    Displays& displays;
    WorkAreas& workAreas;
    Accessibility& accessibility;
    Workspace& workspace;
    HotKeys& hotKeys;
    KeyboardLayout& keyboardLayout;
};

/// A suite for the desktop in memory and for X11.
class DesktopContract : public testing::TestWithParam<const char*> {
protected:
    template <class Condition>
    bool eventually(Condition condition) {
        memory_.mainLoop.runPending();
        return x11_ ? x11_->eventually(condition) : condition();
    }

    MemoryDesktop memory_;
    // The server cannot tell that all windows are this process's: they say whose they are.
    std::optional<X11Rig> x11_ =
        GetParam() == std::string("X11")
            ? std::make_optional<X11Rig>(test::Screen{.arguments = {"-extension", "X-Resource"}})
            : std::nullopt;
    const DesktopPorts ports_ = x11_ ? DesktopPorts(*x11_->ports) : DesktopPorts(memory_);
};

} // namespace panewright
