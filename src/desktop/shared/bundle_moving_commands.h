#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

/// A program and its arguments.
using CommandLine = std::vector<std::string>;

// The tools that move a bundle. Paths are as they are, not quoted. A newer toolkit is one whose
// version is above 949.0.

/// The text as one word of a shell's command line, whatever is in it.
std::string shellQuoted(std::string_view text);

/// Prints the disk images that are mounted, as a property list.
CommandLine listImagesCommand();

// Done with an administrator's rights.
CommandLine removeCommand(const std::filesystem::path& bundle);
CommandLine copyCommand(const std::filesystem::path& from, const std::filesystem::path& to);

/// Ends with 0 when a program of the bundle runs.
CommandLine isRunningCommand(const std::filesystem::path& bundle);

CommandLine openCommand(const std::filesystem::path& bundle);

// These two outlive the program that starts them.

/// Waits for the end of the process, takes the mark of a downloaded file from the bundle and opens
/// it.
CommandLine openAfterEndCommand(int processId, const std::filesystem::path& bundle,
                                bool isToolkitNewer);

/// Ejects the disk image in five seconds.
CommandLine ejectCommand(std::string_view device);

} // namespace panewright
