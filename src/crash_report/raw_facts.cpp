#include "crash_report/raw_facts.h"

#include "base/log.h"

#include <cstring>
#include <span>

namespace panewright {
namespace {

/// More than any program has.
constexpr std::size_t kMostModules = 4096;

using Content = std::span<const Bytes::value_type>;

std::string textOf(Content content) {
    return {content.begin(), content.end()};
}

std::optional<CrashMemory> memoryOf(Content content) {
    CrashMemory memory;
    if (content.size() < sizeof memory.address) {
        return std::nullopt;
    }
    std::memcpy(&memory.address, content.data(), sizeof memory.address);
    content = content.subspan(sizeof memory.address);
    memory.bytes.assign(content.begin(), content.end());
    return memory;
}

/// False where there can be no such record.
bool add(RawFacts& facts, CrashRecord kind, Content content) {
    switch (kind) {
    case CrashRecord::kProgram:
        facts.program = textOf(content);
        return true;
    case CrashRecord::kException:
        facts.exception = textOf(content);
        return true;
    case CrashRecord::kLogLine:
        facts.logLines.push_back(textOf(content));
        return facts.logLines.size() <= kKeptLogLines;
    case CrashRecord::kMaps:
        facts.maps += textOf(content);
        return true;
    case CrashRecord::kStack:
    case CrashRecord::kModule: {
        auto memory = memoryOf(content);
        if (memory && kind == CrashRecord::kStack) {
            facts.stack = std::move(*memory);
        } else if (memory) {
            facts.modules.push_back(std::move(*memory));
        }
        return memory && facts.modules.size() <= kMostModules;
    }
    case CrashRecord::kEnd:
        facts.isWhole = true;
        return false;
    case CrashRecord::kSignal:
        break;
    }
    return false;
}

/// Takes the first record away; nil where it is not whole.
std::optional<std::pair<CrashRecord, Content>> takeRecord(Content& rest) {
    CrashRecordHead head{};
    if (rest.size() < sizeof head) {
        return std::nullopt;
    }
    std::memcpy(&head, rest.data(), sizeof head);
    rest = rest.subspan(sizeof head);
    if (head.size > rest.size()) {
        return std::nullopt;
    }
    const auto content = rest.first(head.size);
    rest = rest.subspan(head.size);
    return std::pair(head.kind, content);
}

} // namespace

std::optional<RawFacts> rawFactsOf(const Bytes& bytes) {
    Content rest(bytes);
    RawFacts facts;
    const auto first = takeRecord(rest);
    if (!first || first->first != CrashRecord::kSignal ||
        first->second.size() != sizeof facts.signal) {
        return std::nullopt;
    }
    std::memcpy(&facts.signal, first->second.data(), sizeof facts.signal);
    while (const auto record = takeRecord(rest)) {
        if (!add(facts, record->first, record->second)) {
            break;
        }
    }
    return facts;
}

} // namespace panewright
