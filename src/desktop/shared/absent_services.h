#pragma once

#include "platform/crash_reporter.h"
#include "platform/software_updater.h"

namespace panewright {

/// Services of other platforms that a Linux desktop has no use for: nothing is reported to anybody,
/// and new versions come with the distribution's packages.

class NoCrashReporter : public CrashReporter {
public:
    void start() override {}
    void crash() override {}
};

class NoSoftwareUpdater : public SoftwareUpdater {
public:
    bool isAvailable() const override { return false; }
    void setWillShowHandler(std::function<void()> /*handler*/) override {}
    void checkForUpdates() override {}
    void checkForUpdatesInBackground() override {}
};

} // namespace panewright
