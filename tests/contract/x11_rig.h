#pragma once

#include "desktop/linux/x11_desktop.h"
#include "desktop/memory/memory_desktop.h"
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

    /// Lets the main loop run until the condition holds; false if it never does.
    template <class Condition>
    bool eventually(Condition condition) {
        return test::eventually([&] {
            loop.runPending();
            loop.advance(std::chrono::milliseconds(1)); // a try takes about that long
            return condition();
        });
    }

    test::Desktop desktop;
    MemoryMainLoop loop;
    std::unique_ptr<X11Desktop> ports;
};

/// A suite for the desktop in memory and for X11.
class DesktopContract : public testing::TestWithParam<const char*> {
protected:
    DesktopContract() {
        if (GetParam() == std::string("X11")) {
            // The server cannot tell that all windows are this process's: they say whose they are.
            x11_.emplace(test::Screen{.arguments = {"-extension", "X-Resource"}});
        }
    }

    template <class Condition>
    bool eventually(Condition condition) {
        memory_.mainLoop.runPending();
        return x11_ ? x11_->eventually(condition) : condition();
    }

    MemoryDesktop memory_;
    std::optional<X11Rig> x11_;
};

} // namespace panewright
