#include "ui/format_text.h"

#include "base/text_with.h"

namespace panewright {

std::string versionText(const ProgramInformation& program, const TextServices& text) {
    return textWith(textWith(text.localized("Version: %@.%@"), program.shortVersion()),
                    program.buildVersion());
}

void localizeLabels(QFShortcutRecorder& recorder, const TextServices& text) {
    recorder.setDefaultLabel(text.localized(kDefaultLabel));
    recorder.setWaitingForKeysLabel(text.localized(kWaitingForKeysLabel));
}

} // namespace panewright
