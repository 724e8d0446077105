#include "system/program.h"

#include <dbus/dbus.h>

#include <csignal>

namespace panewright::test {
namespace {

using testing::HasSubstr;
using testing::Optional;

/// One call of the command, and what comes of it.
struct Call {
    std::vector<std::string> arguments;
    int status = 0;
    /// Parts of what is printed; empty where nothing is.
    std::string output;
    std::string error;
};

/// The program, once it has its bus name: it is ready for its user before.
struct ProgramOnBus : Program {
    explicit ProgramOnBus(const Environment& environment) : Program(environment) {
        EXPECT_NO_THROW(
            runToEnd({"gdbus", "wait", "--session", "--timeout=10", "com.quillfen.Panewright"},
                     environment));
    }
};

/// The command beside a session bus, on which the program may run.
class Command : public testing::Test {
protected:
    Command() { window_.activate(); }

    void expect(const Call& call) const {
        std::vector<std::string> command{PANEWRIGHT_PROGRAM};
        command.insert(command.end(), call.arguments.begin(), call.arguments.end());
        ChildProcess process(command, environment_);
        const auto what = testing::PrintToString(call.arguments);
        EXPECT_THAT(process.waitForEnd(kLongest), Optional(call.status)) << what;
        EXPECT_THAT(process.standardOutput(), HasSubstr(call.output)) << what;
        EXPECT_EQ(process.standardOutput().empty(), call.output.empty()) << what;
        EXPECT_THAT(process.standardError(), HasSubstr(call.error)) << what;
        EXPECT_EQ(process.standardError().empty(), call.error.empty()) << what;
    }
    void expectRefusedOutput(const std::string& arguments) const {
        ChildProcess shell({"sh", "-c", PANEWRIGHT_PROGRAM " " + arguments}, environment_);
        EXPECT_THAT(shell.waitForEnd(), Optional(74)) << arguments;
    }
    void expectWindow(const std::string& title) const {
        EXPECT_TRUE(eventually([&] {
            // Fails, too, where a window ends while it looks.
            ChildProcess search({"xdotool", "search", "--onlyvisible", "--name", title},
                                environment_);
            return search.waitForEnd() == 0;
        })) << title;
    }

    /// More than the command waits for an answer.
    static constexpr std::chrono::milliseconds kLongest{8000};
    Desktop desktop_;
    TestClient window_{desktop_.display()};
    ChildProcess bus_{kSessionBus, desktop_.environment()};
    Environment environment_ = [this] {
        auto environment = desktop_.environment();
        environment["DBUS_SESSION_BUS_ADDRESS"] = bus_.firstLine();
        return environment;
    }();
};

TEST_F(Command, SaysWhyNothingAnswers) {
    expect({{"apply", "Full Screen"}, 3, "", "not running"});
    expect({{"appply"}, 64, "", "'appply'"});
    expect({{"apply", "\xff"}, 64, "", "UTF-8"});
    expect({{"list", "--help"}, 0, "--json", ""});
    expectRefusedOutput("--help >&-");
    expectRefusedOutput("--version >/dev/full");
    {
        ProgramOnBus program(environment_);
        program->sendSignal(SIGSTOP);
        expect({{"next-display"}, 3, "", "no answer"});
    }
    bus_.sendSignal(SIGSTOP);
    expect({{"list"}, 3, "", "no answer"});
    bus_.sendSignal(SIGCONT);
    environment_["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nonexistent/bus";
    expect({{"quit"}, 3, "", "session bus"});
}

/// What stops the bus's library from reading must not stop it for ever.
TEST_F(Command, ReachesTheProgramAfterACallOfAnEnormousName) {
    const ProgramOnBus program(environment_);
    constexpr const char* kName = "com.quillfen.Panewright";
    const std::string address = environment_["DBUS_SESSION_BUS_ADDRESS"];
    auto* const bus = dbus_connection_open_private(address.c_str(), nullptr);
    ASSERT_TRUE(bus && dbus_bus_register(bus, nullptr));
    auto* const call =
        dbus_message_new_method_call(kName, "/com/quillfen/Panewright", kName, "ApplyWindowState");
    const std::string name(100'000'000, 'a');
    const char* const text = name.c_str();
    dbus_message_append_args(call, DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
    EXPECT_FALSE(dbus_connection_send_with_reply_and_block(bus, call, -1, nullptr));
    dbus_message_unref(call);
    dbus_connection_close(bus);
    dbus_connection_unref(bus);
    expect({{"list", "--names"}, 0, "Full Screen", ""});
}

TEST_F(Command, DoesWhatTheProgramCanDo) {
    ProgramOnBus program(environment_);
    expect({{"apply", "Centered Small"}, 0, "", ""});
    EXPECT_EQ(frameOnceItIs(kSmall, desktop_.x(), window_.window()), kSmall);
    expect({{"apply", "centered small"}, 1, "", "no such"});
    expect({{"apply", "", "--application", ""}, 1, "", "no such"});
    expect({{"apply", "--application=x", "--", "-a"}, 1, "", "no such"});
    expect({{"list"}, 0, "Centered Large", ""});
    expect({{"list", "--names"}, 0, "\nCentered Medium\n", ""});
    expect({{"list", "--json"}, 0, R"("scale": [0.65, 0.65])", ""});
    expectRefusedOutput("list >&-");                // which is not the bus's connection then
    expect({{"next-display"}, 1, "", "not moved"}); // there is none
    expect({{"menu", "--flat"}, 0, "", ""});
    expectWindow("^Panewright menu");
    desktop_.keyboard().tap(KEY_ESC);
    expect({{"settings"}, 0, "", ""});
    expectWindow("^Settings");
    expect({{"save"}, 0, "", ""});
    expectWindow("Save");
    ChildProcess successor({"sh", "-c", PANEWRIGHT_PROGRAM " quit && exec " PANEWRIGHT_PROGRAM},
                           environment_);
    EXPECT_THAT(program->waitForEnd(), Optional(0));
    EXPECT_TRUE(eventually([&] { return successor.standardError() == "panewright: ready\n"; }));
    runToEnd({"gdbus", "wait", "--session", "com.quillfen.Panewright"}, environment_);
    expect({{"quit"}, 0, "", ""});
    EXPECT_THAT(successor.waitForEnd(), Optional(0));
    expect({{"quit"}, 3, "", "not running"});
}

TEST_F(Command, OpensAMenuThatLooksForANewerVersion) {
    const TemporaryFolder site;
    setContent(site.path() / "feed.xml",
               "<rss><channel><item><version>99</version></item></channel></rss>");
    ChildProcess server(
        {PYTHON, "-u", "-m", "http.server", "--bind", "127.0.0.1", "--directory", site.path(), "0"},
        environment_);
    const auto line = server.firstLine(); // Serving HTTP on 127.0.0.1 port 41234 (http...
    const auto port = line.substr(line.find("port ") + 5);
    const auto settings = std::filesystem::path(environment_["XDG_CONFIG_HOME"]) / "Panewright";
    std::filesystem::create_directories(settings);
    setContent(settings / "Panewright.conf", "[General]\nUpdateFeed=http://127.0.0.1:" +
                                                 port.substr(0, port.find(' ')) + "/feed.xml\n");
    const ProgramOnBus program(environment_);
    expect({{"menu"}, 0, "", ""});
    expectWindow("^Panewright menu");
    desktop_.run({"xdotool", "type", "Check"});
    desktop_.keyboard().tap(KEY_ENTER);
    expectWindow("^Panewright$");
    EXPECT_THAT(server.standardError(), HasSubstr("GET /feed.xml"));
}

} // namespace
} // namespace panewright::test
