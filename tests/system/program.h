#pragma once

#include "support/desktop.h"

#include <stdexcept>

namespace panewright::test {

/// The built program, ready for key presses when the constructor returns.
class Program {
public:
    explicit Program(const Desktop& desktop) : Program(desktop.environment()) {}

    explicit Program(const Environment& environment) : process_({PANEWRIGHT_PROGRAM}, environment) {
        if (!process_.waitForErrorLine("panewright: ready")) {
            throw std::runtime_error("the program is not ready: " + process_.standardError());
        }
    }

    ChildProcess* operator->() { return &process_; }

private:
    ChildProcess process_;
};

} // namespace panewright::test
