// What every main loop does.

#include "desktop/memory/memory_main_loop.h"
#include "desktop/qt/qt_main_loop.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <unistd.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class MainLoopContract : public testing::TestWithParam<const char*> {
protected:
    MainLoopContract() {
        if (GetParam() == std::string("memory")) {
            loop_ = std::make_unique<MemoryMainLoop>();
        } else {
            application_ = std::make_unique<QCoreApplication>(count_, arguments_);
            loop_ = std::make_unique<QtMainLoop>();
        }
    }

    int count_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QCoreApplication> application_;
    std::unique_ptr<MainLoop> loop_;
    std::vector<int> calls_;
};

TEST_P(MainLoopContract, RunsWhatIsPostedLaterAndInOrder) {
    loop_->post([this] {
        loop_->post([this] { calls_.push_back(3); });
        calls_.push_back(1);
    });
    loop_->post([this] { calls_.push_back(2); });
    EXPECT_THAT(calls_, IsEmpty());
    loop_->post([this] { loop_->post([this] { loop_->quit(0); }); });
    EXPECT_EQ(loop_->run(), 0);
    EXPECT_THAT(calls_, ElementsAre(1, 2, 3));
}

TEST_P(MainLoopContract, ReturnsTheFirstExitCodeAlsoWhenToldToQuitBefore) {
    loop_->quit(3);
    loop_->quit(4);
    EXPECT_EQ(loop_->run(), 3);
}

TEST_P(MainLoopContract, RunsTimersOnceInTheOrderOfTheirTimes) {
    const auto late = loop_->after(40ms, [this] {
        calls_.push_back(2);
        loop_->quit(0);
    });
    const auto early = loop_->after(10ms, [this] { calls_.push_back(1); });
    auto released = loop_->after(20ms, [this] { calls_.push_back(9); });
    released.release();
    loop_->run();
    EXPECT_THAT(calls_, ElementsAre(1, 2));
}

TEST_P(MainLoopContract, LetsATimerReleaseItself) {
    Registration timer;
    timer = loop_->after(1ms, [&] {
        timer = loop_->after(1ms, [this] { loop_->quit(0); });
        calls_.push_back(1);
    });
    loop_->run();
    EXPECT_THAT(calls_, ElementsAre(1));
}

TEST_P(MainLoopContract, WatchesADescriptorUntilReleased) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    Registration watch = loop_->whenReadable(ends[0], [&] {
        char byte = 0;
        ASSERT_EQ(read(ends[0], &byte, 1), 1);
        calls_.push_back(byte);
        if (byte == 2) {
            watch.release();
            loop_->post([this] { loop_->quit(0); });
        }
    });
    const char bytes[] = {1, 2, 3};
    ASSERT_EQ(write(ends[1], bytes, sizeof bytes), 3);
    loop_->run();
    EXPECT_THAT(calls_, ElementsAre(1, 2));
    close(ends[0]);
    close(ends[1]);
}

TEST_P(MainLoopContract, TakesPostsFromOtherThreads) {
    std::thread other([this] { loop_->post([this] { calls_.push_back(1); }); });
    other.join();
    loop_->post([this] { loop_->quit(0); });
    loop_->run();
    EXPECT_THAT(calls_, ElementsAre(1));
}

INSTANTIATE_TEST_SUITE_P(Everywhere, MainLoopContract, testing::Values("memory", "Qt"),
                         [](const auto& loop) { return std::string(loop.param); });

} // namespace
} // namespace panewright
