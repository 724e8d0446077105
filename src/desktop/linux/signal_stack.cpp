#include "desktop/linux/signal_stack.h"

#include <signal.h> // NOLINT(modernize-deprecated-headers): <csignal> need not declare sigaltstack
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>

namespace panewright {
namespace {

/// Far more than the handler's frames and the registers of any processor of today take.
constexpr std::size_t kSize = std::size_t{64} << 10;

class SignalStack {
public:
    SignalStack() {
        stack_t present{};
        if (sigaltstack(nullptr, &present) != 0 || (present.ss_flags & SS_DISABLE) == 0) {
            return; // a sanitizer's, or the toolkit's
        }
        // Pages of its own: a heap that was written over does not reach it. The page below stays
        // closed, so that one too small does no harm elsewhere.
        void* const memory = mmap(nullptr, guard_ + kSize, PROT_NONE,
                                  MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_STACK, -1, 0);
        if (memory == MAP_FAILED) {
            return;
        }
        memory_ = memory;
        stack_t own{};
        own.ss_sp = static_cast<std::byte*>(memory) + guard_;
        own.ss_size = kSize;
        if (mprotect(own.ss_sp, kSize, PROT_READ | PROT_WRITE) == 0) {
            sigaltstack(&own, nullptr);
        }
    }
    ~SignalStack() {
        if (memory_) {
            stack_t none{};
            none.ss_flags = SS_DISABLE;
            sigaltstack(&none, nullptr);
            munmap(memory_, guard_ + kSize);
        }
    }
    SignalStack(const SignalStack&) = delete;
    SignalStack& operator=(const SignalStack&) = delete;

private:
    std::size_t guard_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* memory_ = nullptr;
};

} // namespace

void useOwnSignalStack() {
    thread_local const SignalStack kStack;
    static_cast<void>(&kStack); // made where it is named first
}

} // namespace panewright
