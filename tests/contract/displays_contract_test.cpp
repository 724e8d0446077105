// What every desktop tells of its displays, and X11 of a panel: the room that it takes, and the
// tray on it.

#include "contract/desktop_driver.h"
#include "contract/x11_rig.h"
#include "support/panel.h"
#include "support/print_geometry.h"

namespace panewright {
namespace {

class DisplaysContract : public DesktopContract {};

TEST_P(DisplaysContract, KnowWhatTheyHoldAndFollowTheirUnplugging) {
    constexpr Rect kLeft{0, 0, 800, 900};
    constexpr Rect kRight{800, 0, 800, 900};
    int changes = 0;
    const auto registration = ports_.displays.onChange([&] { ++changes; });
    driver_->setDisplays({kLeft, kRight});
    ASSERT_TRUE(driver_->eventually([&] { return changes > 0; }));
    const DisplaySnapshot both = ports_.displays.snapshot();
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[0].bounds, kLeft);
    EXPECT_EQ(both[1].bounds, kRight);
    EXPECT_EQ(both[1].pixelSize, (Size{800, 900}));
    EXPECT_EQ(both[1].mirrored, both[1].id);
    EXPECT_EQ(ports_.workAreas.workArea(both[1].id), kRight) << "nothing is reserved";
    changes = 0;
    driver_->setDisplays({kLeft});
    ASSERT_TRUE(driver_->eventually([&] { return changes > 0; }));
    EXPECT_EQ(ports_.displays.snapshot(), DisplaySnapshot{both[0]});
    EXPECT_EQ(ports_.workAreas.workArea(both[1].id), Rect{});
}

INSTANTIATE_TEST_SUITE_P(Everywhere, DisplaysContract, testing::Values(kMemory, kX11),
                         DesktopContract::nameOf);

constexpr test::Strut kAtTheTop{0, 0, 30, 0, 0, 0, 0, 0, 0, 1599, 0, 0};

/// A display of 1600 by 900 points, at whose top a test puts a grey panel, 30 points high.
class PanelContract : public testing::TestWithParam<const char*> {
protected:
    /// Takes over from one that is there.
    void putUp() {
        auto next = std::make_unique<test::Panel>(rig_.desktop.display(), Rect{0, 0, 1600, 30},
                                                  test::Strut{});
        next->showTray();
        panel_ = std::move(next);
        rig_.loop.runPending();
        panel_->reserve(kAtTheTop); // some do so only when they are shown
    }

    X11Rig rig_{{}, GetParam()};
    std::unique_ptr<test::Panel> panel_;
};

TEST_P(PanelContract, IsFollowedAsItComesAndGoes) {
    SystemTray& tray = rig_.ports->tray;
    WorkAreas& areas = rig_.ports->workAreas;
    int changes = 0;
    const auto registration = tray.onChange([&] { ++changes; });
    const Rect whole{0, 0, 1600, 900};
    const auto area = [&] { return areas.workArea(rig_.ports->displays.snapshot().at(0).id); };
    const auto expect = [&](bool isThere, int told) {
        const Rect left = isThere ? Rect{0, 30, 1600, 870} : whole;
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
    panel_->reserve({}); // hides
    EXPECT_TRUE(rig_.eventually([&] { return area() == whole; }));
    panel_->reserve(kAtTheTop);
    expect(true, 2);
    panel_.reset();
    expect(false, 3);
}

INSTANTIATE_TEST_SUITE_P(Everywhere, PanelContract, testing::Values("openbox", "i3"),
                         [](const auto& desktop) { return std::string(desktop.param); });

} // namespace
} // namespace panewright
