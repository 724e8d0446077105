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

class DisplaysRig {
public:
    virtual ~DisplaysRig() = default;
    virtual Displays& port() = 0;
    /// The first one is the main display.
    virtual void connect(const std::vector<Rect>& bounds) = 0;
    virtual bool eventually(const std::function<bool()>& condition) = 0;
};

class MemoryDisplaysRig : public DisplaysRig {
public:
    Displays& port() override { return displays_; }
    void connect(const std::vector<Rect>& bounds) override {
        std::vector<MemoryDisplays::Display> displays;
        for (const auto& rect : bounds) {
            const auto original =
                std::find_if(displays.begin(), displays.end(),
                             [&](const auto& display) { return display.bounds == rect; });
            displays.push_back(
                {.id = static_cast<DisplayId>(displays.size() + 1),
                 .bounds = rect,
                 .mirrorOf = original == displays.end() ? kNoDisplay : original->id});
        }
        displays_.setDisplays(displays);
    }
    bool eventually(const std::function<bool()>& condition) override { return condition(); }

private:
    MemoryDisplays displays_;
};

class X11DisplaysRig : public DisplaysRig {
public:
    Displays& port() override { return rig_.ports->displays; }
    void connect(const std::vector<Rect>& bounds) override {
        for (int i = 0; i < connected_; ++i) {
            xrandr({"--delmonitor", name(i)});
        }
        connected_ = 0;
        for (const auto& rect : bounds) {
            // The server's one output makes the first monitor the primary one.
            xrandr({"--setmonitor", (connected_ == 0 ? "*" : "") + name(connected_),
                    fmt::format("{}/300x{}/200+{}+{}", rect.width, rect.height, rect.x, rect.y),
                    connected_ == 0 ? "screen" : "none"});
            ++connected_;
        }
    }
    bool eventually(const std::function<bool()>& condition) override {
        return rig_.eventually(condition);
    }

private:
    static std::string name(int index) { return "M" + std::to_string(index); }
    void xrandr(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "xrandr");
        test::runToEnd(arguments, rig_.desktop.environment());
    }

    X11Rig rig_{{.width = 3000, .height = 1200}};
    int connected_ = 0;
};

class DisplaysContract : public testing::TestWithParam<const char*> {
protected:
    DisplaysContract() {
        if (GetParam() == std::string("memory")) {
            rig_ = std::make_unique<MemoryDisplaysRig>();
        } else {
            rig_ = std::make_unique<X11DisplaysRig>();
        }
    }

    std::vector<Rect> boundsOfAll() {
        std::vector<Rect> bounds;
        for (const auto display : port().activeDisplays(48)) {
            bounds.push_back(port().bounds(display));
        }
        return bounds;
    }
    void connect(const std::vector<Rect>& bounds) {
        rig_->connect(bounds);
        ASSERT_TRUE(rig_->eventually([&] { return boundsOfAll() == bounds; }))
            << testing::PrintToString(boundsOfAll());
    }
    Displays& port() { return rig_->port(); }

    std::unique_ptr<DisplaysRig> rig_;
};

constexpr Rect kLeft{0, 0, 1440, 900};
constexpr Rect kRight{1440, 100, 1280, 1024};

TEST_P(DisplaysContract, ListsTheMainDisplayFirst) {
    connect({kLeft, kRight});
    const auto ids = port().activeDisplays(48);
    EXPECT_EQ(port().pixelSize(ids[1]), (Size{1280, 1024}));
    EXPECT_EQ(port().primaryDisplay(ids[1]), ids[1]);
    EXPECT_THAT(port().activeDisplays(1), ElementsAre(ids[0]));
    ASSERT_THAT(port().screens(), SizeIs(2));
    EXPECT_EQ(port().screens()[1].screenNumber, ids[1]);
}

TEST_P(DisplaysContract, FindsDisplaysByPointAndRectangle) {
    connect({kLeft, kRight});
    const auto ids = port().activeDisplays(48);
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
    EXPECT_TRUE(rig_->eventually([&] { return changes > 0; }));
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
