#include "desktop/linux/termination_signals.h"

#include <signal.h> // NOLINT(modernize-deprecated-headers): <csignal> need not declare pthread_sigmask
#include <sys/signalfd.h>
#include <unistd.h>

#include <utility>

namespace panewright {

TerminationSignals::TerminationSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction inherited {};
        sigaction(number, nullptr, &inherited);
        if (inherited.sa_handler != SIG_IGN) {
            sigaddset(&signals, number);
        }
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    descriptor_ = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

TerminationSignals::~TerminationSignals() {
    close(descriptor_);
}

Registration TerminationSignals::onSignal(MainLoop& mainLoop,
                                          std::function<void()> callback) const {
    return mainLoop.whenReadable(descriptor_,
                                 [descriptor = descriptor_, callback = std::move(callback)] {
                                     signalfd_siginfo info{};
                                     while (read(descriptor, &info, sizeof info) == sizeof info) {
                                         callback();
                                     }
                                 });
}

} // namespace panewright
