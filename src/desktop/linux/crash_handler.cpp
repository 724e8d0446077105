#include "desktop/linux/crash_handler.h"

#include "base/log.h"
#include "desktop/linux/mapped_files.h"
#include "desktop/linux/raw_crash_file.h"
#include "desktop/linux/signal_stack.h"

#include <cxxabi.h>
#include <fmt/format.h>
#include <signal.h> // NOLINT(modernize-deprecated-headers): <csignal> need not declare sigaction
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <string>
#include <typeinfo>

namespace panewright {
namespace {

// The handler does nothing but system calls on memory that was there before (signal-safety(7)): the
// heap may be broken, a lock held, the stack full. So it does not walk the stack either: that
// reads tables of the loader and may fault itself. It copies the stack, and the next start walks
// the copy. It starts no process: a copy of this one would keep the X connection, and with that the
// keyboard.

constexpr std::array kSignals{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGSYS};

/// What is copied of the stack: thousands of calls, mostly. The oldest are missing where more are
/// nested.
constexpr std::size_t kStackSize = std::size_t{256} << 10;

/// A handler that waits for a disk that hangs must not keep the keyboard, in seconds.
constexpr unsigned kTimeLimit = 5;

constexpr std::size_t kLongestText = 1024;

/// All of it is made before a crash, and never freed.
struct Kept {
    RawCrashFile file;
    pid_t process = 0;
    std::array<char, 128> program{};
    std::array<char, kLongestText> exception{};
    std::terminate_handler terminate = nullptr;
    std::atomic_flag isTaken;
};
constinit Kept kept;

void setText(char* target, std::size_t size, std::string_view text) {
    target[text.copy(target, size - 1)] = '\0';
}

#ifdef __x86_64__
void setRegisters(CrashSignal& facts, const ucontext_t& context) {
    constexpr std::array<int, kCrashRegisters> kByDwarfNumber{
        REG_RAX, REG_RDX, REG_RCX, REG_RBX, REG_RSI, REG_RDI, REG_RBP, REG_RSP, REG_R8,
        REG_R9,  REG_R10, REG_R11, REG_R12, REG_R13, REG_R14, REG_R15, REG_RIP};
    std::ranges::transform(kByDwarfNumber, facts.registers.begin(), [&](int number) {
        return static_cast<std::uint64_t>(context.uc_mcontext.gregs[number]);
    });
    facts.hasRegisters = 1;
}
#else
/// Without them a report has no stack.
void setRegisters(CrashSignal& /*facts*/, const ucontext_t& /*context*/) {}
#endif

CrashSignal factsOf(const siginfo_t& info, const ucontext_t& context) {
    CrashSignal facts{};
    facts.signal = info.si_signo;
    facts.code = info.si_code;
    if (info.si_code <= 0) {
        facts.sender = info.si_pid;
    } else {
        facts.address = reinterpret_cast<std::uint64_t>(info.si_addr);
    }
    facts.process = kept.process;
    facts.thread = gettid();
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    facts.time = now.tv_sec;
    prctl(PR_GET_NAME, facts.threadName.data());
    setRegisters(facts, context);
    return facts;
}

/// Where a stack is full, its pointer stands below what can be read.
void addStack(RawCrashFile& file, CrashAddress address) {
    constexpr CrashAddress kPage = 4096;
    const auto end = address + kStackSize;
    while (address < end && !file.addMemory(CrashRecord::kStack, address, end - address)) {
        address = (address / kPage + 1) * kPage;
    }
}

/// What matters most comes first: the disk may be full.
void writeFacts(const siginfo_t& info, const ucontext_t& context) {
    auto& file = kept.file;
    if (!file.begin()) {
        return;
    }
    const auto facts = factsOf(info, context);
    file.add(CrashRecord::kSignal, &facts, sizeof facts);
    file.add(CrashRecord::kProgram, kept.program.data());
    if (kept.exception.front() != '\0') {
        file.add(CrashRecord::kException, kept.exception.data());
    }
    for (std::size_t age = kKeptLogLines; age-- > 0;) {
        if (const auto line = keptLogLine(age); !line.empty()) {
            file.add(CrashRecord::kLogLine, line);
        }
    }
    if (facts.hasRegisters != 0) {
        addStack(file, facts.registers[kStackPointer]);
    }
    addMappedFiles(file);
    file.add(CrashRecord::kEnd, {});
}

void limitTime() {
    signal(SIGALRM, SIG_DFL);
    sigset_t limit;
    sigemptyset(&limit);
    sigaddset(&limit, SIGALRM);
    sigprocmask(SIG_UNBLOCK, &limit, nullptr);
    alarm(kTimeLimit);
}

/// The signals of kSignals are blocked meanwhile: a fault in here ends the process by itself.
void handle(int number, siginfo_t* info, void* context) {
    if (getpid() == kept.process) { // not what a library has forked
        if (kept.isTaken.test_and_set()) {
            for (;;) {
                pause(); // another thread tells of its crash, and ends the process
            }
        }
        limitTime();
        writeFacts(*info, *static_cast<const ucontext_t*>(context));
        alarm(0);
    }
    signal(number, SIG_DFL);
    // It waits until this function has returned: a core file shows the program where it crashed.
    // Not raise(), which would hide the address from it.
    syscall(SYS_rt_tgsigqueueinfo, getpid(), gettid(), number, info);
}

/// Notes which exception it is, and goes on to where such exceptions went before, which says so on
/// standard error and aborts.
[[noreturn]] void terminate() {
    if (const auto* const type = abi::__cxa_current_exception_type();
        type && kept.exception.front() == '\0') {
        setText(kept.exception.data(), kept.exception.size(), type->name());
        try {
            throw;
        } catch (const std::exception& exception) {
            *fmt::format_to_n(kept.exception.data(), kept.exception.size() - 1, "{}\n{}",
                              type->name(), exception.what())
                 .out = '\0';
        } catch (...) { // it says nothing
        }
    }
    kept.terminate();
    std::abort();
}

std::string nameForNow(const std::filesystem::path& folder) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    constexpr int kMilliseconds = 1'000'000;
    return folder / fmt::format("{}{:012}{:03}-{}", kRawCrashPrefix, now.tv_sec,
                                now.tv_nsec / kMilliseconds, kept.process);
}

} // namespace

bool keepFactsOfCrashes(const std::filesystem::path& folder, std::string_view program) {
    kept.process = getpid();
    if (!kept.file.prepare(nameForNow(folder))) {
        return false;
    }
    setText(kept.program.data(), kept.program.size(), program);
    useOwnSignalStack();
    kept.terminate = std::set_terminate(terminate);
    struct sigaction action {};
    action.sa_sigaction = handle;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    for (const int number : kSignals) {
        sigaddset(&action.sa_mask, number);
    }
    for (const int number : kSignals) {
        sigaction(number, &action, nullptr);
    }
    return true;
}

} // namespace panewright
