#pragma once

#include "desktop/linux/crash_facts.h"

#include <array>
#include <climits>
#include <cstddef>
#include <string>
#include <string_view>

namespace panewright {

/// The file that a crash's facts are written to. All but prepare() may be called in a signal
/// handler: system calls alone, on memory that was there before.
class RawCrashFile {
public:
    /// Opens a file without a name in that folder, so that nothing has to be cleared away after a
    /// run that ends well, and a second process has its own. File systems that know no such files
    /// get one when the crash comes. False where the path is too long.
    bool prepare(const std::string& path);

    /// Gives the file its name. It is locked until the process has ended, so that nobody takes half
    /// of it. False where there is none.
    bool begin();

    void add(CrashRecord kind, std::string_view text) { add(kind, text.data(), text.size()); }
    void add(CrashRecord kind, const void* bytes, std::size_t size);
    /// The bytes that stand at the address, with it, up to where memory cannot be read. False where
    /// that is so from the beginning.
    bool addMemory(CrashRecord kind, CrashAddress address, std::size_t size);

private:
    bool addBehind(CrashRecord kind, const void* front, std::size_t frontSize, const void* bytes,
                   std::size_t size);
    bool write(const void* bytes, std::size_t size) const;

    int descriptor_ = -1;
    std::int64_t end_ = 0;
    std::array<char, PATH_MAX> path_{};
    std::array<char, 32> link_{};
};

} // namespace panewright
