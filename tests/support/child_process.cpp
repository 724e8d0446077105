#include "support/child_process.h"

#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace panewright::test {
namespace {

std::vector<char*> pointersTo(std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    pointers.reserve(strings.size() + 1);
    for (std::string& string : strings) {
        pointers.push_back(string.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

ChildProcess::ChildProcess(std::vector<std::string> arguments, const Environment& environment)
    // Files in memory: a program that says much never waits for a reader.
    : output_(memfd_create("output", MFD_CLOEXEC)), error_(memfd_create("error", MFD_CLOEXEC)) {
    std::vector<std::string> assignments;
    assignments.reserve(environment.size());
    for (const auto& [name, value] : environment) {
        assignments.push_back(std::string(name).append("=").append(value));
    }
    const std::vector<char*> argv = pointersTo(arguments);
    const std::vector<char*> envp = pointersTo(assignments);
    const pid_t parent = getpid();
    pid_ = fork();
    if (pid_ < 0) {
        throw std::runtime_error("cannot fork for " + arguments.front());
    }
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) {
            _exit(127);
        }
        dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
        dup2(output_, STDOUT_FILENO);
        dup2(error_, STDERR_FILENO);
        execvpe(argv.front(), argv.data(), envp.data());
        _exit(127);
    }
}

ChildProcess::~ChildProcess() {
    if (!exitStatus()) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    close(output_);
    close(error_);
}

void ChildProcess::sendSignal(int signal) const {
    if (!exitStatus_) {
        kill(pid_, signal);
    }
}

std::optional<int> ChildProcess::exitStatus() {
    int status = 0;
    if (!exitStatus_ && waitpid(pid_, &status, WNOHANG) == pid_) {
        exitStatus_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    return exitStatus_;
}

std::optional<int> ChildProcess::waitForEnd(std::chrono::milliseconds timeout) {
    eventually([this] { return exitStatus().has_value(); }, timeout);
    return exitStatus_;
}

std::string ChildProcess::content(int file) {
    std::string text(static_cast<std::size_t>(lseek(file, 0, SEEK_END)), '\0');
    const ssize_t count = pread(file, text.data(), text.size(), 0);
    text.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
    return text;
}

bool ChildProcess::waitForErrorLine(std::string_view start) {
    const std::string wanted = "\n" + std::string(start);
    const auto hasLine = [&] {
        const std::string text = "\n" + standardError();
        const std::size_t found = text.find(wanted);
        return found != std::string::npos && text.find('\n', found + 1) != std::string::npos;
    };
    eventually([&] { return hasLine() || exitStatus().has_value(); });
    return hasLine();
}

void runToEnd(std::vector<std::string> arguments, const Environment& environment) {
    const std::string name = arguments.front();
    ChildProcess process(std::move(arguments), environment);
    if (process.waitForEnd() != 0) {
        throw std::runtime_error(name + " failed: " + process.standardError());
    }
}

} // namespace panewright::test
