#include "ui/version_text.h"

#include "base/text_with.h"

namespace panewright {

std::string versionText(const ProgramInformation& program, const TextServices& text) {
    return textWith(textWith(text.localized("Version: %@.%@"), program.shortVersion()),
                    program.buildVersion());
}

} // namespace panewright
