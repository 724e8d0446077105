// What every store of settings does.

#include "desktop/linux/ini_user_defaults.h"
#include "desktop/memory/memory_user_defaults.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(UserDefaultsContract, KeepsEachKindOfValueUntilItIsRemoved) {
    const TemporaryFolder folder;
    MemoryUserDefaults memory;
    IniUserDefaults file(folder.path() / "settings.conf");
    for (UserDefaults* store : std::initializer_list<UserDefaults*>{&memory, &file}) {
        for (const DefaultsValue& value : std::initializer_list<DefaultsValue>{
                 true, std::int64_t{-3}, 0.5, std::string("text"), Bytes{1, 2}}) {
            store->setObject("key", value);
            EXPECT_EQ(store->objectForKey("key"), value);
        }
        store->synchronize();
        store->removeObjectForKey("key");
        store->removeObjectForKey("never set");
        EXPECT_EQ(store->objectForKey("key"), std::nullopt);
    }
}

} // namespace
} // namespace panewright
