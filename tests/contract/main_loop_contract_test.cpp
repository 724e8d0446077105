// What every main loop does.

#include "desktop/memory/memory_main_loop.h"
#include "desktop/qt/qt_main_loop.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <memory>
#include <thread>

namespace panewright {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class MainLoopContract : public testing::TestWithParam<const char*> {
protected:
    MainLoopContract() {
        if (GetParam() == std::string("Qt")) {
            application_ = std::make_unique<QCoreApplication>(count_, arguments_.data());
            loop_ = std::make_unique<QtMainLoop>();
        }
    }
    auto call(int number) {
        return [this, number] { calls_.push_back(number); };
    }

    int count_ = 1;
    std::array<char, 5> name_{"test"};
    std::array<char*, 2> arguments_{name_.data(), nullptr};
    std::unique_ptr<QCoreApplication> application_;
    std::unique_ptr<MainLoop> loop_ = std::make_unique<MemoryMainLoop>();
    std::vector<int> calls_;
};

TEST_P(MainLoopContract, RunsPostsInOrderAndTimersOnceInThatOfTheirTimes) {
    auto released = loop_->after(20ms, call(9));
    std::thread([this] { loop_->post(call(1)); }).join();
    loop_->post([&] {
        calls_.push_back(2);
        released.release();
        loop_->post(call(4));
    });
    loop_->post(call(3));
    Registration timer = loop_->after(10ms, [&] {
        calls_.push_back(5);
        timer = loop_->after(30ms, [this] { loop_->quit(6); }); // lets itself go
    });
    EXPECT_EQ(loop_->run(), 6);
    EXPECT_THAT(calls_, ElementsAre(1, 2, 3, 4, 5));
}

TEST_P(MainLoopContract, WatchesADescriptorUntilReleasedAndReturnsTheFirstExitCode) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    Registration watch = loop_->whenReadable(ends[0], [&] {
        char byte = 0;
        ASSERT_EQ(read(ends[0], &byte, 1), 1);
        calls_.push_back(byte);
        if (byte == 2) {
            watch.release();
            loop_->quit(3);
            loop_->quit(4);
        }
    });
    ASSERT_EQ(write(ends[1], "\1\2\5", 3), 3);
    EXPECT_EQ(loop_->run(), 3);
    EXPECT_THAT(calls_, ElementsAre(1, 2));
    close(ends[0]);
    close(ends[1]);
}

INSTANTIATE_TEST_SUITE_P(Everywhere, MainLoopContract, testing::Values("memory", "Qt"),
                         [](const auto& loop) { return std::string(loop.param); });

} // namespace
} // namespace panewright
