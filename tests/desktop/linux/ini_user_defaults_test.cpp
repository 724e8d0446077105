#include "desktop/linux/ini_user_defaults.h"

#include "support/captured_log.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

namespace fs = std::filesystem;

class IniUserDefaultsTest : public testing::Test {
protected:
    TemporaryFolder folder_;
    fs::path file_ = folder_.path() / "Panewright/Panewright.conf";
    IniUserDefaults store_{file_};

    void write(const std::string& text) {
        fs::create_directories(file_.parent_path());
        setContent(file_, text);
    }
};

TEST_F(IniUserDefaultsTest, WritesEachChangeAtOnce) {
    store_.setObject("AllowMoveWindow", true);
    EXPECT_EQ(contentOf(file_), "[General]\nAllowMoveWindow=true\n");
    EXPECT_EQ(modeOf(file_), 0600);
    store_.setObject("MoveToNextWindowKeyEventKeyCode", std::int64_t{124});
    store_.removeObjectForKey("AllowMoveWindow");
    EXPECT_EQ(contentOf(file_), "[General]\nMoveToNextWindowKeyEventKeyCode=124\n");

    const fs::file_time_type longAgo{};
    fs::last_write_time(file_, longAgo);
    store_.setObject("MoveToNextWindowKeyEventKeyCode", std::int64_t{124});
    EXPECT_EQ(fs::last_write_time(file_), longAgo) << "that stands there already";
}

TEST_F(IniUserDefaultsTest, ChangesNothingButTheOneLine) {
    write("# mine\n\n[Other]\nKey=1\n[General]\n; damaged:\nno equals sign\n=\n[broken\n"
          "  Key = 2 \nUnknown=\xFF\n\n[Last]\nKey=3\n");
    EXPECT_EQ(store_.objectForKey("Key"), DefaultsValue(std::int64_t{2}));
    store_.setObject("Key", std::int64_t{5});
    store_.setObject("New", std::string("x"));
    EXPECT_EQ(contentOf(file_),
              "# mine\n\n[Other]\nKey=1\n[General]\n; damaged:\nno equals sign\n=\n"
              "[broken\nKey=5\nUnknown=\xFF\nNew=x\n\n[Last]\nKey=3\n");
}

TEST_F(IniUserDefaultsTest, ReadsAgainWhatWasEditedByHand) {
    store_.setObject("AllowMoveWindow", false);
    write("[General]\r\nAllowMoveWindow=yes\r\nAllowMoveWindow=1\r\n");
    EXPECT_EQ(store_.objectForKey("AllowMoveWindow"), DefaultsValue(std::int64_t{1}));
    store_.setObject("Key", 0.5);
    EXPECT_EQ(contentOf(file_),
              "[General]\r\nAllowMoveWindow=yes\r\nAllowMoveWindow=1\r\nKey=0.5\r\n");
    fs::remove(file_);
    EXPECT_EQ(store_.objectForKey("Key"), std::nullopt);
}

TEST_F(IniUserDefaultsTest, KeepsALinkAndAMode) {
    setContent(folder_.path() / "dotfiles.conf", "");
    fs::permissions(folder_.path() / "dotfiles.conf", fs::perms(0644));
    fs::create_directories(file_.parent_path());
    fs::create_symlink("../dotfiles.conf", file_);
    store_.setObject("Key", true);
    EXPECT_TRUE(fs::is_symlink(file_));
    EXPECT_EQ(contentOf(folder_.path() / "dotfiles.conf"), "[General]\nKey=true\n");
    EXPECT_EQ(modeOf(folder_.path() / "dotfiles.conf"), 0644);
}

TEST_F(IniUserDefaultsTest, KeepsSettingsForTheRunWhereTheFileCannotBeWritten) {
    CapturedLog log;
    setContent(folder_.path() / "Panewright", "a file where the folder should be");
    store_.setObject("Key", true);
    store_.setObject("Key", false);
    EXPECT_EQ(store_.objectForKey("Key"), DefaultsValue(false));
    EXPECT_EQ(log.take().size(), 1U) << "the same cause is logged once";

    fs::remove(folder_.path() / "Panewright");
    store_.synchronize();
    EXPECT_EQ(contentOf(file_), "[General]\nKey=false\n");
}

TEST_F(IniUserDefaultsTest, WritesNothingOverAFileThatCannotBeRead) {
    CapturedLog log;
    fs::create_directories(file_);
    store_.setObject("Key", true);
    EXPECT_EQ(store_.objectForKey("Key"), DefaultsValue(true));
    EXPECT_TRUE(fs::is_directory(file_));
    EXPECT_EQ(log.take().size(), 1U);
}

} // namespace
} // namespace panewright
