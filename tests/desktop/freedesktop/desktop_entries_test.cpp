#include "desktop/freedesktop/desktop_entries.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using testing::ElementsAre;

TEST(DesktopEntries, AreParsedInTheLanguageOfTheUser) {
    EXPECT_THAT(localeNames("de_AT.UTF-8@euro"),
                ElementsAre("de_AT@euro", "de_AT", "de@euro", "de"));
    EXPECT_THAT(localeNames(""), ElementsAre());
    const std::string text = "# a comment\n[Desktop Entry]\r\nType = Application\nName=Files\n"
                             "Name[de]=Dateien\nName[fr]=Fichiers\\sici\nIcon=folder\n"
                             "StartupWMClass=Nautilus\nNoDisplay=true\n"
                             "[Desktop Action new]\nName=New Window\nIcon=other\n";
    const std::pair<const char*, const char*> names[] = {
        {"de_AT.UTF-8", "Dateien"}, {"fr_FR", "Fichiers ici"}, {"C", "Files"}};
    for (const auto& [locale, name] : names) {
        EXPECT_EQ(parseDesktopEntry(text, localeNames(locale))->name, name);
    }
    const auto entry = parseDesktopEntry(text, {});
    EXPECT_EQ(entry->icon, "folder");
    EXPECT_EQ(entry->startupClass, "Nautilus");
    EXPECT_FALSE(entry->isShown);
    for (const char* none :
         {"", "[Desktop Entry]", "Type=Application", "[Desktop Entry]\nType=Link\nName=A",
          "[Desktop Entry]\nType=Application\nHidden=true", "[Other]\nType=Application\nName=A"}) {
        EXPECT_FALSE(parseDesktopEntry(none, {})) << none;
    }
}

TEST(DesktopEntries, AreFoundByTheirIdAndTheClassOfAWindow) {
    const TemporaryFolder folder;
    DesktopEntries entries{{folder.path() / "home", folder.path() / "system"}, "de_DE.UTF-8"};
    const auto write = [&](const std::string& file, const std::string& nameAndMore) {
        setContent(folder.path() / file,
                   "[Desktop Entry]\nType=Application\nName=" + nameAndMore + "\n");
    };
    const auto nameOf = [](const DesktopEntry* entry) { return entry ? entry->name : "none"; };
    EXPECT_EQ(nameOf(entries.withId("gone")), "none"); // the folders are read again
    write("home/applications/org.example.Editor.desktop", "My Editor");
    write("system/applications/org.example.Editor.desktop", "Editor");
    write("home/applications/gone.desktop", "Gone\nHidden=true");
    write("system/applications/gone.desktop", "Gone");
    write("system/applications/suite/Writer.desktop", "Writer");
    write("system/applications/a.desktop", "A\nStartupWMClass=Draw\nNoDisplay=true");
    write("system/applications/b.desktop", "B\nStartupWMClass=Draw");
    const std::pair<const char*, const char*> ids[] = {
        {"org.example.Editor", "My Editor"}, {"org.example.Editor.desktop", "My Editor"},
        {"org.example.editor", "none"},      {"gone", "none"},
        {"suite-Writer", "Writer"},          {"", "none"}};
    for (const auto& [id, name] : ids) {
        EXPECT_EQ(nameOf(entries.withId(id)), name) << id;
    }
    const std::array<const char*, 3> classes[] = {{"draw", "Draw", "B"},
                                                  {"Draw", "Other", "B"},
                                                  {"x", "ORG.example.EDITOR", "My Editor"},
                                                  {"gone", "Gone", "none"},
                                                  {"", "", "none"}};
    for (const auto& [instance, windowClass, name] : classes) {
        EXPECT_EQ(nameOf(entries.ofWindowClass(instance, windowClass)), name) << windowClass;
    }
}

} // namespace
} // namespace panewright
