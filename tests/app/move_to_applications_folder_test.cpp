#include "desktop/shared/bundle_moving_commands.h"
#include "support/captured_log.h"
#include "support/program_fixture.h"

#include <cstdio>
#include <functional>
#include <memory>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kSuppress = "moveToApplicationsFolderAlertSuppress";
const std::string kFrom = "/Users/me/Downloads/Panewright.app";
const std::string kFromImage = "/Volumes/Panewright/Panewright.app";
const std::string kTo = "/Applications/Panewright.app";
constexpr AlertAnswer kYes{kAlertFirstButtonReturn}, kNo{kAlertFirstButtonReturn + 1};

class MoveToApplicationsFolderTest : public ProgramFixture {
protected:
    MemoryBundles& system() { return desktop_.bundles; }
    /// Starts the program from there, with that answer to the question; the log of the system.
    std::vector<std::string> startFrom(const std::string& source, AlertAnswer answer,
                                       AfterMoving after) {
        system().program = source;
        desktop_.alerts.modalAnswer = answer;
        EXPECT_EQ(delegate_.applicationWillFinishLaunching(), after);
        return system().log;
    }
    std::string openCommand(const std::string& unmark = "-d -r") const {
        return "start /bin/sh -c (while /bin/kill -0 77 >&/dev/null; do /bin/sleep 0.1; done; "
               "/usr/bin/xattr " +
               unmark + " com.apple.quarantine '" + kTo + "'; /usr/bin/open '" + kTo + "') &";
    }
    /// What the tool prints of the images, with a value in the place of the device.
    static ChildEnd images(const std::string& device) {
        return {0, "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>"
                   "<key>images</key><array><dict><key>system-entities</key><array><dict>"
                   "<key>dev-entry</key>" +
                       device + "</dict></array></dict></array></dict></plist>"};
    }

    CapturedLog log_;
    const std::string copied_ = "copy " + kFrom + " " + kTo;
    const std::string removed_ = "remove " + kFrom;
    const std::string images_ = "run /usr/bin/hdiutil info -plist";
};

TEST_F(MoveToApplicationsFolderTest, AsksNobodyWhoIsInAnApplicationsFolderOrWantsNoQuestion) {
    for (const char* path :
         {"/Applications/Panewright.app", "/Users/me/Applications/Panewright.app",
          "/opt/Applications/tools/Panewright.app"}) {
        EXPECT_THAT(startFrom(path, kYes, AfterMoving::kGoOn), IsEmpty()) << path;
    }
    desktop_.userDefaults.setObject(kSuppress, true);
    EXPECT_THAT(startFrom(kFrom, kYes, AfterMoving::kGoOn), IsEmpty());
    EXPECT_THAT(desktop_.alerts.modal, IsEmpty());
}

TEST_F(MoveToApplicationsFolderTest, AsksAndKeepsANoOnlyWhereItIsAskedTo) {
    struct Case {
        std::string source;
        bool isReadOnly;
        std::string informativeText;
    };
    const std::string offer = "I can move myself to the Applications folder if you'd like.";
    const Case cases[] = {
        {"/tmp/Panewright.app", false, offer},
        {kFrom, false, offer + " This will keep your Downloads folder uncluttered."},
        {kFrom, true, offer + " Note that this will require an administrator password."},
    };
    for (const auto& [source, isReadOnly, text] : cases) {
        system().readOnly = isReadOnly ? std::set<std::filesystem::path>{"/Applications"}
                                       : std::set<std::filesystem::path>{};
        EXPECT_THAT(startFrom(source, kNo, AfterMoving::kGoOn), IsEmpty());
        const auto& alert = desktop_.alerts.modal.back();
        EXPECT_EQ(alert.messageText, "Move to Applications folder?");
        EXPECT_EQ(alert.informativeText, text);
        EXPECT_THAT(alert.buttons, ElementsAre("Move to Applications Folder", "Do Not Move"));
        EXPECT_TRUE(alert.showsSuppressionButton);
    }
    EXPECT_FALSE(desktop_.userDefaults.objectForKey(kSuppress));
    startFrom(kFrom, {kNo.response, true}, AfterMoving::kGoOn);
    EXPECT_EQ(desktop_.userDefaults.objectForKey(kSuppress), DefaultsValue(true));
    EXPECT_THAT(log_.take(), IsEmpty());
}

