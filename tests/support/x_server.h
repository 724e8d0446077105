#pragma once

#include "support/child_process.h"

#include <string>
#include <vector>

namespace panewright::test {

/// A private X server without a screen, ready for clients when the constructor returns.
class XServer {
public:
    struct Options {
        int width = 1600;
        int height = 900;
        /// More arguments, such as {"-extension", "XKEYBOARD"}.
        std::vector<std::string> arguments;
    };

    XServer(const Options& options, const Environment& environment);

    /// What DISPLAY must be.
    const std::string& display() const { return display_; }

    /// Ends it as a crash would.
    void kill();

private:
    ChildProcess process_;
    std::string display_;
};

} // namespace panewright::test
