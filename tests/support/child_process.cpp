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

ChildProcess::ChildProcess(std::vector<std::string> arguments, const Environment& environment)
    // Files in memory: a program that says much never waits for a reader.
    : output_(memfd_create("output", MFD_CLOEXEC)), error_(memfd_create("error", MFD_CLOEXEC)) {
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
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
        clearenv();
        for (const auto& [name, value] : environment) {
            setenv(name.c_str(), value.c_str(), 1);
        }
        execvp(argv.front(), argv.data());
        _exit(127);
    }
}

ChildProcess::~ChildProcess() {
    if (!exitStatus()) {
        ::kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    close(output_);
    close(error_);
}

void ChildProcess::sendSignal(int signal) const {
    if (!exitStatus_) {
        ::kill(pid_, signal);
    }
}

void ChildProcess::kill() {
    sendSignal(SIGKILL);
    waitForEnd();
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

std::string ChildProcess::firstLine() {
    std::size_t end = std::string::npos;
    eventually([&] {
        end = standardOutput().find('\n');
        return end != std::string::npos || exitStatus();
    });
    if (end == std::string::npos) {
        throw std::runtime_error("a program does not start: " + standardError());
    }
    return standardOutput().substr(0, end);
}

bool ChildProcess::waitForErrorLine(std::string_view start) {
    const auto hasLine = [&] {
        return ("\n" + standardError()).find("\n" + std::string(start)) != std::string::npos;
    };
    eventually([&] { return hasLine() || exitStatus(); }, kSlowestStart);
    return hasLine();
}

std::string runToEnd(std::vector<std::string> arguments, const Environment& environment) {
    const std::string name = arguments.front();
    ChildProcess process(std::move(arguments), environment);
    if (process.waitForEnd() != 0) {
        throw std::runtime_error(name + " failed: " + process.standardError());
    }
    return process.standardOutput();
}

} // namespace panewright::test