TEST_F(MoveToApplicationsFolderTest, EndsWithTheProgramThatEndsWhileItAsks) {
    system().program = kFrom;
    EXPECT_EQ(delegate_.applicationWillFinishLaunching(), AfterMoving::kEnd);
    EXPECT_THAT(system().log, IsEmpty());
}

TEST_F(MoveToApplicationsFolderTest, MovesAndOpensTheCopy) {
    EXPECT_THAT(startFrom(kFrom, {kYes.response, true}, AfterMoving::kEnd),
                ElementsAre(copied_, removed_, openCommand()));
    EXPECT_FALSE(desktop_.userDefaults.objectForKey(kSuppress)) << "that goes with a no";
    EXPECT_THAT(log_.take(), ElementsAre("INFO -- Moving myself to the Applications folder"));
}

TEST_F(MoveToApplicationsFolderTest, ReplacesACopyThatIsThereUnlessItRuns) {
    const std::vector<std::string> replaced{"recycle " + kTo, copied_, removed_, openCommand()};
    system().bundles = {kTo};
    EXPECT_EQ(startFrom(kFrom, kYes, AfterMoving::kEnd), replaced);

    log_.take();
    system().log.clear();
    system().running = {"/bin/other", kTo + "/Contents/MacOS/Panewright"};
    EXPECT_THAT(startFrom(kFrom, kYes, AfterMoving::kEnd), ElementsAre("run /usr/bin/open " + kTo));
    EXPECT_THAT(log_.take(), ElementsAre("INFO -- Moving myself to the Applications folder",
                                         "INFO -- Switching to an already running version"));

    system().log.clear();
    system().toolkit = 949.54;
    system().running = {};
    const auto look = "run /bin/sh -c /bin/ps ax -o comm | /usr/bin/grep '" + kTo +
                      "'/ | /usr/bin/grep -v grep >/dev/null";
    EXPECT_THAT(startFrom(kFrom, kYes, AfterMoving::kEnd),
                ElementsAre(look, "run /usr/bin/open " + kTo));
    system().log.clear();
    system().ends["/bin/sh"] = ChildEnd{1, ""};
    EXPECT_THAT(startFrom(kFrom, kYes, AfterMoving::kEnd),
                ElementsAre(look, "recycle " + kTo, copied_, removed_, openCommand("-d")));
}

TEST_F(MoveToApplicationsFolderTest, LeavesACopyOnADiskImageAndEjectsThat) {
    struct Case {
        ChildEnd tool;
        bool isOnImage;
        double toolkit = 1038.36;
    };
    const std::string device = "<string>/dev/disk2s1</string>";
    const Case cases[] = {
        {images(device), true},
        {images("<string>/dev/disk2s10</string>"), false},
        {images("<integer>2</integer>"), false},
        {images(device), false, 949.9},
        {{0, "<plist><dict><key>images</key><string>none</string></dict></plist>"}, false},
        {{1, "no property list"}, false}};
    for (const auto& [tool, isOnImage, toolkit] : cases) {
        system().log.clear();
        system().bundles.clear();
        system().ends["/usr/bin/hdiutil"] = tool;
        system().toolkit = toolkit;
        const auto done = startFrom(kFromImage, kYes, AfterMoving::kEnd);
        EXPECT_EQ(done.front(), images_);
        EXPECT_EQ(
            done.back().ends_with("-c (/bin/sleep 5 && /usr/bin/hdiutil detach '/dev/disk2s1') &"),
            isOnImage);
        EXPECT_EQ(testing::Matches(testing::Contains("remove " + kFromImage))(done), !isOnImage);
    }
}

