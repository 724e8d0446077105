#pragma once

namespace panewright {

/// The crash-reporting service. An adapter may have none. Main thread only.
class CrashReporter {
public:
    virtual ~CrashReporter() = default;

    /// Once, at the start of the program.
    virtual void start() = 0;
};

} // namespace panewright
