#pragma once

namespace panewright {

/// The crash-reporting service. An adapter may do nothing. Main thread only.
class CrashReporter {
public:
    virtual ~CrashReporter() = default;

    /// Once, at the start of the program.
    virtual void start() = 0;

    /// Ends the program as a crash would, to see a report of it; nothing where there is no service.
    virtual void crash() = 0;
};

} // namespace panewright
