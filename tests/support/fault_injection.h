#pragma once

#include <filesystem>
#include <string>

namespace panewright::faults {

/// Linked into a test program, stands before the C library's write, fsync, close and rename. From
/// now on the call of that name with this number (from 1 on) that concerns a file below the folder
/// fails with the error number; other calls go through.
void failCall(const std::filesystem::path& folder, const std::string& name, int number, int error);

/// Each write below the folder takes half of what it is given, every second one is interrupted.
void shortWrites(const std::filesystem::path& folder);

/// Back to normal. Whether the call that was to fail has been made.
bool stop();

} // namespace panewright::faults
