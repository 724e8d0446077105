#include "crash_report/signal_text.h"

#include <fmt/format.h>
#include <signal.h> // NOLINT(modernize-deprecated-headers): <csignal> need not declare SEGV_MAPERR

#include <algorithm>
#include <array>
#include <cstring>

namespace panewright {
namespace {

struct Cause {
    int signal;
    int code;
    const char* text;
};

/// The codes of sigaction(2) that a program of ours can meet.
constexpr std::array kCauses{
    Cause{SIGSEGV, SEGV_MAPERR, "nothing is mapped there"},
    Cause{SIGSEGV, SEGV_ACCERR, "it may not be used so"},
    Cause{SIGSEGV, SI_KERNEL, "an address that cannot be"},
    Cause{SIGBUS, BUS_ADRALN, "wrong alignment"},
    Cause{SIGBUS, BUS_ADRERR, "nothing is behind the mapping there"},
    Cause{SIGFPE, FPE_INTDIV, "an integer divided by zero"},
    Cause{SIGFPE, FPE_INTOVF, "an integer overflow"},
    Cause{SIGILL, ILL_ILLOPN, "an instruction that cannot be"},
    Cause{SIGILL, ILL_ILLOPC, "an instruction that cannot be"},
    Cause{SIGTRAP, SI_KERNEL, "a breakpoint"},
};

std::string textOfCause(const CrashSignal& signal) {
    if (signal.code <= 0) {
        return signal.sender == signal.process ? "sent by the program itself"
                                               : fmt::format("sent by process {}", signal.sender);
    }
    const auto* const found = std::ranges::find_if(kCauses, [&](const Cause& cause) {
        return cause.signal == signal.signal && cause.code == signal.code;
    });
    return fmt::format("{}, address {:#x}",
                       found == kCauses.end() ? fmt::format("code {}", signal.code) : found->text,
                       signal.address);
}

} // namespace

std::string textOfSignal(const CrashSignal& signal) {
    const auto* const name = sigabbrev_np(signal.signal);
    return fmt::format("{} ({}), {}", name ? std::string("SIG") + name : "a signal", signal.signal,
                       textOfCause(signal));
}

} // namespace panewright
