#include "support/launched_program.h"

#include "menubar/status_menu.h"
#include "model/model.h"
#include "model/store_location.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace panewright {
namespace {

using testing::HasSubstr;

constexpr const char* kUnreadable = "The saved states could not be read…";
constexpr const char* kUnwritten = "The saved states could not be written…";
constexpr std::uint32_t kOne = 18;

/// The program with an editor's window in front, whose store is damaged.
class StoreTroublesTest : public testing::Test {
protected:
    StoreTroublesTest() {
        std::ofstream(file_) << "damaged";
        program_.desktop.displays.setDisplays({{.id = 1, .bounds = {0, 0, 1600, 900}}});
        program_.open(42, "org.example.Editor", {0, 0, 100, 100});
        program_.launch();
    }
    /// The index of the line in the menu that a click opens; nil without one.
    std::optional<std::size_t> lineInMenu(const std::string& title) {
        desktop().statusItem.click();
        const auto& items = desktop().menuView.shown()->items();
        const auto found = std::ranges::find(items, title, [](auto& item) { return item->title; });
        return found == items.end() ? std::nullopt
                                    : std::optional<std::size_t>(found - items.begin());
    }
    MemoryDesktop& desktop() { return program_.desktop; }

    LaunchedProgram program_;
    std::filesystem::path file_ = storeFilePath(program_.folders).value();
};

TEST_F(StoreTroublesTest, LeadToAStoreThatCouldNotBeReadAndStartAfresh) {
    EXPECT_FALSE(desktop().alerts.open) << "nothing is said at the start";
    desktop().statusItem.click();
    EXPECT_TRUE(desktop().menuView.choose("Save Current Window…"));
    EXPECT_NE(desktop().views.save->savingRefusal, "");
    program_.delegate.settings();
    EXPECT_EQ(desktop().views.settings->storeTrouble, kUnreadable);

    // Three fixed items, three of the head, two separators without a state between them.
    EXPECT_EQ(lineInMenu(kUnreadable), 8U);
    EXPECT_NE(desktop().menuView.shown()->items()[8]->tag, kInsertedItemTag);
    EXPECT_TRUE(desktop().menuView.choose(kUnreadable));
    EXPECT_THAT(desktop().alerts.open->informativeText, HasSubstr(file_.string()));
    desktop().alerts.press(1);
    EXPECT_FALSE(program_.press(kOne));
    EXPECT_TRUE(lineInMenu(kUnreadable));

    EXPECT_TRUE(desktop().menuView.choose(kUnreadable));
    desktop().alerts.press(0);
    EXPECT_TRUE(program_.press(kOne)) << "the hot keys are there at once";
    EXPECT_FALSE(lineInMenu(kUnreadable));
    EXPECT_EQ(desktop().views.save->savingRefusal, "");
    EXPECT_EQ(desktop().views.settings->storeTrouble, "");
    Model::instance().finishSaving();
    EXPECT_TRUE(std::filesystem::exists(file_.string() + ".unreadable-1"));
}

TEST_F(StoreTroublesTest, LeadToASaveThatFailedUntilOneSucceeds) {
    auto& model = Model::instance();
    model.startAfresh();
    program_.folders.supportError = FolderError{"no home"};
    model.save();
    model.finishSaving();
    EXPECT_TRUE(lineInMenu(kUnwritten));
    EXPECT_TRUE(desktop().menuView.choose(kUnwritten));
    EXPECT_THAT(desktop().alerts.open->informativeText, HasSubstr("folder"));
    program_.folders.supportError = std::nullopt;
    desktop().alerts.press(0);
    model.finishSaving();
    EXPECT_FALSE(lineInMenu(kUnwritten));
}

} // namespace
} // namespace panewright
