#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

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
};

/// Nil for what is no application, or counts as removed. `locales` are the names in brackets that
/// suit the user, the best first.
std::optional<DesktopEntry> parseDesktopEntry(std::string_view text,
                                              const std::vector<std::string>& locales);

/// The names to look for with a locale such as "de_AT.UTF-8@euro", the best first.
std::vector<std::string> localeNames(std::string_view locale);

/// The desktop entries of some folders, an earlier one going before a later one. They are read when
/// something is first looked for, and again after a folder has changed. What is returned is valid
/// until the next call.
class DesktopEntries {
public:
    DesktopEntries(const std::vector<std::filesystem::path>& dataFolders, std::string_view locale);

    /// Those of the user and the system, as the environment names them.
    static DesktopEntries ofSession();

    /// By identifier or file, with or without ".desktop"; null if there is none.
    const DesktopEntry* withId(std::string_view id);

    /// The one whose startup class is the class or the instance, else the one with that identifier
    /// in any case; null if there is none.
    const DesktopEntry* ofWindowClass(std::string_view instance, std::string_view windowClass);

private:
    void refresh();
    bool hasChanged() const;
    void readFolder(const std::filesystem::path& folder);
    const DesktopEntry* find(bool (*matches)(const DesktopEntry&, std::string_view),
                             std::string_view text) const;

    std::vector<std::filesystem::path> folders_;
    std::vector<std::string> locales_;
    /// Nil stands for one that hides those of later folders.
    std::map<std::string, std::optional<DesktopEntry>, std::less<>> entries_;
    std::map<std::filesystem::path, std::filesystem::file_time_type> folderTimes_;
};

} // namespace panewright
