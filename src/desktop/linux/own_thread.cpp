#include "desktop/linux/own_thread.h"

#include "desktop/linux/signal_stack.h"

#include <sys/resource.h>

namespace panewright {

void beginOwnThread(int niceValue) {
    setpriority(PRIO_PROCESS, 0, niceValue);
    useOwnSignalStack();
}

} // namespace panewright