TEST_F(MoveToApplicationsFolderTest, CopiesAndSaysWhatFailed) {
    const std::string ask = "ask for system.privilege.admin 19";
    const std::string erase = "as administrator /bin/rm -rf " + kTo;
    const std::string copy = "as administrator /bin/cp -pR " + kFrom + " " + kTo;
    const std::string giveBack = "give rights back", recycle = "recycle " + kTo;
    const std::string failed = "ERROR -- Could not copy myself to /Applications with authorization";
    const std::vector<std::string> moved{ask, erase, copy, giveBack, removed_, openCommand()};
    struct Case {
        std::function<void(MemoryBundles&)> set;
        AfterMoving after;
        std::vector<std::string> done;
        std::vector<std::string> lines;
    };
    const auto needsRights = [](auto change) {
        return [change](MemoryBundles& it) {
            it.readOnly = {kTo};
            change(it);
        };
    };
    const auto fails = [](const std::map<std::string, std::string>& failures) {
        return [failures](MemoryBundles& it) { it.failures = failures; };
    };
    const Case cases[] = {
        {needsRights([](auto&) {}), AfterMoving::kEnd, moved, {}},
        {needsRights([](auto& it) { it.rightsStatus = -60006; }),
         AfterMoving::kGoOn,
         {ask, giveBack},
         {"INFO -- Not moving because user canceled authorization"}},
        {needsRights([](auto& it) { it.rightsStatus = -1; }),
         AfterMoving::kGoOn,
         {ask, giveBack},
         {failed}},
        {needsRights([](auto& it) { it.lendsRights = false; }),
         AfterMoving::kGoOn,
         {ask, giveBack},
         {failed}},
        {needsRights([](auto& it) { it.ends["/bin/rm"] = std::nullopt; }),
         AfterMoving::kGoOn,
         {ask, erase, giveBack},
         {failed}},
        {needsRights([](auto& it) {
             it.ends["/bin/rm"] = ChildEnd{1, ""};
         }),
         AfterMoving::kEnd,
         moved,
         {}},
        {needsRights([](auto& it) {
             it.ends["/bin/cp"] = ChildEnd{1, ""};
         }),
         AfterMoving::kGoOn,
         {ask, erase, copy, giveBack},
         {failed}},
        {fails({{"recycle", "full"}}),
         AfterMoving::kGoOn,
         {recycle},
         {"ERROR -- Could not trash '" + kTo + "'"}},
        {fails({{"copy", "no space"}}),
         AfterMoving::kGoOn,
         {recycle, copied_},
         {"ERROR -- Could not copy '" + kFrom + "' to '" + kTo + "' (no space)",
          "ERROR -- Could not copy myself to " + kTo}},
        {fails({{"remove", "busy"}}),
         AfterMoving::kEnd,
         {recycle, copied_, removed_, "recycle " + kFrom, openCommand()},
         {"WARNING -- Could not delete '" + kFrom + "': busy"}},
    };
    for (const auto& [set, after, done, lines] : cases) {
        system() = MemoryBundles();
        system().bundles = {kTo};
        set(system());
        desktop_.alerts.modal.clear();
        EXPECT_EQ(startFrom(kFrom, kYes, after), done);
        auto logged = log_.take();
        EXPECT_EQ(logged.front(), "INFO -- Moving myself to the Applications folder");
        logged.erase(logged.begin());
        EXPECT_EQ(logged, lines);
        const bool isShown = !lines.empty() && lines.front().starts_with("ERROR");
        ASSERT_EQ(desktop_.alerts.modal.size(), isShown ? 2U : 1U);
        EXPECT_EQ(desktop_.alerts.modal.back().messageText ==
                      "Could not move to Applications folder",
                  isShown);
    }
}

TEST_F(MoveToApplicationsFolderTest, GoesOnWithTheCopyWhereTheOldOneStays) {
    system().failures = {{"remove", "busy"}, {"recycle", "full"}};
    startFrom(kFrom, kYes, AfterMoving::kEnd);
    EXPECT_THAT(log_.take(),
                ElementsAre("INFO -- Moving myself to the Applications folder",
                            "WARNING -- Could not delete '" + kFrom + "': busy",
                            "ERROR -- Could not trash '" + kFrom + "'",
                            "WARNING -- Could not delete application after moving it to "
                            "Applications folder"));
}

TEST(ShellQuoted, IsOneWordForARealShellWhateverIsInIt) {
    EXPECT_EQ(shellQuoted("a'b"), "'a'\\''b'");
    for (const std::string text :
         {"a'b", "''", "", R"($(id) `id` \ "x" *)", "a\nb;c&d|e>f", "-n", "~ # %s !", "\xff\x01"}) {
        const auto command = "printf %s " + shellQuoted(text);
        const std::unique_ptr<FILE, int (*)(FILE*)> shell(popen(command.c_str(), "r"), pclose);
        std::string printed(64, 0);
        printed.resize(fread(printed.data(), 1, printed.size(), shell.get()));
        EXPECT_EQ(printed, text);
    }
}

} // namespace
} // namespace panewright
