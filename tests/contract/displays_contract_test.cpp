// What every desktop tells of its displays.

#include "contract/x11_rig.h"
#include "support/print_geometry.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

class DisplaysContract : public DesktopContract {
protected:
    void plugIn(const std::vector<Rect>& wanted) {
        DisplaySnapshot displays;
        std::vector<std::string> monitors;
        for (const auto& bounds : wanted) {
            displays.push_back(
                {.id = static_cast<DisplayId>(displays.size() + 1), .bounds = bounds});
            monitors.push_back(std::to_string(int(bounds.width)) + "x" +
                               std::to_string(int(bounds.height)) + "+" +
                               std::to_string(int(bounds.x)) + "+" + std::to_string(int(bounds.y)));
        }
        if (x11_) {
            x11_->desktop.setDisplays(monitors);
        } else {
            memory_.displays.setDisplays(displays);
        }
    }

    const Displays& displays_ = ports_.displays;
};

TEST_P(DisplaysContract, KnowWhatTheyHoldAndFollowTheirUnplugging) {
    constexpr Rect kLeft{0, 0, 800, 900};
    constexpr Rect kRight{800, 0, 800, 900};
    int changes = 0;
    const auto registration = ports_.displays.onChange([&] { ++changes; });
    plugIn({kLeft, kRight});
    ASSERT_TRUE(eventually([&] { return changes > 0; }));
    const DisplaySnapshot both = displays_.snapshot();
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[0].bounds, kLeft);
    EXPECT_EQ(both[1].bounds, kRight);
    EXPECT_EQ(both[1].pixelSize, (Size{800, 900}));
    EXPECT_EQ(both[1].mirrored, both[1].id);
    EXPECT_EQ(ports_.workAreas.workArea(both[1].id), kRight) << "nothing is reserved";
    changes = 0;
    plugIn({kLeft});
    ASSERT_TRUE(eventually([&] { return changes > 0; }));
    EXPECT_EQ(displays_.snapshot(), DisplaySnapshot{both[0]});
    EXPECT_EQ(ports_.workAreas.workArea(both[1].id), Rect{});
}

INSTANTIATE_TEST_SUITE_P(Everywhere, DisplaysContract, testing::Values("memory", "X11"),
                         [](const auto& desktop) { return std::string(desktop.param); });

} // namespace
} // namespace panewright
