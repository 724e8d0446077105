// What every desktop tells of its displays.

#include "contract/x11_rig.h"
#include "support/print_geometry.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DisplaysContract : public DesktopContract {
protected:
    void plugIn(const std::vector<Rect>& wanted) {
        std::vector<MemoryDisplays::Display> displays;
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
    const auto ids = displays_.activeDisplays(48);
    ASSERT_EQ(ids.size(), 2U);
    EXPECT_EQ(displays_.activeDisplays(1).size(), 1U);
    EXPECT_EQ(displays_.bounds(ids[1]), kRight);
    EXPECT_EQ(displays_.pixelSize(ids[1]), (Size{800, 900}));
    EXPECT_EQ(ports_.workAreas.workArea(ids[1]), kRight) << "nothing is reserved";
    EXPECT_EQ(displays_.primaryDisplay(ids[1]), ids[1]);
    EXPECT_THAT(displays_.displaysWithPoint({799.5, 0}, 48), ElementsAre(ids[0]));
    EXPECT_THAT(displays_.displaysWithPoint({800, 899}, 48), ElementsAre(ids[1]));
    EXPECT_THAT(displays_.displaysWithPoint({1600, 5}, 48), IsEmpty());
    EXPECT_THAT(displays_.displaysWithRect({700, 10, 200, 50}, 48), ElementsAre(ids[0], ids[1]));
    EXPECT_THAT(displays_.displaysWithRect({700, 10, 100, 50}, 48), ElementsAre(ids[0]));
    EXPECT_THAT(displays_.displaysWithRect({10, 10, 0, 50}, 48), IsEmpty());
    EXPECT_EQ(displays_.screens().size(), 2U);
    changes = 0;
    plugIn({kLeft});
    ASSERT_TRUE(eventually([&] { return changes > 0; }));
    EXPECT_EQ(displays_.bounds(ids[1]), Rect{});
    EXPECT_EQ(ports_.workAreas.workArea(ids[1]), Rect{});
    EXPECT_THAT(displays_.activeDisplays(48), ElementsAre(ids[0]));
}

INSTANTIATE_TEST_SUITE_P(Everywhere, DisplaysContract, testing::Values("memory", "X11"),
                         [](const auto& desktop) { return std::string(desktop.param); });

} // namespace
} // namespace panewright
