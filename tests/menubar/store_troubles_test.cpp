#include "menubar/status_menu.h"
#include "model/store_location.h"
#include "support/program_fixture.h"

namespace panewright {
namespace {

using testing::HasSubstr;

constexpr const char* kUnreadable = "The saved states could not be read…";
constexpr const char* kUnwritten = "The saved states could not be written…";
constexpr std::uint32_t kOne = 18;

/// The program with an editor's window in front, whose store is damaged.
class StoreTroublesTest : public ProgramFixture {
protected:
    StoreTroublesTest() {
        setContent(file_, "damaged");
        openProgram(kEditor, kEditorId, {0, 0, 100, 100});
        launch();
    }
    /// The index of the line in the menu that a click opens; nil without one.
    std::optional<std::size_t> lineInMenu(const std::string& title) {
        desktop_.statusItem.click();
        const auto& items = desktop_.menuView.shown()->items();
        const auto found = std::ranges::find(items, title, [](auto& item) { return item->title; });
        return found == items.end() ? std::nullopt
                                    : std::optional<std::size_t>(found - items.begin());
    }

    std::filesystem::path file_ = storeFilePath(folders_).value();
};

TEST_F(StoreTroublesTest, LeadToAStoreThatCouldNotBeReadAndStartAfresh) {
    EXPECT_FALSE(desktop_.alerts.open) << "nothing is said at the start";
    choose("Save Current Window…");
    EXPECT_NE(desktop_.views.save->savingRefusal, "");
    delegate_.settings();
    EXPECT_EQ(desktop_.views.settings->storeTrouble, kUnreadable);

    // Three fixed items, three of the head, two separators without a state between them.
    EXPECT_EQ(lineInMenu(kUnreadable), 8U);
    EXPECT_NE(desktop_.menuView.shown()->items()[8]->tag, kInsertedItemTag);
    EXPECT_TRUE(desktop_.menuView.choose(kUnreadable));
    EXPECT_THAT(desktop_.alerts.open->informativeText, HasSubstr(file_.string()));
    desktop_.alerts.press(1);
    EXPECT_FALSE(press(kOne));
    EXPECT_TRUE(lineInMenu(kUnreadable));

    EXPECT_TRUE(desktop_.menuView.choose(kUnreadable));
    desktop_.alerts.press(0);
    EXPECT_TRUE(press(kOne)) << "the hot keys are there at once";
    EXPECT_FALSE(lineInMenu(kUnreadable));
    EXPECT_EQ(desktop_.views.save->savingRefusal, "");
    EXPECT_EQ(desktop_.views.settings->storeTrouble, "");
    Model::instance().finishSaving();
    EXPECT_TRUE(std::filesystem::exists(file_.string() + ".unreadable-1"));
}

TEST_F(StoreTroublesTest, LeadToASaveThatFailedUntilOneSucceeds) {
    auto& model = Model::instance();
    model.startAfresh();
    folders_.supportError = FolderError{"no home"};
    model.save();
    model.finishSaving();
    EXPECT_TRUE(lineInMenu(kUnwritten));
    EXPECT_TRUE(desktop_.menuView.choose(kUnwritten));
    EXPECT_THAT(desktop_.alerts.open->informativeText, HasSubstr("folder"));
    folders_.supportError = std::nullopt;
    desktop_.alerts.press(0);
    model.finishSaving();
    EXPECT_FALSE(lineInMenu(kUnwritten));
}

} // namespace
} // namespace panewright
