#include "system/program.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>

namespace panewright::test {
namespace {

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;
using testing::Optional;

namespace fs = std::filesystem;

TEST(Crash, LeavesAReadableReportHoweverItCrashes) {
    const std::string place = "crashing_program \\+0x";
    const struct {
        const char* way;
        int signal;
        std::string report;
    } cases[] = {
        {"bad pointer", SIGSEGV, "mapped there, address 0x10(.|\n)*useBadPointer(.|\n)* main\n"},
        {"bad function", SIGSEGV, "Stack\n +0  \\?\n +0x10, where no program is(.|\n)* main\n"},
        {"full stack", SIGSEGV, "fillStack(.|\n)*\n 99  [^\n]*fillStack(.|\n)*and more"},
        {"full stack in a thread", SIGSEGV, "fillStack(.|\n)*\n 99  [^\n]*fillStack"},
        {"abort", SIGABRT, "SIGABRT \\(6\\), sent by the program itself(.|\n)* main\n"},
        {"exception", SIGABRT, "Exception  std::runtime_error: what it says\n(.|\n)* main\n"},
        {"exception in a thread", SIGABRT, "Exception  int\n(.|\n)*crashInThread"},
        {"two threads", SIGSEGV, "useBadPointer"},
    };
    for (const auto& [way, signal, expected] : cases) {
        SCOPED_TRACE(way);
        const PrivateHome home;
        const TemporaryFolder folder;
        ChildProcess crashing({CRASHING_PROGRAM, folder.path(), way}, home.environment());
        EXPECT_THAT(crashing.waitForEnd(), Optional(-signal));
        auto report = runToEnd({CRASH_REPORT, folder.path()}, {});
        EXPECT_EQ(countOfFiles(folder.path()), 1);
        report.pop_back();
        EXPECT_EQ(modeOf(report), 0600);
        EXPECT_THAT(contentOf(report), AllOf(HasSubstr("Crashing 1.0 crashed"),
                                             HasSubstr("it will crash"), ContainsRegex(expected),
                                             ContainsRegex(place), Not(HasSubstr("breaks off"))));
    }
}

TEST(Crash, IsReportedByTheNextStart) {
    const Desktop desktop;
    const fs::path crashes =
        fs::path(desktop.environment()["HOME"]) / ".local/state/Panewright/crashes";
    {
        Program program(desktop);
        // Of a signal to the process, any thread may tell.
        syscall(SYS_tgkill, program->pid(), program->pid(), SIGSEGV);
        EXPECT_THAT(program->waitForEnd(), Optional(-SIGSEGV));
    }
    EXPECT_EQ(modeOf(crashes), 0700);
    // A handler that got nowhere, and what others could put there.
    setContent(crashes / "raw-1", "");
    setContent(crashes / "raw-2", std::string(std::size_t{9} << 20, 'x'));
    fs::create_symlink("/dev/zero", crashes / "raw-link");
    Program program(desktop);
    ASSERT_TRUE(program->waitForErrorLine("panewright: an earlier run crashed: the report is "));
    EXPECT_TRUE(fs::remove(crashes / "raw-link"));
    ASSERT_TRUE(eventually([&] { return countOfFiles(crashes) == 3; }, kSlowestStart));
    fs::path report = crashes / "d";
    for (const auto& file : fs::directory_iterator(crashes)) {
        report = std::min(report, file.path());
    }
    EXPECT_THAT(contentOf(report), ContainsRegex("SIGSEGV \\(11\\), sent by process(.|\n)*  ready\n"
                                                 "(.|\n)*::run\\(\\)(.|\n)* main\n"));
    program->sendSignal(SIGTERM);
    EXPECT_THAT(program->waitForEnd(), Optional(0));
    EXPECT_EQ(countOfFiles(crashes), 3) << "a run that ends well leaves nothing";
}

} // namespace
} // namespace panewright::test
