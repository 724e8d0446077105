#pragma once

#include <filesystem>
#include <string_view>

namespace panewright {

/// From now on the signals that end a program as a fault does, and exceptions that nobody catches,
/// leave what is known of them in a file of the folder (crash_facts.h), for the next start to make
/// a report of. The process ends by the same signal as ever, with the same status and core file.
/// The folder must exist. Main thread, once; false where nothing can be kept.
///
/// `program` is name and version.
bool keepFactsOfCrashes(const std::filesystem::path& folder, std::string_view program);

} // namespace panewright
