#include "desktop/memory/memory_application_icons.h"
#include "desktop/memory/memory_images.h"
#include "desktop/memory/memory_standard_folders.h"
#include "support/temporary_folder.h"
#include "ui/kept_app_images.h"
#include "ui/window_state_images.h"
#include "ui/window_state_picture.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <limits>

namespace panewright {
namespace {

using namespace std::string_literals;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr Colour kWindow{0.766, 0.811, 0.84, 1};

TEST(WindowStatePicture, ShowsTheWindowOnItsDisplay) {
    constexpr Rect kDisplay{0, 0, 1920, 1080}, kWhole{0, 0, 28, 16};
    const struct {
        Rect window, display;
        double height;
        Rect area;
    } cases[] = {
        {{100, 50, 1280, 720}, {0, 0, 2560, 1440}, 16, {2.015625, 1.4861111111111112, 13, 7}},
        {{1920, 0, 960, 540}, {1920, 0, 1920, 1080}, 16, {1, 1, 13, 7}},
        {{0, 0, 720, 450}, {-1440, 0, 1440, 900}, 18, {27, 1, 13, 8}}, // off its display
        {{0, 0, 512, 768}, {0, 0, 1024, 768}, 21, {1, 1, 13, 19}},
        {{0, 0, 768, 683}, {0, 0, 768, 1366}, 50, {1, 1, 26, 24}}, // upright
        {kDisplay, kDisplay, 16, kWhole},
        {{9, 9, 1920, 1045.01}, kDisplay, 16, kWhole},
        {{0, 0, 1920, 1045}, kDisplay, 16, {1, 1, 26, 1045.0 / 1080 * 14}},
        {{0, 0, 1920, 5000}, kDisplay, 16, kWhole}, // taller than its display
        {{0, 0, 1919, 1080}, kDisplay, 16, {1, 1, 1919.0 / 1920 * 26, 14}},
        {{5, 5, 100, 100}, {}, 16, {}},
        {{}, {}, 16, kWhole},
        {{5, 5, 100, 100}, {0, 0, -1920, 1080}, 16, {}},
        {{5, 5, 100, 100}, {0, 0, kInfinity, 1080}, 16, {}},
        {{5, 5, 100, 100}, {0, 0, 1920, std::numeric_limits<double>::quiet_NaN()}, 16, {}},
    };
    for (const auto& [window, display, height, area] : cases) {
        SCOPED_TRACE(testing::Message() << display.width << "x" << display.height << ", window "
                                        << window.width << "x" << window.height);
        EXPECT_EQ(canvasFor(display.size()), (Size{28, height}));
        const Rect drawn = windowArea(window, display);
        EXPECT_DOUBLE_EQ(drawn.x, area.x);
        EXPECT_DOUBLE_EQ(drawn.y, area.y);
        EXPECT_DOUBLE_EQ(drawn.width, area.width);
        EXPECT_DOUBLE_EQ(drawn.height, area.height);
    }
}

class WindowStateImagesTest : public testing::Test {
protected:
    static std::shared_ptr<WindowState> editorState() {
        auto state = WindowState::init();
        state->setAppBundleId("org.example.Editor");
        state->setOriginalWindowRect({0, 0, 720, 900});
        state->setOriginalQuartzDisplayBounds({0, 0, 1440, 900});
        return state;
    }
    static Picture pictureIn(const ImagePtr& image) { return MemoryImage::of(image)->picture(); }

