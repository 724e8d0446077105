#pragma once

#include <string>
#include <string_view>

namespace panewright {

/// The text as one word of a command line, whatever is in it.
std::string shellQuoted(std::string_view text);

// The command lines that outlive the program that starts them, and one that looks for a program.
// Paths are as they are, not quoted. A newer toolkit is one whose version is above 949.0.

/// Waits for the end of the process, takes the mark of a downloaded file from the bundle and opens
/// it.
std::string openAfterEndCommand(int processId, std::string_view bundle, bool isToolkitNewer);

/// Ejects the disk image in five seconds.
std::string ejectCommand(std::string_view device);

/// Ends with 0 when a program of the bundle runs.
std::string isRunningCommand(std::string_view bundle);

} // namespace panewright
