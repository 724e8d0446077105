// How every desktop gives our program the keyboard and takes it back.

#include "contract/foreign_program.h"
#include "contract/x11_rig.h"
#include "desktop/memory/memory_desktop.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

/// A window of each of two other programs, 0 and 1, and one of ours.
class WorkspaceRig {
public:
    virtual ~WorkspaceRig() = default;
    virtual Workspace& workspace() = 0;
    virtual void activate(int other) = 0;
    virtual void showOurs() = 0;
    virtual void closeOurs() = 0;
    /// Whether the window is active and the workspace says that its program is frontmost.
    virtual bool isInFront(int other) = 0;
    virtual bool areOursInFront() = 0;
    virtual bool eventually(const std::function<bool()>& condition) = 0;
};

class MemoryWorkspaceRig : public WorkspaceRig {
public:
    MemoryWorkspaceRig() {
        for (const ProcessId pid : {kFirstPid, kFirstPid + 1}) {
            desktop_.windows.addApplication({pid, std::nullopt, std::nullopt});
            others_.push_back(desktop_.windows.openWindow({.pid = pid}));
        }
    }
    Workspace& workspace() override { return desktop_.workspace; }
    void activate(int other) override { desktop_.windows.activateWindow(others_.at(other)); }
    void showOurs() override {
        ours_ = desktop_.windows.openWindow({.pid = MemoryDesktop::kOwnPid});
    }
    void closeOurs() override { desktop_.windows.closeWindow(ours_); }
    bool isInFront(int other) override { return isFrontmost(kFirstPid + other); }
    bool areOursInFront() override { return isFrontmost(MemoryDesktop::kOwnPid); }
    bool eventually(const std::function<bool()>& condition) override {
        desktop_.mainLoop.runPending();
        return condition();
    }

private:
    static constexpr ProcessId kFirstPid = 100;

    bool isFrontmost(ProcessId pid) const {
        const auto frontmost = desktop_.workspace.frontmostApplication();
        return frontmost && frontmost->processIdentifier == pid;
    }

    MemoryDesktop desktop_;
    std::vector<MemoryWindowId> others_;
    MemoryWindowId ours_ = 0;
};

class X11WorkspaceRig : public WorkspaceRig {
public:
    explicit X11WorkspaceRig(std::string_view windowManager) : rig_({}, windowManager) {}
    Workspace& workspace() override { return rig_.ports->workspace; }
    void activate(int other) override {
        rig_.desktop.x().sendToWindowManager(others_.at(other), "_NET_ACTIVE_WINDOW",
                                             {2, XCB_CURRENT_TIME});
    }
    void showOurs() override { ours_.emplace(rig_.desktop.display()); }
    void closeOurs() override { ours_->destroy(); }
    bool isInFront(int other) override {
        return isActive(others_.at(other)) && frontmostId() == std::to_string(other);
    }
    bool areOursInFront() override {
        return isActive(ours_->window()) && frontmostId() == "com.quillfen.Panewright";
    }
    bool eventually(const std::function<bool()>& condition) override {
        return rig_.eventually(condition);
    }

private:
    bool isActive(xcb_window_t window) const {
        const auto active =
            rig_.desktop.x().property(rig_.desktop.x().root(), "_NET_ACTIVE_WINDOW");
        return !active.empty() && active.front() == window;
    }
    std::optional<std::string> frontmostId() {
        const auto frontmost = workspace().frontmostApplication();
        return frontmost ? frontmost->bundleIdentifier : std::nullopt;
    }

    X11Rig rig_;
    ForeignProgram first_{rig_.desktop.display(), "0"};
    ForeignProgram second_{rig_.desktop.display(), "1"};
    std::array<xcb_window_t, 2> others_{first_.open(300, 200, false),
                                        second_.open(300, 200, false)};
    std::optional<test::TestClient> ours_;
};

class WorkspaceContract : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (GetParam() == std::string("memory")) {
            rig_ = std::make_unique<MemoryWorkspaceRig>();
        } else if (!test::WindowManager::isInstalled(GetParam())) {
            GTEST_SKIP() << GetParam() << " is not installed";
        } else {
            rig_ = std::make_unique<X11WorkspaceRig>(GetParam());
        }
    }

    void activate(int other) {
        ASSERT_TRUE(rig_->eventually([&] {
            rig_->activate(other); // again: marco refuses what is older than the last action
            return rig_->isInFront(other);
        }));
    }
    void expectOursInFront() {
        ASSERT_TRUE(rig_->eventually([&] { return rig_->areOursInFront(); }));
    }
    /// Also a while later.
    void expectInFront(int other) {
        EXPECT_TRUE(rig_->eventually([&] { return rig_->isInFront(other); }));
        for (int turn = 0; turn < 50; ++turn) {
            rig_->eventually([&, asked = false]() mutable { return std::exchange(asked, true); });
        }
        EXPECT_TRUE(rig_->isInFront(other));
    }

    std::unique_ptr<WorkspaceRig> rig_;
};

TEST_P(WorkspaceContract, GivesTheKeyboardBackToTheWindowThatHadIt) {
    for (const std::string order : {"stays", "closes before", "closes after", "stays"}) {
        SCOPED_TRACE(order);
        activate(1);
        activate(0); // which a manager that forgets goes back to
        activate(1);
        int activations = 0;
        const auto registration = rig_->workspace().onApplicationActivated([&] { ++activations; });
        const bool isWished = order == "closes after"; // before it is there
        if (isWished) {
            rig_->workspace().bringThisApplicationToFront();
        }
        rig_->showOurs();
        if (!isWished) {
            rig_->workspace().bringThisApplicationToFront();
        }
        expectOursInFront();
        EXPECT_EQ(activations, 1);
        if (order == "closes before") {
            rig_->closeOurs();
        }
        rig_->workspace().hideThisApplication();
        if (order == "closes after") {
            rig_->closeOurs();
        }
        expectInFront(1);
        EXPECT_GE(activations, 2);               // a manager may have gone elsewhere in between
        rig_->workspace().hideThisApplication(); // another program is in front
        expectInFront(1);
    }
}

INSTANTIATE_TEST_SUITE_P(Everywhere, WorkspaceContract,
                         testing::Values("memory", "openbox", "xfwm4", "marco", "i3"),
                         [](const auto& desktop) { return std::string(desktop.param); });

} // namespace
} // namespace panewright
