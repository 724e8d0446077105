// What every store of user defaults does, whatever holds it.

#include "desktop/linux/ini_user_defaults.h"
#include "desktop/memory/memory_user_defaults.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace panewright {
namespace {

class UserDefaultsContract : public testing::TestWithParam<const char*> {
protected:
    UserDefaultsContract() {
        if (GetParam() == std::string("memory")) {
            store_ = std::make_unique<MemoryUserDefaults>();
        } else {
            store_ = std::make_unique<IniUserDefaults>(folder_.path() / "sub/Panewright.conf");
        }
    }

    TemporaryFolder folder_;
    std::unique_ptr<UserDefaults> store_;
};

TEST_P(UserDefaultsContract, GivesBackValueAndKind) {
    using namespace std::string_literals;
    const DefaultsValue values[] = {true,
                                    false,
                                    std::int64_t{0},
                                    std::numeric_limits<std::int64_t>::min(),
                                    std::numeric_limits<std::int64_t>::max(),
                                    0.1 + 0.2,
                                    5.0,
                                    -1e-310,
                                    1e22,
                                    "plain text"s,
                                    ""s,
                                    "true"s,
                                    "18"s,
                                    "-0.5"s,
                                    " blanks "s,
                                    "two\nlines\r\n"s,
                                    R"("quoted" \ back)"s,
                                    "\""s,
                                    "; no comment"s,
                                    "[no section]"s,
                                    "a=b"s,
                                    "Grüße 窗口"s,
                                    "base64:AAEC"s,
                                    "base64:?"s,
                                    Bytes{},
                                    Bytes{0},
                                    Bytes{0, 255},
                                    Bytes{1, 2, 3},
                                    Bytes(1000, 0xAB)};
    for (const DefaultsValue& value : values) {
        store_->setObject("key", value);
        EXPECT_EQ(store_->objectForKey("key"), value);
    }
}

TEST_P(UserDefaultsContract, KeepsKeysApart) {
    EXPECT_EQ(store_->objectForKey("a"), std::nullopt);
    for (const char* key : {"a", "b", "a=b", "[x]", "ключ", "%41", "A", "#c", " d "}) {
        store_->setObject(key, std::string(key));
    }
    store_->removeObjectForKey("b");
    store_->removeObjectForKey("never set");
    store_->synchronize();
    for (const char* key : {"a", "a=b", "[x]", "ключ", "%41", "A", "#c", " d "}) {
        EXPECT_EQ(store_->objectForKey(key), DefaultsValue(std::string(key)));
    }
    EXPECT_EQ(store_->objectForKey("b"), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Stores, UserDefaultsContract, testing::Values("memory", "ini"),
                         [](const auto& test) { return std::string(test.param); });

} // namespace
} // namespace panewright
