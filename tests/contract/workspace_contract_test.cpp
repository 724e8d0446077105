// How every desktop gives our program the keyboard and takes it back.

#include "contract/x11_rig.h"
#include "desktop/memory/memory_desktop.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace panewright {
namespace {

/// A window of each of two other programs, 0 and 1, and one of ours.
class WorkspaceContract : public testing::TestWithParam<const char*> {
protected:
    static constexpr ProcessId kFirstPid = 10'000'000; // no real process has such a number

    void SetUp() override {
        if (GetParam() == std::string("memory")) {
            for (const int other : {0, 1}) {
                memory_.windows.addApplication({kFirstPid + other, std::nullopt, std::nullopt});
                others_.push_back(memory_.windows.openWindow({.pid = kFirstPid + other}));
            }
            return;
        }
        // The server cannot tell that all windows are this process's: they say whose they are.
        x11_.emplace(test::Screen{.arguments = {"-extension", "X-Resource"}}, GetParam());
        for (const int other : {0, 1}) {
            clients_.push_back(client(static_cast<std::uint32_t>(kFirstPid + other)));
            others_.push_back(clients_.back()->window());
        }
    }

    std::unique_ptr<test::TestClient> client(std::uint32_t pid) const {
        return std::make_unique<test::TestClient>(x11_->desktop.display(),
                                                  test::ClientOptions{.pid = pid});
    }
    Workspace& port() {
        return x11_ ? static_cast<Workspace&>(x11_->ports->workspace) : memory_.workspace;
    }
    void showOurs() {
        if (x11_) {
            ours_ = client(static_cast<std::uint32_t>(getpid()));
        } else {
            memoryOurs_ = memory_.windows.openWindow({.pid = MemoryDesktop::kOwnPid});
        }
    }
    void closeOurs() {
        if (x11_) {
            ours_.reset();
        } else {
            memory_.windows.closeWindow(memoryOurs_);
        }
    }
    template <class Condition>
    bool eventually(Condition condition) {
        memory_.mainLoop.runPending();
        return x11_ ? x11_->eventually(condition) : condition();
    }
    bool isFrontmost(ProcessId pid, xcb_window_t window) {
        const auto frontmost = port().frontmostApplication();
        return frontmost && frontmost->processIdentifier == pid &&
               (!x11_ || x11_->desktop.x().activeWindow() == window);
    }
    bool isInFront(std::size_t other) {
        return isFrontmost(kFirstPid + static_cast<ProcessId>(other), others_.at(other));
    }

    void activate(std::size_t other) {
        ASSERT_TRUE(eventually([&] {
            if (x11_) { // again: marco refuses what is older than the user's last action
                x11_->desktop.x().activate(others_.at(other));
            } else {
                memory_.windows.activateWindow(others_.at(other));
            }
            return isInFront(other);
        }));
    }
    void expectOursInFront() {
        ASSERT_TRUE(eventually([&] {
            return x11_ ? isFrontmost(getpid(), ours_->window())
                        : isFrontmost(MemoryDesktop::kOwnPid, 0);
        }));
    }
    /// Also a while later.
    void expectInFront(std::size_t other) {
        EXPECT_TRUE(eventually([&] { return isInFront(other); }));
        for (int turn = 0; turn < 50; ++turn) {
            eventually([asked = false]() mutable { return std::exchange(asked, true); });
        }
        EXPECT_TRUE(isInFront(other));
    }

    MemoryDesktop memory_;
    std::optional<X11Rig> x11_;
    std::vector<std::unique_ptr<test::TestClient>> clients_;
    std::vector<std::uint32_t> others_;
    std::unique_ptr<test::TestClient> ours_;
    MemoryWindowId memoryOurs_ = 0;
};

TEST_P(WorkspaceContract, GivesTheKeyboardBackToTheWindowThatHadIt) {
    for (const std::string order : {"stays", "closes before", "closes after", "stays"}) {
        SCOPED_TRACE(order);
        activate(1);
        activate(0); // which a manager that forgets goes back to
        activate(1);
        int activations = 0;
        const auto registration = port().onApplicationActivated([&] { ++activations; });
        const bool isOnlyAboutToBeShown = order == "closes after";
        if (isOnlyAboutToBeShown) {
            port().bringThisApplicationToFront();
        }
        showOurs();
        if (!isOnlyAboutToBeShown) {
            port().bringThisApplicationToFront();
        }
        expectOursInFront();
        EXPECT_EQ(activations, 1);
        if (order == "closes before") {
            closeOurs();
        }
        port().hideThisApplication();
        if (order == "closes after") {
            closeOurs();
        }
        expectInFront(1);
        EXPECT_GE(activations, 2);    // a manager may have gone elsewhere in between
        port().hideThisApplication(); // another program is in front
        expectInFront(1);
    }
}

INSTANTIATE_TEST_SUITE_P(Everywhere, WorkspaceContract,
                         testing::Values("memory", "openbox", "xfwm4", "marco", "i3"),
                         [](const auto& desktop) { return std::string(desktop.param); });

} // namespace
} // namespace panewright
