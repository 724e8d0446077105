#pragma once

#include <string>

namespace panewright {

/// Who we are: the facts of the program's main bundle.
class ProgramInformation {
public:
    virtual ~ProgramInformation() = default;

    virtual std::string bundleIdentifier() const = 0;
};

} // namespace panewright
