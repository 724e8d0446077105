// How our program gets the keyboard under each window manager, and gives it back.

#include "contract/x11_rig.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// A window of each of two other programs, 0 and 1, the pointer over 0, and one of ours.
class WorkspaceContract : public testing::TestWithParam<const char*> {
protected:
    static constexpr std::uint32_t kFirstPid = 10'000'000; // no real process has such a number

    WorkspaceContract() {
        xcb_warp_pointer(x().connection(), XCB_NONE, x().root(), 0, 0, 0, 0, 200, 200);
        for (const std::uint32_t other : {0, 1}) {
            others_.push_back(client(kFirstPid + other, {100 + 500.0 * other, 100, 400, 300}));
        }
    }

    std::unique_ptr<test::TestClient> client(std::uint32_t pid, const Rect& frame) const {
        // What gets the focus has been given it.
        return std::make_unique<test::TestClient>(
            rig_.desktop.display(),
            test::ClientOptions{.client = frame, .pid = pid, .wantsFocus = false});
    }
    const test::XClient& x() const { return rig_.desktop.x(); }
    Workspace& port() { return rig_.ports->workspace; }
    void showOurs() {
        ours_ = client(static_cast<std::uint32_t>(getpid()), {100, 500, 300, 200});
        // When it closes, managers like to go to what it belongs to.
        x().setProperty(ours_->window(), "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW,
                        {others_[0]->window()});
        x().synchronize();
    }
    bool isInFront(const test::TestClient& client, ProcessId pid) {
        const auto frontmost = port().frontmostApplication();
        return client.isActive() && frontmost && frontmost->processIdentifier == pid;
    }
    bool isInFront(std::size_t other) {
        return isInFront(*others_.at(other), static_cast<ProcessId>(kFirstPid + other));
    }
    void activate(std::size_t other) {
        ASSERT_TRUE(rig_.eventually([&] { // again: marco refuses what is older than the last action
            x().activate(others_.at(other)->window());
            return isInFront(other);
        }));
    }
    /// Also a while later.
    void expectInFront(std::size_t other) {
        EXPECT_TRUE(rig_.eventually([&] { return isInFront(other); }));
        rig_.eventually([tries = 50]() mutable { return --tries == 0; });
        EXPECT_TRUE(isInFront(other));
    }

    // The server cannot tell that all windows are this process's: they say whose they are.
    X11Rig rig_{{.arguments = {"-extension", "X-Resource"}}, GetParam()};
    std::vector<std::unique_ptr<test::TestClient>> others_;
    std::unique_ptr<test::TestClient> ours_;
};

TEST_P(WorkspaceContract, GivesTheKeyboardBackToTheWindowThatHadIt) {
    for (const std::string order : {"stays", "closes before", "closes after", "stays"}) {
        SCOPED_TRACE(order);
        rig_.loop.advance(1s); // now nobody insists on the way back of the round before
        activate(1);
        activate(0); // which a manager that forgets goes back to
        activate(1);
        int activations = 0;
        const auto registration = port().onApplicationActivated([&] { ++activations; });
        const bool isOnlyAboutToBeShown = order == "closes after";
        if (isOnlyAboutToBeShown) {
            port().bringThisApplicationToFront();
            rig_.loop.advance(150ms);
        }
        showOurs();
        if (!isOnlyAboutToBeShown) {
            port().bringThisApplicationToFront();
        }
        ASSERT_TRUE(rig_.eventually([&] { return isInFront(*ours_, getpid()); }));
        EXPECT_EQ(activations, 1);
        if (order == "closes before") {
            ours_.reset();
        }
        port().hideThisApplication();
        if (order == "closes after") {
            ours_.reset();
        }
        expectInFront(1);
        EXPECT_GE(activations, 2);    // a manager may have gone elsewhere in between
        port().hideThisApplication(); // another program is in front
        expectInFront(1);
    }
}

TEST_P(WorkspaceContract, BringsForwardTheWindowThatAsksAndNotTheNewest) {
    activate(0);
    showOurs();
    const auto newest = client(static_cast<std::uint32_t>(getpid()), {900, 500, 300, 200});
    for (const auto* asking : {ours_.get(), newest.get(), ours_.get()}) {
        port().bringThisApplicationToFront();
        rig_.ports->ownWindows.makeKey(asking->window());
        EXPECT_TRUE(rig_.eventually([&] { return asking->isActive(); }));
        rig_.eventually([tries = 150]() mutable { return --tries == 0; });
        EXPECT_TRUE(asking->isActive());
    }
}

INSTANTIATE_TEST_SUITE_P(Everywhere, WorkspaceContract,
                         testing::Values("openbox", "xfwm4", "marco", "i3"),
                         [](const auto& desktop) { return std::string(desktop.param); });

} // namespace
} // namespace panewright
