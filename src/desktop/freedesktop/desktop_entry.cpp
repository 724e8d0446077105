#include "desktop/freedesktop/desktop_entry.h"

#include "base/unicode.h"
#include "desktop/freedesktop/desktop_entry_text.h"

#include <algorithm>

namespace panewright {
namespace {

std::string shownText(std::string_view value) {
    return wellFormedUtf8(unescaped(value));
}

} // namespace

std::vector<std::string> localeNames(std::string_view locale) {
    const auto modifierAt = std::min(locale.find('@'), locale.size());
    const std::string modifier(locale.substr(modifierAt));
    locale = locale.substr(0, modifierAt);
    const std::string withCountry(locale.substr(0, locale.find('.')));
    const std::string language = withCountry.substr(0, withCountry.find('_'));
    std::vector<std::string> names;
    for (const auto& name : {withCountry + modifier, withCountry, language + modifier, language}) {
        if (!language.empty() && std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    }
    return names;
}

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text,
                                              const std::vector<std::string>& locales) {
    const auto keys = desktopEntryKeys(text);
    const auto valueOf = [&](std::string_view key) {
        const auto found = keys.find(key);
        return found == keys.end() ? std::string_view() : found->second;
    };
    if (valueOf("Type") != "Application" || valueOf("Hidden") == "true") {
        return std::nullopt;
    }
    DesktopEntry entry;
    entry.name = shownText(valueOf("Name"));
    for (const auto& locale : locales) {
        if (const auto localized = valueOf("Name[" + locale + "]"); !localized.empty()) {
            entry.name = shownText(localized);
            break;
        }
    }
    entry.icon = shownText(valueOf("Icon"));
    entry.startupClass = shownText(valueOf("StartupWMClass"));
    entry.isShown = valueOf("NoDisplay") != "true";
    return entry;
}

} // namespace panewright
