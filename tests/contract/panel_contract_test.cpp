// What a desktop tells of its panel: the room that it takes, and the tray on it.

#include "contract/x11_rig.h"
#include "support/print_geometry.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

/// The window of a panel with a tray.
class Panel {
public:
    explicit Panel(const std::string& display)
        : x_(display), window_(xcb_generate_id(x_.connection())) {
        const std::array<std::uint32_t, 1> grey{0x808080};
        xcb_create_window(x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(), 0, 0, 1600, 30,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                          grey.data());
        x_.setProperty(window_, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                       {x_.atom("_NET_WM_WINDOW_TYPE_DOCK")});
        x_.setProperty(window_, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                       {0, 0, 30, 0, 0, 0, 0, 0, 0, 1599, 0, 0});
        std::vector<std::uint32_t> hints(18);
        hints[0] = 1; // the position is the user's
        x_.setProperty(window_, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
        xcb_map_window(x_.connection(), window_);
        const auto selection = x_.atom("_NET_SYSTEM_TRAY_S0");
        xcb_set_selection_owner(x_.connection(), window_, selection, XCB_CURRENT_TIME);
        x_.sendToWindowManager(x_.root(), "MANAGER", {XCB_CURRENT_TIME, selection, window_});
        x_.synchronize();
    }

private:
    test::XClient x_;
    xcb_window_t window_;
};

/// A display of 1600 by 900 points, at whose top a test puts a grey panel, 30 points high.
class PanelContract : public testing::TestWithParam<const char*> {
protected:
    /// Takes over from one that is there.
    void putUp() {
        auto next = std::make_unique<Panel>(rig_.desktop.display());
        panel_ = std::move(next);
    }

    X11Rig rig_{{}, GetParam()};
    std::unique_ptr<Panel> panel_;
};

TEST_P(PanelContract, IsFollowedAsItComesAndGoes) {
    SystemTray& tray = rig_.ports->tray;
    WorkAreas& areas = rig_.ports->workAreas;
    int changes = 0;
    const auto registration = tray.onChange([&] { ++changes; });
    const auto expect = [&](bool isThere, int told) {
        const Rect left = isThere ? Rect{0, 30, 1600, 870} : Rect{0, 0, 1600, 900};
        const auto area = [&] {
            return areas.workArea(rig_.ports->displays.activeDisplays(1).at(0));
        };
        EXPECT_TRUE(rig_.eventually([&] { return changes == told && area() == left; })) << changes;
        EXPECT_EQ(area(), left);
        EXPECT_EQ(tray.isPresent(), isThere);
    };
    expect(false, 0);
    EXPECT_EQ(areas.workArea(kNoDisplay), Rect{});
    putUp();
    expect(true, 1);
    EXPECT_TRUE(rig_.eventually([&] {
        return std::abs(rig_.ports->brightness.brightnessAt({800, 15}).value_or(0) - 0.5) < 0.01;
    }));
    putUp();
    expect(true, 2);
    panel_.reset();
    expect(false, 3);
}

INSTANTIATE_TEST_SUITE_P(Everywhere, PanelContract, testing::Values("openbox", "i3"),
                         [](const auto& desktop) { return std::string(desktop.param); });

} // namespace
} // namespace panewright
