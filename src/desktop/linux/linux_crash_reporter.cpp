#include "desktop/linux/linux_crash_reporter.h"

#include "base/file.h"
#include "base/log.h"
#include "desktop/linux/crash_facts.h"
#include "desktop/linux/crash_files.h"
#include "desktop/linux/crash_handler.h"
#include "installation/program_places.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h> // NOLINT(modernize-deprecated-headers): <csignal> need not declare sigemptyset
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <sstream>

namespace panewright {
namespace {

/// It lies beside this program.
std::filesystem::path namingProgram() {
    return ownExecutable().replace_filename("panewright-crash-report");
}

} // namespace

LinuxCrashReporter::~LinuxCrashReporter() {
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
    const bool isStarted = spawn(folder, ends[1]);
    close(ends[1]);
    if (!isStarted) {
        close(ends[0]);
        logLine(fmt::format("an earlier run crashed, but {} cannot be started to report it",
                            namingProgram().string()));
        return;
    }
    reports_ = ends[0];
    readable_ = mainLoop_.whenReadable(reports_, [this] { readReports(); });
}

/// With no environment: libdw would ask the servers that this may name.
bool LinuxCrashReporter::spawn(const std::filesystem::path& folder, int output) {
    std::string program = namingProgram();
    std::string argument = folder;
    const std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
    std::array<char*, 1> environment{nullptr};
    sigset_t signals;
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    const int error = posix_spawn(&child_, program.c_str(), &files, &attributes, arguments.data(),
                                  environment.data());
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    return error == 0;
}

/// The end comes with the child's, which limits its own time.
void LinuxCrashReporter::readReports() {
    std::array<char, 4096> piece{};
    const auto size = read(reports_, piece.data(), piece.size());
    if (size > 0) {
        text_.append(piece.data(), static_cast<std::size_t>(size));
    } else if (size == 0 || errno != EINTR) {
        readable_ = {};
        int status = 0;
        waitpid(child_, &status, 0);
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
