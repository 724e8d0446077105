#include "desktop/freedesktop/ini_user_defaults.h"

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
};

TEST_F(IniUserDefaultsTest, ChangesNothingButTheOneLineAndThatAtOnce) {
    store_.setObject("Key", true);
    EXPECT_EQ(contentOf(file_), "[General]\nKey=true\n");
    EXPECT_EQ(modeOf(file_), 0600);
    setContent(file_, "# mine\n\n[Other]\nKey=1\n[General]\n; damaged:\nno equals sign\n=\n"
                      "[broken\n  Key = 2 \nUnknown=\xFF\nOld=1\n\n[Last]\nKey=3\n");
    EXPECT_EQ(store_.objectForKey("Key"), DefaultsValue(std::int64_t{2}));
    store_.setObject("Key", std::int64_t{5});
    store_.setObject("New", std::string("x"));
    store_.removeObjectForKey("Old");
    EXPECT_EQ(contentOf(file_), "# mine\n\n[Other]\nKey=1\n[General]\n; damaged:\nno equals sign\n"
                                "=\n[broken\nKey=5\nUnknown=\xFF\nNew=x\n\n[Last]\nKey=3\n");

    setContent(file_, "[General]\r\nAllow=yes\r\nAllow=1\r\n");
    EXPECT_EQ(store_.objectForKey("Allow"), DefaultsValue(std::int64_t{1}));
    store_.setObject("Key", 0.5);
    EXPECT_EQ(contentOf(file_), "[General]\r\nAllow=yes\r\nAllow=1\r\nKey=0.5\r\n");
    fs::remove(file_);
    EXPECT_EQ(store_.objectForKey("Key"), std::nullopt);
}

TEST_F(IniUserDefaultsTest, KeepsSettingsForTheRunWhereTheFileCannotBeWrittenOrRead) {
    CapturedLog log;
    setContent(folder_.path() / "Panewright", "a file where the folder should be");
    store_.setObject("Key", true);
    store_.setObject("Key", false);
    EXPECT_EQ(store_.objectForKey("Key"), DefaultsValue(false));
    EXPECT_EQ(log.take().size(), 1U) << "the same cause is logged once";
    fs::remove(folder_.path() / "Panewright");
    store_.synchronize();
    EXPECT_EQ(contentOf(file_), "[General]\nKey=false\n");

    const auto large = folder_.path() / "large";
    const std::string text = "[General]\nKey=false\n#" + std::string(1 << 20, '#');
    setContent(large, text);
    for (const auto& file : {folder_.path(), large}) {
        IniUserDefaults unreadable(file);
        unreadable.setObject("Key", true);
        EXPECT_EQ(unreadable.objectForKey("Key"), DefaultsValue(true));
        EXPECT_EQ(log.take().size(), 1U);
    }
    EXPECT_EQ(contentOf(large), text);
}

} // namespace
} // namespace panewright
