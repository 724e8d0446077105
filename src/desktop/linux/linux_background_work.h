#pragma once

#include "desktop/linux/own_thread.h"
#include "platform/background_work.h"

namespace panewright {

class LinuxBackgroundWork : public BackgroundWork {
public:
    void beginThread() const override {
        constexpr int kLowestPriority = 19;
        beginOwnThread(kLowestPriority);
    }
};

} // namespace panewright
