// What every main loop does.

#include "desktop/memory/memory_main_loop.h"
#include "desktop/qt/qt_main_loop.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

#include <memory>
#include <thread>
#include <unistd.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

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
    void call(int number) { calls_.push_back(number); }

    int count_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QCoreApplication> application_;
    std::unique_ptr<MainLoop> loop_;
    std::vector<int> calls_;
};

TEST_P(MainLoopContract, RunsWhatIsPostedLaterAndInOrderAlsoByOtherThreads) {
    std::thread([this] { loop_->post([this] { call(1); }); }).join();
    loop_->post([this] {
        loop_->post([this] { call(4); });
        call(2);
    });
    loop_->post([this] { call(3); });
    EXPECT_THAT(calls_, ElementsAre());
    loop_->post([this] { loop_->post([this] { loop_->quit(0); }); });
    EXPECT_EQ(loop_->run(), 0);
    EXPECT_THAT(calls_, ElementsAre(1, 2, 3, 4));
}

TEST_P(MainLoopContract, ReturnsTheFirstExitCodeAlsoWhenToldToQuitBefore) {
    loop_->quit(3);
    loop_->quit(4);
    EXPECT_EQ(loop_->run(), 3);
}

TEST_P(MainLoopContract, RunsTimersOnceInTheOrderOfTheirTimesUnlessReleased) {
    Registration late = loop_->after(40ms, [&] {
        late = loop_->after(1ms, [this] { loop_->quit(0); }); // releases itself
        call(2);
    });
    const auto early = loop_->after(10ms, [this] { call(1); });
    loop_->after(20ms, [this] { call(9); }).release();
    loop_->run();
    EXPECT_THAT(calls_, ElementsAre(1, 2));
}

TEST_P(MainLoopContract, WatchesADescriptorUntilReleased) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    Registration watch = loop_->whenReadable(ends[0], [&] {
        char byte = 0;
        ASSERT_EQ(read(ends[0], &byte, 1), 1);
        call(byte);
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

INSTANTIATE_TEST_SUITE_P(Everywhere, MainLoopContract, testing::Values("memory", "Qt"),
                         [](const auto& loop) { return std::string(loop.param); });

} // namespace
} // namespace panewright
