#include "ui/format_text.h"

#include <string_view>

namespace panewright {

std::string textWith(std::string text, const std::string& replacement) {
    constexpr std::string_view kPlaceholder = "%@";
    const auto place = text.find(kPlaceholder);
    return place == std::string::npos ? text
                                      : text.replace(place, kPlaceholder.size(), replacement);
}

std::string versionText(const ProgramInformation& program, const TextServices& text) {
    return textWith(textWith(text.localized("Version: %@.%@"), program.shortVersion()),
                    program.buildVersion());
}

void localizeLabels(QFShortcutRecorder& recorder, const TextServices& text) {
    recorder.setDefaultLabel(text.localized(kDefaultLabel));
    recorder.setWaitingForKeysLabel(text.localized(kWaitingForKeysLabel));
}

} // namespace panewright
