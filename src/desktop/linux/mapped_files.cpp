#include "desktop/linux/mapped_files.h"

#include "desktop/linux/raw_crash_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace panewright {
namespace {

/// The headers of a program and its build id, which the linkers put right behind them.
constexpr std::size_t kModuleHeadSize = 2048;

/// Of a line only the fields before the name matter, which is the last.
struct LineStart {
    std::array<char, 96> text{};
    std::size_t size = 0;
};

std::string_view takeField(std::string_view& line) {
    const auto field = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(line.size(), field.size() + 1));
    return field;
}

std::optional<CrashAddress> hexadecimal(std::string_view digits) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    CrashAddress value = 0;
    for (const char digit : digits) {
        const auto number = kDigits.find(digit);
        if (number == std::string_view::npos) {
            return std::nullopt;
        }
        value = value << 4 | number;
    }
    return value;
}

/// Where the file's beginning can be read, of a line such as "7f2c-7f2e r--p 00000000 08:01 2
/// NAME"; nil where the line is of another part, or of no file.
std::optional<CrashAddress> fileBeginsAt(std::string_view line) {
    const auto range = takeField(line);
    const auto rights = takeField(line);
    const auto offset = takeField(line);
    takeField(line); // the device
    const auto inode = takeField(line);
    const bool isBeginning =
        rights.starts_with('r') && hexadecimal(offset) == 0 && !inode.empty() && inode != "0";
    return isBeginning ? hexadecimal(range.substr(0, range.find('-'))) : std::nullopt;
}

// Not on the stack, which is small there. One thread at a time tells of a crash.
constinit std::array<char, 4096> buffer{};

} // namespace

void addMappedFiles(RawCrashFile& file) {
    const int maps = open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
    LineStart line;
    for (ssize_t size = 0; (size = read(maps, buffer.data(), buffer.size())) > 0;) {
        const std::string_view piece(buffer.data(), static_cast<std::size_t>(size));
        file.add(CrashRecord::kMaps, piece);
        for (const char character : piece) {
            if (character != '\n') {
                if (line.size < line.text.size()) {
                    line.text[line.size++] = character;
                }
                continue;
            }
            if (const auto address = fileBeginsAt({line.text.data(), line.size})) {
                file.addMemory(CrashRecord::kModule, *address, kModuleHeadSize);
            }
            line.size = 0;
        }
    }
    close(maps);
}

} // namespace panewright
