#include "services/defaults.h"

#include "desktop/memory/memory_user_defaults.h"

#include <gtest/gtest.h>

#include <limits>

namespace panewright {
namespace {

using namespace std::string_literals;

TEST(Defaults, ReadsEveryKindOfValueAsBooleanAndInteger) {
    constexpr auto kMax = std::numeric_limits<std::int64_t>::max();
    const struct {
        DefaultsValue value;
        bool asBool;
        std::int64_t asInteger;
    } cases[] = {
        {true, true, 1},
        {false, false, 0},
        {std::int64_t{18}, true, 18},
        {std::int64_t{-1}, true, -1},
        {0.5, true, 0},
        {1e300, true, kMax},
        {"18"s, true, 18},
        {" -7.9 points"s, true, -7},
        {"+3"s, true, 3},
        {"99999999999999999999"s, true, kMax},
        {"YES"s, true, 0},
        {"true"s, true, 0},
        {"no"s, false, 0},
        {"000"s, false, 0},
        {"001"s, true, 1},
        {""s, false, 0},
        {Bytes{1, 2}, false, 0},
    };
    MemoryUserDefaults store;
    Defaults defaults(store);
    for (std::size_t index = 0; index < std::size(cases); ++index) {
        const auto& test = cases[index];
        defaults.setObject("key", test.value);
        EXPECT_EQ(defaults.boolForKey("key"), test.asBool) << index;
        EXPECT_EQ(defaults.integerForKey("key"), test.asInteger) << index;
    }
}

TEST(Defaults, FallBackOnWhatIsRegisteredAndThenOnZero) {
    MemoryUserDefaults store;
    Defaults defaults(store);
    EXPECT_EQ(defaults.integerForKey("key"), 0);
    EXPECT_EQ(defaults.objectForKey("key"), std::nullopt);
    defaults.registerDefaults({{"key", std::int64_t{4}}});
    EXPECT_EQ(defaults.integerForKey("key"), 4);
    EXPECT_EQ(store.objectForKey("key"), std::nullopt);
    defaults.setInteger("key", 0);
    EXPECT_EQ(defaults.integerForKey("key"), 0);
    defaults.removeObjectForKey("key");
    EXPECT_EQ(defaults.integerForKey("key"), 4);
}

} // namespace
} // namespace panewright
