#pragma once

#include "desktop/linux/signal_stack.h"
#include "platform/background_work.h"

#include <sys/resource.h>

namespace panewright {

/// On Linux each thread has a nice value of its own (setpriority(2), "C library/kernel
/// differences").
class LinuxBackgroundWork : public BackgroundWork {
public:
    void beginThread() const override {
        constexpr int kLowest = 19;
        setpriority(PRIO_PROCESS, 0, kLowest);
        useOwnSignalStack();
    }
};

} // namespace panewright
