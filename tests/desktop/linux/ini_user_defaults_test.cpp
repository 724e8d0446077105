#include "desktop/linux/ini_user_defaults.h"

#include "support/captured_log.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <limits>

namespace panewright {
namespace {

namespace fs = std::filesystem;

class IniUserDefaultsTest : public testing::Test {
protected:
    TemporaryFolder folder_;
    fs::path file_ = folder_.path() / "Panewright/Panewright.conf";
    IniUserDefaults store_{file_};
};

TEST_F(IniUserDefaultsTest, GivesBackValueAndKindAndKeepsKeysApart) {
    std::vector<DefaultsValue> values{true,
                                      false,
                                      std::int64_t{0},
                                      std::numeric_limits<std::int64_t>::min(),
                                      std::numeric_limits<std::int64_t>::max(),
                                      0.1 + 0.2,
                                      5.0,
                                      -1e-310,
                                      1e22,
                                      Bytes{},
                                      Bytes{0, 255},
                                      Bytes(1000, 0xAB)};
    const char* texts[] = {"plain text",
                           "",
                           "true",
                           "18",
                           "-0.5",
                           " blanks ",
                           "two\nlines\r\n",
                           R"("quoted" \ back)",
                           "\"",
                           "; no comment",
                           "#c",
                           "[no section]",
                           "a=b",
                           "Grüße 窗口",
                           "ключ",
                           "%41",
                           "A",
                           "base64:AAEC",
                           "base64:?"};
    for (const std::string text : texts) {
        values.emplace_back(text);
        store_.setObject(text, text);
    }
    for (const std::string text : texts) {
        EXPECT_EQ(store_.objectForKey(text), DefaultsValue(text));
    }
    for (const DefaultsValue& value : values) {
        store_.setObject("key", value);
        EXPECT_EQ(store_.objectForKey("key"), value);
    }
    store_.removeObjectForKey("key");
    store_.removeObjectForKey("never set");
    EXPECT_EQ(store_.objectForKey("key"), std::nullopt);
    EXPECT_EQ(store_.objectForKey("A"), DefaultsValue(std::string("A")));
}

TEST_F(IniUserDefaultsTest, WritesEachChangeAtOnce) {
    store_.setObject("AllowMoveWindow", true);
    EXPECT_EQ(contentOf(file_), "[General]\nAllowMoveWindow=true\n");
    EXPECT_EQ(modeOf(file_), 0600);
    store_.setObject("KeyCode", std::int64_t{124});
    store_.removeObjectForKey("AllowMoveWindow");
    EXPECT_EQ(contentOf(file_), "[General]\nKeyCode=124\n");

    const fs::file_time_type longAgo{};
    fs::last_write_time(file_, longAgo);
    store_.setObject("KeyCode", std::int64_t{124});
    EXPECT_EQ(fs::last_write_time(file_), longAgo) << "that stands there already";
}

TEST_F(IniUserDefaultsTest, ChangesNothingButTheOneLineOfAFileEditedByHand) {
    store_.setObject("Key", false);
    setContent(file_, "# mine\n\n[Other]\nKey=1\n[General]\n; damaged:\nno equals sign\n=\n"
                      "[broken\n  Key = 2 \nUnknown=\xFF\n\n[Last]\nKey=3\n");
    EXPECT_EQ(store_.objectForKey("Key"), DefaultsValue(std::int64_t{2}));
    store_.setObject("Key", std::int64_t{5});
    store_.setObject("New", std::string("x"));
    EXPECT_EQ(contentOf(file_),
              "# mine\n\n[Other]\nKey=1\n[General]\n; damaged:\nno equals sign\n=\n"
              "[broken\nKey=5\nUnknown=\xFF\nNew=x\n\n[Last]\nKey=3\n");

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

    IniUserDefaults unreadable(folder_.path());
    unreadable.setObject("Key", true);
    EXPECT_EQ(unreadable.objectForKey("Key"), DefaultsValue(true));
    EXPECT_EQ(log.take().size(), 1U);
}

} // namespace
} // namespace panewright
