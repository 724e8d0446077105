#include "desktop/linux/termination_signals.h"

#include <signal.h> // NOLINT(modernize-deprecated-headers): <csignal> need not declare pthread_sigmask
#include <sys/signalfd.h>
#include <unistd.h>

#include <memory>
#include <utility>

namespace panewright {

Registration onTerminationSignal(MainLoop& mainLoop, std::function<void()> callback) {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&signals, number);
    }
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    const int descriptor = signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    auto watch = std::make_shared<Registration>(
        mainLoop.whenReadable(descriptor, [descriptor, callback = std::move(callback)] {
            signalfd_siginfo info{};
            while (read(descriptor, &info, sizeof info) == sizeof info) {
                callback();
            }
        }));
    return Registration([watch, descriptor] {
        watch->release();
        close(descriptor);
    });
}

} // namespace panewright
