#pragma once

#include <array>
#include <cstdint>

namespace panewright {

/// What a crash leaves for the next start: a file of records, each a CrashRecordHead and as many
/// bytes as that says. Numbers are those of this machine, which also reads it. A file may end
/// anywhere, as whatever wrote it was in a bad state.
enum class CrashRecord : std::uint32_t {
    kSignal = 0x50574301, // CrashSignal, the first record
    kProgram,             // text: name and version of the program
    kException,           // text: mangled name of the type, a line feed, what it says
    kLogLine,             // text: one of the last lines, the older ones first
    kStack,               // an address, and the bytes that stand from there upwards
    kMaps,                // text: the next piece of /proc/self/maps (proc(5))
    kModule,              // an address, and how the mapped file begins that stands there
    kEnd,                 // nothing: all has been written
};

struct CrashRecordHead {
    CrashRecord kind;
    std::uint32_t size;
};

/// What kStack and kModule begin with.
using CrashAddress = std::uint64_t;

/// The registers by the numbers that DWARF gives them (System V ABI, AMD64 supplement,
/// figure 3.36): the stack pointer is 7, and the last one is where the program stood.
inline constexpr std::size_t kCrashRegisters = 17;
inline constexpr std::size_t kStackPointer = 7;
inline constexpr std::size_t kProgramCounter = 16;

struct CrashSignal {
    std::int32_t signal;
    std::int32_t code;     // as siginfo_t has it (sigaction(2))
    std::uint64_t address; // of the fault; of SIGILL and SIGFPE, of the instruction
    std::int32_t sender;   // the process that sent it, where the code says that one did
    std::int32_t process;
    std::int32_t thread;
    std::int32_t hasRegisters; // not 0: the registers below are known
    std::int64_t time;         // in seconds since 1970
    std::array<char, 16> threadName;
    std::array<std::uint64_t, kCrashRegisters> registers;
};

/// What the files' names begin with: of these files, and of the reports that are made of them. The
/// rest sorts by time.
inline constexpr const char* kRawCrashPrefix = "raw-";
inline constexpr const char* kCrashReportPrefix = "crash-";
inline constexpr std::size_t kMostCrashFiles = 10;

} // namespace panewright