    MemoryImages images_;
    MemoryApplicationIcons icons_;
};

TEST_F(WindowStateImagesTest, ReadsTheShareOfABuiltInStateEachTimeItIsPainted) {
    const std::pair<double, Rect> shares[] = {
        {1.0, {0, 0, 28, 16}},  {0.9, {1.5, 1, 25, 14}}, {0.8, {3, 2, 22, 12}},
        {0.65, {5, 3, 18, 10}}, {1.5, {0, 0, 42, 24}},   {0, {14, 8, 0, 0}},
    };
    auto state = WindowState::windowStateIsDefault(true, false);
    const auto image = WindowStateImages(images_, icons_).windowStateImage(state);
    for (const auto& [share, area] : shares) {
        state->setWindowScale({share, share});
        const Picture expected{{28, 16},
                               {{PictureShape::Kind::kFill, {0, 0, 28, 16}, {1, 1, 1, 1}},
                                {PictureShape::Kind::kFill, area, kWindow},
                                {PictureShape::Kind::kStroke, {0, 0, 28, 16}, {0, 0, 0, 1}, 1}}};
        EXPECT_EQ(pictureIn(image), expected) << share;
    }
    state->setWindowScale({1, 1});
    state.reset();
    EXPECT_EQ(pictureIn(image).shapes[1].rect, (Rect{14, 8, 0, 0})) << "the image keeps it alive";
}

TEST_F(WindowStateImagesTest, KeepsWhatItHasMadeUntilItIsDropped) {
    WindowStateImages images(images_, icons_);
    const auto state = editorState();
    const auto picture = images.windowStateImage(state);
    const auto both = images.appIconAndWindowStateImage(state);
    EXPECT_EQ(picture->size(), (Size{28, 18}));
    EXPECT_EQ(images.appIconImage(*state)->size(), (Size{16, 16}));
    ASSERT_EQ(both->size(), (Size{48, 18}));
    const auto& parts = MemoryImage::of(both)->parts;
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].rect, (Rect{20, 0, 28, 18}));
    EXPECT_EQ(parts[1].rect, (Rect{0, 2, 16, 16})) << "not at the bottom left";
    EXPECT_EQ(MemoryIcon::identifierOf(MemoryImage::of(parts[1].image)->original),
              "org.example.Editor");

    state->setOriginalQuartzDisplayBounds({0, 0, 100, 100});
    EXPECT_EQ(images.windowStateImage(state), picture);
    state->setWindowStateImage(nullptr);
    EXPECT_EQ(images.windowStateImage(state)->size(), (Size{28, 28}));
    EXPECT_EQ(images.appIconAndWindowStateImage(state), both);
}

TEST_F(WindowStateImagesTest, SeeksAMissingIconOnceForEachProgramUntilTheNextTime) {
    icons_.missing = {"org.example.Editor"};
    WindowStateImages images(images_, icons_);
    const auto state = editorState();
    for (const auto& each : {state, editorState()}) {
        EXPECT_EQ(images.appIconImage(*each), nullptr);
        EXPECT_EQ(images.appIconAndWindowStateImage(each), images.windowStateImage(each));
    }
    EXPECT_EQ(icons_.timesSought["org.example.Editor"], 1);
    icons_.missing.clear();
    EXPECT_EQ(WindowStateImages(images_, icons_).appIconAndWindowStateImage(state)->size().width,
              48);
    EXPECT_EQ(images.appIconImage(*WindowState::init()), nullptr) << "of no application";
}

TEST_F(WindowStateImagesTest, KeepsTheFirstImageOfAnApplicationOnDisk) {
    const TemporaryFolder folder;
    const MemoryStandardFolders folders(folder.path());
    const PNRUtils utils(images_, folders);
    const auto image = [&](double width) { return images_.imageOfSize({width, 16}, nullptr); };
    EXPECT_EQ(utils.compositeImage(image(28), "org.example.Editor"), nullptr);
    utils.saveAppImage(image(16), "org.example.Editor");
    utils.saveAppImage(image(99), "org.example.Editor");
    const auto file = folder.path() / "Panewright/AppImages/org.example.Editor";
    EXPECT_TRUE(std::filesystem::is_regular_file(file));
    EXPECT_EQ(utils.appImageForBundleId("org.example.Editor")->size(), (Size{16, 16}));
    EXPECT_EQ(utils.compositeImage(image(28), "org.example.Editor")->size(), (Size{48, 16}));

    setContent(file, "no picture");
    EXPECT_EQ(utils.appImageForBundleId("org.example.Editor"), nullptr);
    setContent(folder.path() / "Panewright/outside", "PNG 1 1");
    for (const auto& name :
         {""s, "."s, ".."s, "../outside"s, "a/b"s, "a\0b"s, std::string(256, 'a')}) {
        utils.saveAppImage(image(16), name);
        EXPECT_EQ(utils.appImageForBundleId(name), nullptr) << name;
    }
    EXPECT_EQ(countOfFiles(file.parent_path()), 1);
}

} // namespace
} // namespace panewright
