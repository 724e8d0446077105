#pragma once

#include "platform/program_information.h"
#include "platform/text_services.h"

#include <string>

namespace panewright {

/// The program's version and the number of its build, as people are told them.
std::string versionText(const ProgramInformation& program, const TextServices& text);

} // namespace panewright
