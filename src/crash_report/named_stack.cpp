#include "crash_report/named_stack.h"

#include "crash_report/build_id.h"

#include <cxxabi.h>
#include <elfutils/libdwfl.h>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace panewright {
namespace {

/// A stack that is full holds ten thousands.
constexpr int kMostFrames = 100;

/// The one that is being named: libdwfl has no place for it where it looks for files.
const RawFacts* theFacts = nullptr;

const CrashMemory* moduleAt(const RawFacts& facts, CrashAddress address) {
    const auto found = std::ranges::find(facts.modules, address, &CrashMemory::address);
    return found == facts.modules.end() ? nullptr : &*found;
}

/// The file may have been replaced since, by an update mostly: then its names would be wrong.
bool beginsWith(int file, const Bytes& start) {
    struct stat status {};
    Bytes bytes(start.size());
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode) && !start.empty() &&
           pread(file, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()) &&
           bytes == start;
}

int openModule(Dwfl_Module* /*module*/, void** /*data*/, const char* name, Dwarf_Addr base,
               char** fileName, Elf** /*elf*/) {
    const auto* const memory = moduleAt(*theFacts, base);
    const int file = memory ? open(name, O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1;
    if (file < 0) {
        return -1;
    }
    if (!beginsWith(file, memory->bytes)) {
        close(file);
        return -1;
    }
    *fileName = strdup(name);
    return file;
}

pid_t nextThread(Dwfl* /*dwfl*/, void* data, void** thread) {
    if (*thread) {
        return 0;
    }
    *thread = data;
    return 1; // any number
}

bool readStack(Dwfl* /*dwfl*/, Dwarf_Addr address, Dwarf_Word* result, void* data) {
    const auto& stack = static_cast<const RawFacts*>(data)->stack;
    const auto size = stack.bytes.size();
    if (size < sizeof *result || address < stack.address ||
        address - stack.address > size - sizeof *result) {
        return false;
    }
    std::memcpy(result, stack.bytes.data() + (address - stack.address), sizeof *result);
    return true;
}

bool setRegisters(Dwfl_Thread* thread, void* data) {
    auto registers = static_cast<const RawFacts*>(data)->signal.registers;
    return dwfl_thread_state_registers(thread, 0, registers.size(), registers.data());
}

std::string readable(const char* symbol) {
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(symbol, nullptr, nullptr, nullptr), std::free);
    return text ? text.get() : symbol;
}

/// Of what was in memory; where the note stands too far behind there, as patchelf(1) puts it, of
/// the file that begins alike.
std::string buildIdOfModule(Dwfl_Module* module, const CrashMemory* memory) {
    auto id = memory ? buildIdOf(memory->bytes) : std::string();
    const unsigned char* bytes = nullptr;
    GElf_Addr address = 0;
    if (id.empty()) {
        const int size = dwfl_module_build_id(module, &bytes, &address);
        for (int i = 0; i < size; ++i) {
            id += fmt::format("{:02x}", bytes[i]);
        }
    }
    return id;
}

StackFrame frameAt(Dwfl* dwfl, const RawFacts& facts, Dwarf_Addr address, bool isCall) {
    StackFrame frame{.address = address};
    // A call returns behind itself, which may be another line, or another function.
    const Dwarf_Addr place = isCall ? address - 1 : address;
    auto* const module = dwfl_addrmodule(dwfl, place);
    if (!module) {
        return frame;
    }
    Dwarf_Addr start = 0;
    frame.module =
        dwfl_module_info(module, nullptr, &start, nullptr, nullptr, nullptr, nullptr, nullptr);
    frame.offset = address - start;
    if (const auto* const name = dwfl_module_addrname(module, place)) {
        frame.function = readable(name);
    }
    // Behind what opens the file.
    frame.buildId = buildIdOfModule(module, moduleAt(facts, start));
    if (auto* const line = dwfl_module_getsrc(module, place)) {
        int number = 0;
        const auto* const file = dwfl_lineinfo(line, nullptr, &number, nullptr, nullptr, nullptr);
        frame.source = file ? fmt::format("{}:{}", file, number) : std::string();
    }
    return frame;
}

struct Walk {
    Dwfl* dwfl;
    const RawFacts& facts;
    const std::function<void(const StackFrame&)>& callback;
    int count = 0;
    bool hasMore = false;
};

int visit(Dwfl_Frame* state, void* data) {
    auto& walk = *static_cast<Walk*>(data);
    Dwarf_Addr address = 0;
    bool isActivation = false;
    walk.hasMore = walk.count == kMostFrames;
    if (walk.hasMore || !dwfl_frame_pc(state, &address, &isActivation)) {
        return DWARF_CB_ABORT;
    }
    ++walk.count;
    walk.callback(frameAt(walk.dwfl, walk.facts, address, !isActivation));
    return DWARF_CB_OK;
}

using Session = std::unique_ptr<Dwfl, decltype(&dwfl_end)>;

/// Knows what was mapped where. Nil without memory.
Session sessionOf(const RawFacts& facts, const Dwfl_Callbacks& callbacks) {
    Session session(dwfl_begin(&callbacks), dwfl_end);
    auto maps = facts.maps;
    if (session && !maps.empty()) {
        const std::unique_ptr<FILE, decltype(&std::fclose)> lines(
            fmemopen(maps.data(), maps.size(), "r"), std::fclose);
        dwfl_report_begin(session.get());
        dwfl_linux_proc_maps_report(session.get(), lines.get());
        dwfl_report_end(session.get(), nullptr, nullptr);
    }
    return session;
}

/// Who calls a function where there is none is at the top of the stack, with nothing in between.
void stepBackToCaller(RawFacts& facts) {
    auto& registers = facts.signal.registers;
    Dwarf_Word caller = 0;
    if (readStack(nullptr, registers[kStackPointer], &caller, &facts)) {
        registers[kProgramCounter] = caller;
        registers[kStackPointer] += sizeof caller;
    }
}

} // namespace

bool forEachFrame(const RawFacts& facts, const std::function<void(const StackFrame&)>& callback) {
    if (facts.signal.hasRegisters == 0) {
        return true;
    }
    auto walked = facts;
    theFacts = &walked;
    const Dwfl_Callbacks callbacks{openModule, dwfl_standard_find_debuginfo, nullptr, nullptr};
    const auto session = sessionOf(walked, callbacks);
    const auto place = facts.signal.registers[kProgramCounter];
    if (session && !dwfl_addrmodule(session.get(), place)) {
        callback({.address = place});
        stepBackToCaller(walked);
    }
    constexpr Dwfl_Thread_Callbacks kThread{nextThread,   nullptr, readStack,
                                            setRegisters, nullptr, nullptr};
    Walk walk{session.get(), walked, callback};
    if (session && dwfl_attach_state(session.get(), nullptr, 1, &kThread, &walked)) {
        dwfl_getthread_frames(session.get(), 1, visit, &walk);
    }
    if (session && walk.count == 0) { // there is no walking from here
        callback(frameAt(session.get(), walked, walked.signal.registers[kProgramCounter], false));
    }
    theFacts = nullptr;
    return !walk.hasMore;
}

} // namespace panewright
