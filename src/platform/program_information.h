#pragma once

#include <string>

namespace panewright {

/// Who we are: the facts of the program's main bundle, which stay the same while it runs. Callable
/// from any thread.
class ProgramInformation {
public:
    virtual ~ProgramInformation() = default;

    virtual std::string bundleIdentifier() const = 0;

    /// The file name of the program.
    virtual std::string executableName() const = 0;

    /// Absolute path of the program that runs.
    virtual std::string executablePath() const = 0;
};

} // namespace panewright
