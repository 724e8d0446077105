#include "desktop/memory/memory_standard_folders.h"
#include "desktop/memory/memory_user_defaults.h"
#include "model/model.h"
#include "model/window_state.h"
#include "system/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <memory>

namespace panewright::test {
namespace {

constexpr std::uint64_t kOption = 0x80000;
constexpr std::uint64_t kDigit2 = 19;
constexpr std::uint64_t kDigit5 = 23;

/// Real programs of several toolkits, each with a state of its own on Alt+5.
class Applications : public testing::Test {
protected:
    struct Application {
        std::string bundleId;
        std::vector<std::string> command;
        Frame own;
    };

    Applications() {
        const std::filesystem::path data = desktop_.environment()["XDG_DATA_HOME"];
        const MemoryStandardFolders folders(data);
        MemoryUserDefaults defaults;
        Model model(folders, defaults);
        for (const auto& application : applications_) {
            add(model, application.bundleId, application.own, kDigit5);
        }
        add(model, std::nullopt, kGlobal, kDigit5);
        add(model, std::nullopt, kGlobal, kDigit2); // in the place of "Centered Large"
        model.save();
        model.finishSaving();
    }

    static void add(Model& model, const std::optional<std::string>& bundleId, const Frame& frame,
                    std::uint64_t keyCode) {
        auto state = WindowState::windowStateIsDefault(false, !bundleId);
        state->setWindowStateName(bundleId.value_or("Everywhere"));
        state->setAppBundleId(bundleId);
        state->setOriginalWindowRect({static_cast<double>(frame.x), static_cast<double>(frame.y),
                                      static_cast<double>(frame.width),
                                      static_cast<double>(frame.height)});
        state->setOriginalQuartzDisplayBounds({0, 0, 1600, 900});
        state->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(keyCode, kOption));
        model.addWindowState(state);
    }

    std::vector<std::uint32_t> windows() const {
        return desktop_.x().property(desktop_.x().root(), "_NET_CLIENT_LIST");
    }

    /// Starts the program and gives its window, which is then the active one.
    xcb_window_t start(const Application& application) {
        const auto before = windows().size();
        processes_.push_back(
            std::make_unique<ChildProcess>(application.command, desktop_.environment()));
        EXPECT_TRUE(eventually([&] { return windows().size() > before; })) << application.bundleId;
        activate(windows().back());
        return windows().back();
    }

    void activate(xcb_window_t window) const {
        constexpr std::uint32_t kPager = 2;
        EXPECT_TRUE(eventually([&] {
            desktop_.x().sendToWindowManager(window, "_NET_ACTIVE_WINDOW",
                                             {kPager, XCB_CURRENT_TIME});
            return desktop_.x().property(desktop_.x().root(), "_NET_ACTIVE_WINDOW") ==
                   std::vector<std::uint32_t>{window};
        }));
    }

    /// Sizes are left out: a terminal takes whole cells.
    void expectOrigin(std::uint16_t key, xcb_window_t window, const Frame& frame) const {
        desktop_.keyboard().tap(KEY_LEFTALT, key);
        EXPECT_TRUE(eventually([&] {
            const Frame found = outerFrame(desktop_.x(), window);
            return found.x == frame.x && found.y == frame.y;
        })) << "key "
            << key << " " << outerFrame(desktop_.x(), window);
    }

    static constexpr Frame kGlobal{.x = 7, .y = 9, .width = 640, .height = 480};

    Desktop desktop_;
    std::vector<Application> applications_{
        {"Terminal", {"xterm", "-class", "Terminal"}, {50, 60, 500, 400}},
        {"Gtk", {"yad", "--class=Gtk", "--text-info"}, {150, 160, 700, 500}},
        {"qt_window", {QT_WINDOW}, {250, 260, 600, 400}},
    };
    std::vector<std::unique_ptr<ChildProcess>> processes_;
    /// A program that has no states.
    TestClient stranger_{desktop_.display()};
};

TEST_F(Applications, HaveTheirOwnStateWhileTheyAreInFront) {
    stranger_.activate();
    const Program program(desktop_);
    expectOrigin(KEY_5, stranger_.window(), kGlobal);
    std::vector<xcb_window_t> opened;
    for (const auto& application : applications_) {
        opened.push_back(start(application));
        expectOrigin(KEY_5, opened.back(), application.own);
    }
    for (std::size_t i = 0; i < opened.size(); ++i) {
        activate(opened[i]);
        expectOrigin(KEY_2, opened[i], kGlobal);
        expectOrigin(KEY_5, opened[i], applications_[i].own);
    }
}

TEST_F(Applications, MayCloseTheirLastWindow) {
    stranger_.activate();
    Program program(desktop_);
    const auto window = start(applications_.front());
    expectOrigin(KEY_5, window, applications_.front().own);
    processes_.clear();
    EXPECT_TRUE(eventually([&] { return windows().size() == 1; }));
    desktop_.keyboard().tap(KEY_LEFTALT, KEY_5);
    stranger_.activate();
    expectOrigin(KEY_5, stranger_.window(), kGlobal);
    EXPECT_EQ(program->exitStatus(), std::nullopt);
}

} // namespace
} // namespace panewright::test
