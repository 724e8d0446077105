#include "system/program.h"

#include <csignal>

namespace panewright::test {
namespace {

using testing::ContainsRegex;
using testing::Gt;
using testing::HasSubstr;
using testing::Optional;

constexpr std::chrono::milliseconds kAtOnce{2000};

/// How the program starts and ends, and the store that it keeps for its user meanwhile.
class LifeCycle : public testing::Test {
protected:
    LifeCycle() { window_.activate(); }

    Desktop desktop_;
    TestClient window_{desktop_.display()};
    const std::filesystem::path file_ =
        std::filesystem::path(desktop_.environment()["XDG_DATA_HOME"]) /
        "Panewright/keyEvents.data";
};

TEST_F(LifeCycle, EndsOnSigtermWithReleasedKeysAndAStoreForTheUserAlone) {
    const xcb_keycode_t key = Keyboard::keycode(KEY_2);
    Program program(desktop_);
    EXPECT_FALSE(desktop_.x().grabKey(XCB_MOD_MASK_1, key));
    program->sendSignal(SIGTERM);
    EXPECT_THAT(program->waitForEnd(kAtOnce), Optional(0));
    EXPECT_TRUE(desktop_.x().grabKey(XCB_MOD_MASK_1, key));
    EXPECT_EQ(modeOf(file_), 0600);
    EXPECT_NO_THROW(desktop_.run({PYTHON, FOREIGN_STORE, "read", file_}));
}

TEST_F(LifeCycle, EndsWithAMessageWithoutAServer) {
    Program program(desktop_);
    const std::size_t before = program->standardError().size();
    desktop_.killServer();
    EXPECT_THAT(program->waitForEnd(kAtOnce), Optional(2));
    EXPECT_THAT(program->standardError().substr(before), HasSubstr("the X server has gone away"));

    const PrivateHome home;
    Environment environment = home.environment();
    for (const char* display : {"", ":32000"}) {
        environment["DISPLAY"] = display;
        ChildProcess another({PANEWRIGHT_PROGRAM}, environment);
        EXPECT_THAT(another.waitForEnd(kAtOnce), Optional(Gt(0)));
        EXPECT_THAT(another.standardError(), ContainsRegex("X server|DISPLAY|display"));
    }
}

TEST_F(LifeCycle, StartsWithoutAWindowManagerAndSaysSo) {
    desktop_.killWindowManager();
    window_.takeFocus();
    Program program(desktop_);
    EXPECT_THAT(program->standardError(), testing::HasSubstr("no window manager"));
    expectAfter(KEY_2, kLarge, desktop_, window_.window());
}

TEST_F(LifeCycle, RefusesArgumentsThatNobodyKnows) {
    ChildProcess program({PANEWRIGHT_PROGRAM, "--colour"}, desktop_.environment());
    EXPECT_THAT(program.waitForEnd(), Optional(64));
    EXPECT_THAT(program.standardError(), testing::HasSubstr("'--colour'"));
    ChildProcess unheard({"sh", "-c", PANEWRIGHT_PROGRAM " --colour 2>/dev/full"},
                         desktop_.environment());
    EXPECT_THAT(unheard.waitForEnd(), Optional(64));
}

TEST_F(LifeCycle, ShowsItsSettingsWhenItIsStartedAgainWhereItRuns) {
    ChildProcess bus(kSessionBus, desktop_.environment());
    Environment environment = desktop_.environment();
    environment["DBUS_SESSION_BUS_ADDRESS"] = bus.firstLine();
    Program program(environment);
    for (const std::string arguments : {" --background", " -style fusion", ""}) {
        ChildProcess second({"sh", "-c", "exec " PANEWRIGHT_PROGRAM + arguments}, environment);
        EXPECT_THAT(second.waitForEnd(), Optional(0));
        EXPECT_EQ(second.standardError(), "");
    }
    EXPECT_NO_THROW(runToEnd({"xdotool", "search", "--sync", "--onlyvisible", "--name", "^Settings",
                              "windowfocus", "--sync"},
                             environment));

    environment["DISPLAY"] = ":32000";
    ChildProcess elsewhere({PANEWRIGHT_PROGRAM}, environment);
    EXPECT_THAT(elsewhere.waitForEnd(), Optional(0));
    EXPECT_THAT(elsewhere.standardError(), testing::HasSubstr("display " + desktop_.display()));
}

TEST_F(LifeCycle, OpensNothingForTheCallThatStartsIt) {
    Environment environment = desktop_.environment();
    const auto services =
        std::filesystem::path(environment["XDG_DATA_HOME"]) / "dbus-1" / "services";
    std::filesystem::create_directories(services);
    setContent(services / "com.quillfen.Panewright.service",
               "[D-BUS Service]\nName=com.quillfen.Panewright\nExec=" PANEWRIGHT_PROGRAM
               " --background --activated\n");
    ChildProcess bus(kSessionBus, environment);
    environment["DBUS_SESSION_BUS_ADDRESS"] = bus.firstLine();
    const auto call = [&](const std::string& method, const std::string& argument) {
        EXPECT_NO_THROW(
            runToEnd({"gdbus", "call", "--session", "--dest=com.quillfen.Panewright",
                      "--object-path=/com/quillfen/Panewright", "--method=" + method, argument},
                     environment));
    };
    const auto ends = [&](const std::vector<std::string>& command, int status) {
        ChildProcess process(command, environment);
        return process.waitForEnd() == status;
    };
    const auto hasSettings = [&] {
        return ends({"xdotool", "search", "--onlyvisible", "--name", "^Settings"}, 0);
    };
    const auto quit = [&] {
        EXPECT_TRUE(ends({PANEWRIGHT_PROGRAM, "quit"}, 0));
        EXPECT_TRUE(eventually([&] {
            return runToEnd({"gdbus", "call", "--session", "--dest=org.freedesktop.DBus",
                             "--object-path=/", "--method=org.freedesktop.DBus.NameHasOwner",
                             "com.quillfen.Panewright"},
                            environment) == "(false,)\n";
        }));
    };
    const std::string activate = "org.freedesktop.Application.Activate";
    call(activate, "{}");
    EXPECT_TRUE(ends({PANEWRIGHT_PROGRAM, "list"}, 0));
    EXPECT_FALSE(hasSettings());
    call(activate, "{}");
    EXPECT_TRUE(eventually(hasSettings));
    quit();

    call("com.quillfen.Panewright.ApplyWindowState", "Centered Small");
    EXPECT_EQ(frameOnceItIs(kSmall, desktop_.x(), window_.window()), kSmall);
    call(activate, "{}");
    EXPECT_TRUE(eventually(hasSettings)) << "another call started it";
    EXPECT_TRUE(ends({PANEWRIGHT_PROGRAM, "quit"}, 0));
    ChildProcess next({PANEWRIGHT_PROGRAM, "--background"}, environment);
    EXPECT_TRUE(next.waitForErrorLine("panewright: ready")) << "also while the other one ends";
}

TEST_F(LifeCycle, GoesOnAfterTheReaderOfItsLogHasEnded) {
    const ChildProcess shell({"sh", "-c", PANEWRIGHT_PROGRAM " 2>&1 | grep -m 1 ready"},
                             desktop_.environment());
    ASSERT_TRUE(eventually([&] { return !shell.standardOutput().empty(); }));
    expectAfter(KEY_2, kLarge, desktop_, window_.window());
    // Settings that cannot be read are worth a line.
    const std::filesystem::path settings =
        desktop_.environment()["XDG_CONFIG_HOME"] + "/Panewright/Panewright.conf";
    std::filesystem::remove(settings);
    std::filesystem::create_directory(settings);
    expectAfter(KEY_4, kSmall, desktop_, window_.window());
    expectAfter(KEY_2, kLarge, desktop_, window_.window());
}

TEST_F(LifeCycle, LeavesAStoreAloneThatIsDamagedOrAnothers) {
    setContent(file_, "damaged");
    {
        Program first(desktop_);
        EXPECT_THAT(first->standardError(), testing::HasSubstr("the file is damaged"));
        std::filesystem::remove(file_);
        ChildProcess second({PANEWRIGHT_PROGRAM}, desktop_.environment());
        EXPECT_THAT(second.waitForEnd(), Optional(0));
        EXPECT_EQ(second.standardError(), "panewright: already running on display " +
                                              desktop_.display() + " (process " +
                                              std::to_string(first->pid()) + ")\n");
        EXPECT_FALSE(std::filesystem::exists(file_));
        setContent(file_, "damaged");
        first->sendSignal(SIGTERM);
        EXPECT_THAT(first->waitForEnd(), Optional(0));
    }
    EXPECT_EQ(contentOf(file_), "damaged");
}

} // namespace
} // namespace panewright::test
