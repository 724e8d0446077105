#pragma once

#include "support/test_client.h"

#include <map>
#include <memory>
#include <string>
#include <sys/types.h>

namespace panewright {

/// A program of another process with windows, as windows of the test's own would be ours. Goes,
/// with its windows, with this object.
class ForeignProgram {
public:
    struct WindowRequest {
        std::uint32_t width = 0;
        std::uint32_t height = 0;
        bool isFixed = false;
        /// Destroys this window instead of opening one.
        xcb_window_t destroyed = XCB_WINDOW_NONE;
    };

    ForeignProgram(const std::string& display, const std::string& windowClass);
    ~ForeignProgram();
    ForeignProgram(const ForeignProgram&) = delete;
    ForeignProgram& operator=(const ForeignProgram&) = delete;

    /// Sizes are the client's, without what the window manager puts around it.
    xcb_window_t open(std::uint32_t width, std::uint32_t height, bool isFixed) {
        return ask({width, height, isFixed});
    }
    pid_t pid() const { return pid_; }
    void destroy(xcb_window_t window) { ask({.destroyed = window}); }

private:
    using Windows = std::map<xcb_window_t, std::unique_ptr<test::TestClient>>;

    xcb_window_t ask(const WindowRequest& request) const;
    static xcb_window_t answer(Windows& windows, const std::string& display,
                               const std::string& windowClass, const WindowRequest& request);

    pid_t pid_ = -1;
    int requests_ = -1;
    int answers_ = -1;
};

} // namespace panewright
