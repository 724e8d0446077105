#include "command/time_limit.h"

#include "command/status.h"

#include <csignal>
#include <string_view>
#include <unistd.h>

namespace panewright::command {
namespace {

constexpr unsigned kSeconds = 5;
constexpr std::string_view kMessage =
    "panewright: no answer within 5 seconds; Panewright or the session bus hangs\n";

/// A signal's handler may call little more than these (signal-safety(7)).
void endProcess(int /*signal*/) {
    [[maybe_unused]] const auto written = write(STDERR_FILENO, kMessage.data(), kMessage.size());
    _exit(kStatusNotRunning);
}

} // namespace

TimeLimit::TimeLimit() {
    struct sigaction action = {};
    action.sa_handler = endProcess;
    sigaction(SIGALRM, &action, nullptr);
    // Who started us may have blocked it.
    sigset_t alarmOnly;
    sigemptyset(&alarmOnly);
    sigaddset(&alarmOnly, SIGALRM);
    sigprocmask(SIG_UNBLOCK, &alarmOnly, nullptr);
    alarm(kSeconds);
}

TimeLimit::~TimeLimit() {
    alarm(0);
}

} // namespace panewright::command
