#pragma once

#include "platform/crash_reporter.h"

namespace panewright {

/// Services of other platforms that a Linux desktop has no use for: nothing is reported to anybody,
/// and new versions come with the distribution's packages.

class NoCrashReporter : public CrashReporter {
public:
    void start() override {}
    void crash() override {}
};

} // namespace panewright
