#pragma once

#include "base/registration.h"
#include "platform/crash_reporter.h"
#include "platform/main_loop.h"
#include "platform/program_information.h"

#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

namespace panewright {

/// Leaves a readable report of each crash in a folder of the user's own, at most ten of them.
/// Nothing is sent anywhere. A crash leaves raw facts, and the next start has a program of its own
/// name them, at low priority, which nothing waits for.
class LinuxCrashReporter : public CrashReporter {
public:
    /// The reports go to "crashes" in the folder, which may be missing; without one there are none.
    LinuxCrashReporter(std::optional<std::filesystem::path> stateFolder,
                       const ProgramInformation& program, MainLoop& mainLoop)
        : stateFolder_(std::move(stateFolder)), program_(program), mainLoop_(mainLoop) {}
    ~LinuxCrashReporter() override;
    LinuxCrashReporter(const LinuxCrashReporter&) = delete;
    LinuxCrashReporter& operator=(const LinuxCrashReporter&) = delete;

    void start() override;
    void crash() override;

private:
    void nameEarlierCrashes(const std::filesystem::path& folder);
    void readReports();
    void tellOfReports(int status);

    std::optional<std::filesystem::path> stateFolder_;
    const ProgramInformation& program_;
    MainLoop& mainLoop_;
    std::optional<pid_t> child_;
    int reports_ = -1; // where the child tells of them
    std::string text_;
    Registration readable_;
};

} // namespace panewright
