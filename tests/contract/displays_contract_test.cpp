// What every desktop tells of its displays.

#include "contract/desktop_driver.h"
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

} // namespace
} // namespace panewright
