#include "services/defaults.h"

#include "desktop/memory/memory_user_defaults.h"

#include <gtest/gtest.h>

#include <limits>

namespace panewright {
namespace {

using namespace std::string_literals;

TEST(Defaults, ReadsEveryKindOfValueAsEveryOther) {
    constexpr auto kMax = std::numeric_limits<std::int64_t>::max();
    const struct {
        DefaultsValue value;
        bool asBool;
        std::int64_t asInteger;
        double asDouble;
        std::optional<std::string> asString;
    } cases[] = {
        {true, true, 1, 1, "1"},
        {false, false, 0, 0, "0"},
        {std::int64_t{18}, true, 18, 18, "18"},
        {std::int64_t{-1}, true, -1, -1, "-1"},
        {0.5, true, 0, 0.5, "0.5"},
        {1e300, true, kMax, 1e300, "1e+300"},
        {"18"s, true, 18, 18, "18"},
        {" -7.9 points"s, true, -7, -7.9, " -7.9 points"},
        {"+3"s, true, 3, 3, "+3"},
        {"99999999999999999999"s, true, kMax, 1e20, "99999999999999999999"},
        {"YES"s, true, 0, 0, "YES"},
        {"true"s, true, 0, 0, "true"},
        {"no"s, false, 0, 0, "no"},
        {"000"s, false, 0, 0, "000"},
        {"001"s, true, 1, 1, "001"},
        {""s, false, 0, 0, ""},
        {Bytes{1, 2}, false, 0, 0, std::nullopt},
    };
    MemoryUserDefaults store;
    Defaults defaults(store);
    for (std::size_t index = 0; index < std::size(cases); ++index) {
        const auto& test = cases[index];
        defaults.setObject("key", test.value);
        EXPECT_EQ(defaults.boolForKey("key"), test.asBool) << index;
        EXPECT_EQ(defaults.integerForKey("key"), test.asInteger) << index;
        EXPECT_EQ(defaults.doubleForKey("key"), test.asDouble) << index;
        EXPECT_EQ(defaults.stringForKey("key"), test.asString) << index;
    }
    EXPECT_EQ(defaults.dataForKey("key"), (Bytes{1, 2}));
}

TEST(Defaults, FallBackOnWhatIsRegisteredAndThenOnZero) {
    MemoryUserDefaults store;
    Defaults defaults(store);
    EXPECT_EQ(defaults.integerForKey("key"), 0);
    EXPECT_EQ(defaults.stringForKey("key"), std::nullopt);
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
