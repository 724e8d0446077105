#include "desktop/linux/desktop_entries.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsNull;

TEST(DesktopEntries, TryTheNamesOfALocaleFromTheClosestOn) {
    EXPECT_THAT(localeNames("de_AT.UTF-8@euro"),
                ElementsAre("de_AT@euro", "de_AT", "de@euro", "de"));
    EXPECT_THAT(localeNames("fr_FR.UTF-8"), ElementsAre("fr_FR", "fr"));
    EXPECT_THAT(localeNames("C"), ElementsAre("C"));
    EXPECT_THAT(localeNames(""), ElementsAre());
}

TEST(DesktopEntries, AreParsedInTheLanguageOfTheUser) {
    const std::string text = "# a comment\n"
                             "[Desktop Entry]\r\n"
                             "Type = Application\n"
                             "Name=Files\n"
                             "Name[de]=Dateien\n"
                             "Name[fr]=Fichiers\\sici\n"
                             "Icon=folder\n"
                             "StartupWMClass=Nautilus\n"
                             "NoDisplay=true\n"
                             "[Desktop Action new]\n"
                             "Name=New Window\n"
                             "Icon=other\n";
    const auto nameIn = [&](const char* locale) {
        return parseDesktopEntry(text, localeNames(locale))->name;
    };
    EXPECT_EQ(nameIn("de_AT.UTF-8"), "Dateien");
    EXPECT_EQ(nameIn("fr_FR"), "Fichiers ici");
    EXPECT_EQ(nameIn("C"), "Files");
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

class DesktopEntryFolders : public testing::Test {
protected:
    static std::string application(const std::string& name, const std::string& more = "") {
        return "[Desktop Entry]\nType=Application\nName=" + name + "\n" + more;
    }
    void write(const std::string& file, const std::string& content) const {
        const auto path = folder_.path() / file;
        std::filesystem::create_directories(path.parent_path());
        setContent(path, content);
    }
    static std::string nameOf(const DesktopEntry* entry) { return entry ? entry->name : "none"; }

    TemporaryFolder folder_;
    DesktopEntries entries_{{folder_.path() / "home", folder_.path() / "system"}, "de_DE.UTF-8"};
};

TEST_F(DesktopEntryFolders, AreSearchedInTheirOrder) {
    write("home/applications/org.example.Editor.desktop", application("My Editor"));
    write("system/applications/org.example.Editor.desktop", application("Editor"));
    write("home/applications/gone.desktop", "[Desktop Entry]\nType=Application\nHidden=true\n");
    write("system/applications/gone.desktop", application("Gone"));
    write("system/applications/suite/Writer.desktop", application("Writer"));
    write("system/applications/a.desktop", application("A", "StartupWMClass=Draw\nNoDisplay=true"));
    write("system/applications/b.desktop", application("B", "StartupWMClass=Draw\n"));
    const struct {
        const char* id;
        const char* name;
    } ids[] = {{"org.example.Editor", "My Editor"},
               {"org.example.Editor.desktop", "My Editor"},
               {"/usr/share/applications/org.example.Editor.desktop", "My Editor"},
               {"org.example.editor", "none"},
               {"gone", "none"},
               {"suite-Writer", "Writer"},
               {"", "none"}};
    for (const auto& [id, name] : ids) {
        EXPECT_EQ(nameOf(entries_.withId(id)), name) << id;
    }
    const struct {
        const char* instance;
        const char* windowClass;
        const char* name;
    } classes[] = {{"draw", "Draw", "B"},
                   {"Draw", "Other", "B"},
                   {"x", "ORG.example.EDITOR", "My Editor"},
                   {"suite-writer", "x", "Writer"},
                   {"gone", "Gone", "none"},
                   {"", "", "none"}};
    for (const auto& [instance, windowClass, name] : classes) {
        EXPECT_EQ(nameOf(entries_.ofWindowClass(instance, windowClass)), name) << windowClass;
    }
}

TEST_F(DesktopEntryFolders, AreReadAgainWhenTheyHaveChanged) {
    EXPECT_THAT(entries_.withId("late"), IsNull());
    write("home/applications/late.desktop", application("Late"));
    EXPECT_EQ(nameOf(entries_.withId("late")), "Late");
    std::filesystem::remove(folder_.path() / "home/applications/late.desktop");
    EXPECT_THAT(entries_.withId("late"), IsNull());
}

} // namespace
} // namespace panewright
