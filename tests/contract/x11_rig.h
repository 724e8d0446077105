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
        ports =
            std::make_unique<X11Desktop>(*ReachedServer::reach(), loop, "com.quillfen.Panewright");
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

} // namespace panewright
