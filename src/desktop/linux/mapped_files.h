#pragma once

namespace panewright {

class RawCrashFile;

/// Adds which files this process has mapped where, and how each begins: the beginning of a program
/// or library has its build id. May be called in a signal handler.
void addMappedFiles(RawCrashFile& file);

} // namespace panewright
