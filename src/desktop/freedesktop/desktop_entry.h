#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

/// What the name of a desktop entry's file ends with.
inline constexpr std::string_view kDesktopEntryExtension = ".desktop";

/// What the desktop knows of a program (Desktop Entry conventions).
struct DesktopEntry {
    /// The name of its file below the applications folder, "/" as "-", without ".desktop".
    std::string id;
    /// In the user's language.
    std::string name;
    /// A name in the icon theme, or a path; empty if it has none.
    std::string icon;
    /// The class of its windows, where it says so.
    std::string startupClass;
    /// Whether menus show it.
    bool isShown = true;

    friend bool operator==(const DesktopEntry&, const DesktopEntry&) = default;
};

/// By identifier; nil stands for one that hides those of later folders.
using DesktopEntryMap = std::map<std::string, std::optional<DesktopEntry>, std::less<>>;

/// Nil for what is no application, or counts as removed. `locales` are the names in brackets that
/// suit the user, the best first.
std::optional<DesktopEntry> parseDesktopEntry(std::string_view text,
                                              const std::vector<std::string>& locales);

/// The names to look for with a locale such as "de_AT.UTF-8@euro", the best first.
std::vector<std::string> localeNames(std::string_view locale);

} // namespace panewright
