#pragma once

namespace panewright {

// What this build was told of itself (CMakeLists.txt).

/// The version that people see, and the number of the build.
extern const char* const kProgramShortVersion;
extern const char* const kProgramBuildVersion;

/// As ProgramInformation::website() has it.
extern const char* const kProgramWebsite;
/// As ProgramInformation::updateFeed() has it.
extern const char* const kProgramUpdateFeed;

} // namespace panewright
