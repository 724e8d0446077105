#include "command/state_list.h"

#include <gtest/gtest.h>

#include <limits>

namespace panewright::command {
namespace {

using Numbers = std::vector<double>;

TEST(StateList, IsATableOfNamesOrJson) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    const ListedStates states{
        {{"name", "Half"},
         {"scope", "default"},
         {"shortcut", "⌥1"},
         {"scale", Numbers{0.655, 1}},
         {"keyCode", std::uint64_t{18}},
         {"isDefault", true}},
        {{"name", "日本\n\x1b\x7f\xc2\x85\\\""},
         {"applicationId", "a.b"},
         {"frame", Numbers{-1.5, 0, 640, 480}}},
        {{"scope", "global"}, {"frame", Numbers{kNan}}},
        {{"name", std::string(50, 'x')}, {"scope", "global"}, {"applicationName", "c"}},
    };
    EXPECT_EQ(tableOf(states), R"(NAME                     SHORTCUT  SCOPE    APPLICATION  FRAME
Half                     ⌥1        default               65.5% x 100%
日本\n\x1b\x7f\u0085\\"                     a.b          640 x 480 at -1.5, 0
                                   global
xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx            global   c
)");
    EXPECT_EQ(namesOf(states),
              "Half\n日本\\n\\x1b\\x7f\\u0085\\\\\"\n" + std::string(50, 'x') + "\n");
    EXPECT_EQ(jsonOf(states),
              "[\n"
              R"({"name": "Half", "scope": "default", "shortcut": "⌥1", "scale": [0.655, 1], )"
              R"("keyCode": 18, "isDefault": true},)"
              "\n"
              R"({"name": "日本\n\u001b\u007f\u0085\\\"", "applicationId": "a.b", )"
              R"("frame": [-1.5, 0, 640, 480]},)"
              "\n{\"scope\": \"global\", \"frame\": [null]},\n{\"name\": \"" +
                  std::string(50, 'x') +
                  "\", \"scope\": \"global\", \"applicationName\": \"c\"}\n]\n");
    EXPECT_EQ(tableOf({}) + namesOf({}) + jsonOf({}), "[]\n");
}

} // namespace
} // namespace panewright::command
