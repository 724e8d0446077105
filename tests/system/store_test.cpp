#include "system/program.h"

#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

namespace panewright::test {
namespace {

using testing::HasSubstr;
using testing::Optional;

/// The store as the program keeps it for its user, made and looked at by others.
class Store : public testing::Test {
protected:
    Store() { std::filesystem::create_directories(file_.parent_path()); }

    void foreignStore(const std::string& command) const {
        runToEnd({PYTHON, FOREIGN_STORE, command, file_}, desktop_.environment());
    }

    Frame frameAfter(std::uint16_t key, const Frame& expected, const TestClient& window) const {
        desktop_.keyboard().tap(KEY_LEFTALT, key);
        return frameOnceItIs(expected, desktop_.x(), window.window());
    }

    Desktop desktop_;
    std::filesystem::path file_ = std::filesystem::path(desktop_.environment()["XDG_DATA_HOME"]) /
                                  "Panewright/keyEvents.data";
};

TEST_F(Store, OfAnotherWriterHoldsForItsProgramAloneAndStays) {
    constexpr Frame kCorner{.x = 40, .y = 60, .width = 500, .height = 400};
    constexpr Frame kCentredLarge{.x = 80, .y = 45, .width = 1440, .height = 810};
    foreignStore("write-own");
    TestClient stranger(desktop_.display());
    const TestClient own(desktop_.display(), {.title = "own", .windowClass = "Own"});
    for (const int end : {SIGTERM, SIGKILL, SIGTERM}) {
        own.activate();
        Program program(desktop_);
        EXPECT_EQ(frameAfter(KEY_5, kCorner, own), kCorner);
        EXPECT_EQ(frameAfter(KEY_2, kCentredLarge, own), kCentredLarge);

        stranger.activate();
        EXPECT_EQ(frameAfter(KEY_2, kCentredLarge, stranger), kCentredLarge);
        const int before = stranger.keyPresses();
        desktop_.keyboard().tap(KEY_LEFTALT, KEY_5);
        EXPECT_TRUE(eventually([&] { return stranger.keyPresses() > before; }));
        EXPECT_EQ(outerFrame(desktop_.x(), stranger.window()), kCentredLarge);

        program->sendSignal(end);
        EXPECT_THAT(program->waitForEnd(), Optional(end == SIGTERM ? 0 : -SIGKILL));
        EXPECT_NO_THROW(foreignStore("read"));
    }
}

TEST_F(Store, IsMadeForItsUserAloneAndWrittenBeforeTheEnd) {
    Program program(desktop_);
    program->sendSignal(SIGTERM);
    EXPECT_THAT(program->waitForEnd(), Optional(0));
    EXPECT_EQ(modeOf(file_), 0600);
    EXPECT_NO_THROW(foreignStore("read"));
}

TEST_F(Store, IsNotTouchedByASecondProgram) {
    const Program first(desktop_);
    ASSERT_TRUE(eventually([&] { return std::filesystem::exists(file_); }));
    std::filesystem::remove(file_);
    ChildProcess second({PANEWRIGHT_PROGRAM}, desktop_.environment());
    EXPECT_THAT(second.waitForEnd(), Optional(0));
    EXPECT_EQ(second.standardError(), "panewright: already running\n");
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(Store, StaysAsItIsWhenItIsDamaged) {
    setContent(file_, "damaged");
    Program program(desktop_);
    EXPECT_THAT(program->standardError(), HasSubstr("the file is damaged"));
    program->sendSignal(SIGTERM);
    EXPECT_THAT(program->waitForEnd(), Optional(0));
    EXPECT_EQ(contentOf(file_), "damaged");
}

} // namespace
} // namespace panewright::test
