#include "desktop/freedesktop/desktop_entries.h"

#include "desktop/memory/memory_main_loop.h"
#include "support/captured_log.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace panewright {
namespace {

namespace fs = std::filesystem;

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

class DesktopEntriesTest : public testing::Test {
protected:
    void write(const std::string& file, const std::string& nameAndMore) const {
        setContent(folder_.path() / file,
                   "[Desktop Entry]\nType=Application\nName=" + nameAndMore + "\n");
    }
    static std::string nameOf(const DesktopEntry* entry) { return entry ? entry->name : "none"; }
    /// Until all has been read, changes included.
    void run() { loop_.advance(std::chrono::seconds(2)); }

    const TemporaryFolder folder_;
    MemoryMainLoop loop_;
    DesktopEntries entries_{loop_, {folder_.path() / "home", folder_.path() / "system"}, "de_DE"};
};

TEST_F(DesktopEntriesTest, AreFoundByTheirIdAndTheClassOfAWindow) {
    write("home/applications/org.example.Editor.desktop", "My Editor");
    write("system/applications/org.example.Editor.desktop", "Editor");
    write("home/applications/gone.desktop", "Gone\nHidden=true");
    write("system/applications/gone.desktop", "Gone");
    write("system/applications/suite/Writer.desktop", "Writer");
    write("system/applications/a.desktop", "A\nStartupWMClass=Draw\nNoDisplay=true");
    write("system/applications/b.desktop", "B\nStartupWMClass=Draw");
    run();
    const std::pair<const char*, const char*> ids[] = {
        {"org.example.Editor", "My Editor"}, {"org.example.Editor.desktop", "My Editor"},
        {"org.example.editor", "none"},      {"gone", "none"},
        {"suite-Writer", "Writer"},          {"", "none"}};
    for (const auto& [id, name] : ids) {
        EXPECT_EQ(nameOf(entries_.withId(id)), name) << id;
    }
    const std::array<const char*, 3> classes[] = {{"draw", "Draw", "B"},
                                                  {"Draw", "Other", "B"},
                                                  {"x", "ORG.example.EDITOR", "My Editor"},
                                                  {"gone", "Gone", "none"},
                                                  {"", "", "none"}};
    for (const auto& [instance, windowClass, name] : classes) {
        EXPECT_EQ(nameOf(entries_.ofWindowClass(instance, windowClass)), name) << windowClass;
    }
}

TEST_F(DesktopEntriesTest, AreReadBetweenEventsAndAgainAfterAChange) {
    int changes = 0;
    const auto registration = entries_.onChange([&] { ++changes; });
    const auto file = folder_.path() / "home/applications/suite/a.desktop";
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"none", [] {}},
        {"First", [&] { write("home/applications/suite/a.desktop", "First"); }},
        {"Second", [&] { write("home/applications/suite/a.desktop", "Second"); }},
        {"none", [&] { fs::rename(file, file.parent_path() / "other"); }},
        {"Second", [&] { fs::create_symlink("other", file); }},
        {"none", [&] { fs::remove_all(folder_.path() / "home"); }},
        {"System", [&] { write("system/applications/suite/a.desktop", "System"); }},
    };
    std::string before = "none";
    for (const auto& [name, change] : cases) {
        change();
        EXPECT_EQ(nameOf(entries_.withId("suite-a")), before) << "nothing is read by asking";
        run();
        EXPECT_EQ(nameOf(entries_.withId("suite-a")), name);
        before = name;
    }
    EXPECT_EQ(changes, 6);
    write("system/applications/suite/a.desktop", "System");
    run();
    EXPECT_EQ(changes, 6) << "nothing else is known";
}

TEST_F(DesktopEntriesTest, AreReadAmongWhateverElseIsThere) {
    write("home/applications/a.desktop", "A");
    const auto applications = folder_.path() / "home/applications";
    ASSERT_EQ(mkfifo((applications / "pipe.desktop").c_str(), 0600), 0);
    fs::create_directory(applications / "folder.desktop");
    fs::create_symlink("..", applications / "up");
    fs::create_symlink("loop.desktop", applications / "loop.desktop");
    fs::create_symlink("/dev/zero", applications / "endless.desktop");
    write("home/applications/large.desktop", "Large");
    fs::resize_file(applications / "large.desktop", std::uintmax_t{4} << 30);
    write("home/applications/closed.desktop", "Closed");
    fs::permissions(applications / "closed.desktop", fs::perms::none);
    write("home/applications/1/2/3/4/deep.desktop", "Deep");
    for (const char* id : {"pipe", "large"}) {
        write("system/applications/" + std::string(id) + ".desktop", "System's");
    }
    run();
    const std::pair<const char*, const char*> ids[] = {
        {"a", "A"},          {"folder", "none"},       {"up-a", "none"},     {"loop", "none"},
        {"endless", "none"}, {"1-2-3-4-deep", "none"}, {"pipe", "System's"}, {"large", "System's"},
    };
    for (const auto& [id, name] : ids) {
        EXPECT_EQ(nameOf(entries_.withId(id)), name) << id;
    }
}

TEST_F(DesktopEntriesTest, AreBoundedInNumberAndSize) {
    CapturedLog log;
    run();
    for (const bool isOfFolders : {true, false}) {
        for (int i = 0; i < 300; ++i) {
            const std::string path = "home/applications/" + std::to_string(i);
            if (isOfFolders) {
                fs::create_directories(folder_.path() / path);
            } else if (i < 80) {
                write(path + ".desktop", "A\n#" + std::string(220 << 10, '#'));
            }
        }
        run();
        EXPECT_EQ(log.take().size(), 1U) << isOfFolders;
        fs::remove_all(folder_.path() / "home");
        run();
        log.take();
    }
}

} // namespace
} // namespace panewright
