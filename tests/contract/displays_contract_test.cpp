// What every set of displays answers.

#include "contract/x11_rig.h"
#include "desktop/memory/memory_displays.h"
#include "support/print_geometry.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class DisplaysContract : public testing::TestWithParam<const char*> {
protected:
    DisplaysContract() {
        if (GetParam() == std::string("X11")) {
            x11_.emplace(test::Screen{.width = 3000, .height = 1200});
        }
    }

    Displays& port() { return x11_ ? static_cast<Displays&>(x11_->ports->displays) : memory_; }

    /// The first one is the main display; one that stands where it stands mirrors it.
    void connect(const std::vector<Rect>& bounds) {
        std::vector<MemoryDisplays::Display> displays;
        std::vector<std::string> geometries;
        for (const auto& rect : bounds) {
            const bool isMirror = !displays.empty() && rect == bounds.front();
            displays.push_back({.id = static_cast<DisplayId>(displays.size() + 1),
                                .bounds = rect,
                                .mirrorOf = isMirror ? 1 : kNoDisplay});
            geometries.push_back(
                fmt::format("{}x{}+{}+{}", rect.width, rect.height, rect.x, rect.y));
        }
        x11_ ? x11_->desktop.setDisplays(geometries) : memory_.setDisplays(displays);
        ASSERT_TRUE(eventually([&] { return boundsOfAll() == bounds; }))
            << testing::PrintToString(boundsOfAll());
    }
    std::vector<Rect> boundsOfAll() {
        std::vector<Rect> bounds;
        for (const auto display : port().activeDisplays(48)) {
            bounds.push_back(port().bounds(display));
        }
        return bounds;
    }
    template <class Condition>
    bool eventually(Condition condition) {
        return x11_ ? x11_->eventually(condition) : condition();
    }

private:
    std::optional<X11Rig> x11_;
    MemoryDisplays memory_;
};

constexpr Rect kLeft{0, 0, 1440, 900};
constexpr Rect kRight{1440, 100, 1280, 1024};

TEST_P(DisplaysContract, FindsDisplaysAndListsTheMainOneFirst) {
    connect({kLeft, kRight});
    const auto ids = port().activeDisplays(48);
    EXPECT_EQ(port().pixelSize(ids[1]), (Size{1280, 1024}));
    EXPECT_EQ(port().primaryDisplay(ids[1]), ids[1]);
    EXPECT_THAT(port().activeDisplays(1), ElementsAre(ids[0]));
    ASSERT_THAT(port().screens(), SizeIs(2));
    EXPECT_EQ(port().screens()[1].screenNumber, ids[1]);

    EXPECT_THAT(port().displaysWithPoint({0, 0}, 48), ElementsAre(ids[0]));
    EXPECT_THAT(port().displaysWithPoint({1440, 100}, 48), ElementsAre(ids[1]));
    EXPECT_THAT(port().displaysWithPoint({1440, 99}, 48), IsEmpty());
    EXPECT_THAT(port().displaysWithRect({1400, 200, 100, 100}, 48), ElementsAre(ids[0], ids[1]));
    EXPECT_THAT(port().displaysWithRect({1400, 200, 100, 100}, 1), ElementsAre(ids[0]));
    EXPECT_THAT(port().displaysWithRect({0, 900, 10, 10}, 48), IsEmpty());
}

TEST_P(DisplaysContract, AnswersZerosForADisplayThatIsGoneAndTellsOfTheChange) {
    connect({kLeft, kRight});
    const auto gone = port().activeDisplays(48)[1];
    int changes = 0;
    const auto registration = port().onChange([&] { ++changes; });
    connect({kLeft});
    EXPECT_EQ(port().bounds(gone), Rect{});
    EXPECT_EQ(port().pixelSize(gone), Size{});
    EXPECT_EQ(port().unitNumber(gone), 0U);
    EXPECT_TRUE(eventually([&] { return changes > 0; }));
}

TEST_P(DisplaysContract, ShowsAMirrorAsOneScreen) {
    connect({kLeft, kLeft});
    const auto ids = port().activeDisplays(48);
    EXPECT_EQ(port().primaryDisplay(ids[1]), ids[0]);
    EXPECT_THAT(port().displaysWithPoint({5, 5}, 48), ElementsAre(ids[0], ids[1]));
    EXPECT_THAT(port().screens(), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(Everywhere, DisplaysContract, testing::Values("memory", "X11"),
                         [](const auto& displays) { return std::string(displays.param); });

} // namespace
} // namespace panewright
