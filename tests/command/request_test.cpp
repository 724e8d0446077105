#include "command/request.h"

#include <gmock/gmock.h>

#include <vector>

namespace panewright::command {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

/// A request in one line; what is told to people begins with "text" or "refuse".
std::string describe(std::vector<const char*> arguments) {
    struct {
        std::string operator()(const StartProgram&) const { return "start"; }
        std::string operator()(const ShowText& request) const { return "text " + request.text; }
        std::string operator()(const Refuse& request) const { return "refuse " + request.message; }
        std::string operator()(const ApplyWindowState& request) const {
            return "apply [" + request.name + "]" +
                   (request.application ? " of [" + *request.application + "]" : "");
        }
        std::string operator()(const ListWindowStates& request) const {
            return "list " + std::to_string(static_cast<int>(request.form));
        }
        std::string operator()(const MoveToNextDisplay&) const { return "next"; }
        std::string operator()(const OpenMenu& request) const {
            return request.isFlat ? "menu flat" : "menu";
        }
        std::string operator()(const SaveWindow&) const { return "save"; }
        std::string operator()(const ShowSettings&) const { return "settings"; }
        std::string operator()(const Quit&) const { return "quit"; }
    } const toText;
    arguments.insert(arguments.begin(), "panewright");
    return std::visit(toText, requestOf(arguments));
}

TEST(Request, IsWhatTheArgumentsSay) {
    const struct {
        std::vector<const char*> arguments;
        std::string request;
    } cases[] = {
        {{}, "start"},
        {{"--background"}, "start"},
        {{"-style", "fusion", "list"}, "start"},
        {{"--style", "apply", "\xff"}, "start"},
        {{"apply", "Full Screen"}, "apply [Full Screen]"},
        {{"apply", ""}, "apply []"},
        {{"apply", "list"}, "apply [list]"},
        {{"apply", "[a,b]"}, "apply [[a,b]]"},
        {{"apply", "{}"}, "apply [{}]"},
        {{"apply", "\"a b\""}, "apply [\"a b\"]"},
        {{"apply", "--", "-x"}, "apply [-x]"},
        {{"apply", "--", "--"}, "apply [--]"},
        {{"apply", "--", "--application="}, "apply [--application=]"},
        {{"apply", "a", "--application", "b c"}, "apply [a] of [b c]"},
        {{"apply", "--application=b=c", "a"}, "apply [a] of [b=c]"},
        {{"apply", "--application", "-b", "--", "-a"}, "apply [-a] of [-b]"},
        {{"apply", "a", "--application", ""}, "apply [a] of []"},
        {{"apply", "--application=", "a"}, "apply [a] of []"},
        {{"apply", "a", "--application="}, "apply [a] of []"},
        {{"list"}, "list 0"},
        {{"list", "--json"}, "list 1"},
        {{"list", "--names"}, "list 2"},
        {{"next-display"}, "next"},
        {{"menu"}, "menu"},
        {{"menu", "--flat"}, "menu flat"},
        {{"save"}, "save"},
        {{"settings"}, "settings"},
        {{"quit"}, "quit"},
    };
    for (const auto& [arguments, request] : cases) {
        EXPECT_EQ(describe(arguments), request);
    }
}

TEST(Request, IsRefusedWithAHint) {
    const std::vector<std::vector<const char*>> cases{
        {"appply"},
        {""},
        {"Apply", "a"},
        {"apply"},
        {"apply", "-x"},
        {"apply", "a", "b"},
        {"apply", "a", "--application"},
        {"apply", "a", "--application=b", "--application=c"},
        {"list", "--json", "--names"},
        {"list", "x"},
        {"list", "--background"},
        {"menu", "--flat=maybe"},
        {"quit", "save"}};
    for (const auto& arguments : cases) {
        EXPECT_THAT(describe(arguments), MatchesRegex("refuse [^\n]*--help[^\n]*"));
    }
    EXPECT_THAT(describe({"apply", "-x"}), HasSubstr("begins with - follows --"));
}

TEST(Request, ShowsTheHelpOfWhatIsAskedFor) {
    EXPECT_THAT(describe({"--help"}),
                testing::AllOf(HasSubstr("next-display"), HasSubstr("--background")));
    EXPECT_THAT(describe({"-style", "fusion", "-h"}), HasSubstr("next-display"));
    EXPECT_THAT(describe({"apply", "a", "-h"}), HasSubstr("--application NAME"));
    EXPECT_THAT(describe({"--background", "-V"}), StartsWith("text Panewright "));
}

} // namespace
} // namespace panewright::command
