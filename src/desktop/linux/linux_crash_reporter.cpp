#include "desktop/linux/linux_crash_reporter.h"

#include "base/file.h"
#include "base/log.h"
#include "base/retried.h"
#include "desktop/linux/crash_facts.h"
#include "desktop/linux/crash_files.h"
#include "desktop/linux/crash_handler.h"
#include "desktop/linux/spawned_program.h"
#include "installation/program_places.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <sstream>

namespace panewright {
namespace {

/// It lies beside this program.
std::filesystem::path namingProgram() {
    return ownExecutable().replace_filename("panewright-crash-report");
}

} // namespace

LinuxCrashReporter::~LinuxCrashReporter() {
    readable_.release();
    close(reports_); // the child goes on by itself
}

void LinuxCrashReporter::start() {
    if (!stateFolder_) {
        return;
    }
    const auto folder = *stateFolder_ / "crashes";
    if (const auto error = createFolders(folder)) {
        logLine("no crash is reported: " + error->message);
        return;
    }
    const auto program =
        fmt::format("Panewright {} ({})", program_.shortVersion(), program_.buildVersion());
    if (!keepFactsOfCrashes(folder, program)) {
        logLine("no crash is reported: the path is too long: " + folder.string());
    }
    if (!filesWithPrefix(folder, kRawCrashPrefix).empty()) {
        mainLoop_.post([this, folder] { nameEarlierCrashes(folder); });
    }
}

void LinuxCrashReporter::crash() {
    __builtin_trap();
}

void LinuxCrashReporter::nameEarlierCrashes(const std::filesystem::path& folder) {
    // Also where the program that takes them away is missing.
    keepLastFiles(folder, kRawCrashPrefix, kMostCrashFiles);
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    // libdw would ask the servers that a variable may name.
    child_ = spawnProgram({namingProgram(), folder},
                          {.withoutEnvironment = true, .standardOutput = ends[1]});
    close(ends[1]);
    if (!child_) {
        close(ends[0]);
        logLine(fmt::format("an earlier run crashed, but {} cannot be started to report it",
                            namingProgram().string()));
        return;
    }
    reports_ = ends[0];
    readable_ = mainLoop_.whenReadable(reports_, [this] { readReports(); });
}

/// The end comes with the child's, which limits its own time.
void LinuxCrashReporter::readReports() {
    std::array<char, 4096> piece{};
    const auto size = retried([&] { return read(reports_, piece.data(), piece.size()); });
    if (size > 0) {
        text_.append(piece.data(), static_cast<std::size_t>(size));
    } else {
        readable_.release();
        int status = 0;
        retried([&] { return waitpid(*child_, &status, 0); });
        tellOfReports(status);
    }
}

/// Each line is the path of one.
void LinuxCrashReporter::tellOfReports(int status) {
    std::istringstream lines(text_);
    for (std::string report; std::getline(lines, report);) {
        logLine("an earlier run crashed: the report is " + report);
    }
    if (status != 0) {
        logLine("an earlier run crashed, but not all of it could be reported");
    }
}

} // namespace panewright
