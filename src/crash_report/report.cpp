#include "crash_report/report.h"

#include "crash_report/named_stack.h"
#include "crash_report/signal_text.h"

#include <cxxabi.h>
#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <map>
#include <memory>
#include <string>

namespace panewright {
namespace {

/// Names of templates can be endless.
constexpr std::size_t kLongestText = 2000;

constexpr std::array<const char*, kCrashRegisters> kRegisterNames{
    "rax", "rdx", "rcx", "rbx", "rsi", "rdi", "rbp", "rsp", "r8",
    "r9",  "r10", "r11", "r12", "r13", "r14", "r15", "rip"};

/// On one line, with nothing that a terminal would obey: texts may come from other programs.
std::string plain(std::string_view text) {
    std::string shown(text.substr(0, kLongestText));
    std::ranges::replace_if(
        shown, [](unsigned char byte) { return byte < ' ' || byte == 0x7f; }, ' ');
    return shown;
}

template <class... Values>
void print(std::FILE* file, fmt::format_string<Values...> format, Values&&... values) {
    fmt::print(file, format, std::forward<Values>(values)...);
}

std::string textOfTime(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm parts{};
    return gmtime_r(&time, &parts) ? fmt::format("{:%Y-%m-%d %H:%M:%S} UTC", parts) : "unknown";
}

/// "TYPE: what it says".
std::string textOfException(const std::string& exception) {
    const auto end = exception.find('\n');
    const auto type = exception.substr(0, end);
    const std::unique_ptr<char, decltype(&std::free)> readable(
        abi::__cxa_demangle(type.c_str(), nullptr, nullptr, nullptr), std::free);
    const std::string name = readable ? readable.get() : type;
    return end == std::string::npos ? name : name + ": " + exception.substr(end + 1);
}

void writeFacts(std::FILE* file, const RawFacts& facts) {
    const auto& signal = facts.signal;
    const std::string_view thread(signal.threadName.data(),
                                  strnlen(signal.threadName.data(), signal.threadName.size()));
    print(file, "{} crashed.\n\n", facts.program.empty() ? "Panewright" : plain(facts.program));
    print(file, "Time       {}\n", textOfTime(signal.time));
    print(file, "Signal     {}\n", textOfSignal(signal));
    if (!facts.exception.empty()) {
        print(file, "Exception  {}\n", plain(textOfException(facts.exception)));
    }
    print(file, "Process    {}, thread {} \"{}\"\n", signal.process, signal.thread, plain(thread));
    if (!facts.isWhole) {
        print(file, "What the crash left breaks off, so something is missing here.\n");
    }
    print(file, "\nLast log lines\n");
    for (const auto& line : facts.logLines) {
        print(file, "  {}\n", plain(line));
    }
    if (signal.hasRegisters != 0) {
        print(file, "\nRegisters\n");
        for (std::size_t i = 0; i < kCrashRegisters; ++i) {
            print(file, "{}{:>5} {:016x}", i % 4 == 0 && i > 0 ? "\n" : "", kRegisterNames[i],
                  signal.registers[i]);
        }
        print(file, "\n");
    }
}

} // namespace

void writeSummary(std::FILE* file, const std::optional<RawFacts>& facts) {
    if (facts) {
        writeFacts(file, *facts);
    } else {
        print(file, "Panewright crashed, but what the crash left cannot be read.\n");
    }
}

void writeStack(std::FILE* file, const RawFacts& facts) {
    print(file, "\nStack\n");
    std::fflush(file);
    std::map<std::string, std::string> buildIds;
    int number = 0;
    const bool isAll = forEachFrame(facts, [&](const StackFrame& frame) {
        const auto function = frame.function.empty() ? "?" : plain(frame.function);
        print(file, "{:3}  {}\n", number++, function);
        if (!frame.source.empty()) {
            print(file, "     at {}\n", plain(frame.source));
        }
        if (frame.module.empty()) {
            print(file, "     {:#x}, where no program is\n", frame.address);
        } else {
            print(file, "     {} +{:#x}\n", plain(frame.module), frame.offset);
            buildIds.emplace(frame.module, frame.buildId);
        }
        std::fflush(file);
    });
    if (!isAll) {
        print(file, "     and more calls around these\n");
    }
    print(file, "\nBuild ids\n");
    for (const auto& [module, id] : buildIds) {
        print(file, "  {} {}\n", id.empty() ? "unknown" : id, plain(module));
    }
}

} // namespace panewright
