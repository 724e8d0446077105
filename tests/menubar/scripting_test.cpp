#include "support/program_fixture.h"

#include <optional>
#include <string>
#include <vector>

namespace panewright {
namespace {

using testing::ElementsAre;

constexpr Rect kStart{100, 100, 500, 400};
constexpr Rect kLarge{80, 45, 1440, 810};
constexpr Rect kMine{2, 2, 300, 200};

class ScriptingTest : public ProgramFixture {
protected:
    ScriptingTest() {
        EXPECT_FALSE(desktop_.scripting.commands) << "before launch has finished";
        launch();
        window_ = openProgram(kEditor, kEditorId, kStart);
        addState("Mine", true, kTerminalId, 40, kMine);
        addState("", false, kEditorId, 41, kMine);
    }
    ScriptingCommands& script() { return *desktop_.scripting.commands; }

    WindowId window_{};
};

TEST_F(ScriptingTest, AppliesTheStateThatHasTheNamesExactly) {
    const auto name = [](const char* text) { return ScriptArguments{{"WindowStateName", text}}; };
    const auto names = [](const char* text, const char* application) {
        return ScriptArguments{{"WindowStateName", text}, {"ApplicationName", application}};
    };
    struct Case {
        ScriptArguments arguments;
        std::optional<Rect> frame; // nil: there is no such state
    };
    const Case cases[] = {
        {name("Mine"), kMine},
        {name("mine"), {}},
        {name("Mine "), {}},
        {name("Centered Large"), kLarge},
        {name(""), kMine},
        {names("Mine", kTerminalId), kMine},
        {names("Mine", kEditorId), {}},
        {names("Mine", ""), {}},
        {names("", kEditorId), kMine},
        {names("Centered Large", ""), {}},
        {{{"ApplicationName", kTerminalId}}, {}},
        {{}, {}},
    };
    for (const auto& [arguments, frame] : cases) {
        desktop_.windows.setFrame(window_, kStart);
        desktop_.mainLoop.runPending();
        EXPECT_EQ(script().applyWindowState(arguments), frame.has_value());
        EXPECT_EQ(frameOf(window_), frame.value_or(kStart));
    }
    EXPECT_EQ(desktop_.beeper.beeps, 0);

    desktop_.windows.closeWindow(window_);
    desktop_.mainLoop.runPending();
    EXPECT_TRUE(script().applyWindowState(name("Mine"))) << "found, though there is no window";
    EXPECT_EQ(desktop_.beeper.beeps, 1);
}

TEST_F(ScriptingTest, TellsOfEachStateWhatItHas) {
    const auto states = script().listWindowStates();
    ASSERT_TRUE(states);
    std::vector<std::string> lines;
    for (const auto& state : *states) {
        lines.push_back(state.scope + ": " + state.name.value_or("-") + ", " +
                        state.applicationId.value_or("-") + ", " + state.shortcut->text +
                        std::to_string(state.shortcut->keyCode) + (state.frame ? ", frame" : "") +
                        (state.display ? ", display" : "") + (state.scale ? ", scale" : ""));
    }
    EXPECT_THAT(lines, ElementsAre("default: Full Screen, -, ⌥18, scale",
                                   "default: Centered Large, -, ⌥19, scale",
                                   "default: Centered Medium, -, ⌥20, scale",
                                   "default: Centered Small, -, ⌥21, scale",
                                   "global: Mine, org.example.Terminal, ⌥40, frame, display",
                                   "application: , org.example.Editor, ⌥41, frame, display"));
    EXPECT_EQ(states->at(4).frame, kMine);
    EXPECT_EQ(states->at(4).display, kScreen);
    EXPECT_EQ(states->at(1).scale, (Size{0.9, 0.9}));
    Model::instance().setWindowStates(std::nullopt);
    EXPECT_FALSE(script().listWindowStates());
}

TEST_F(ScriptingTest, SaysWhetherTheWindowMovedToTheNextDisplay) {
    EXPECT_FALSE(script().moveToNextDisplay());
    desktop_.displays.setDisplays(
        {{.id = 1, .bounds = kScreen}, {.id = 2, .bounds = {1600, 0, 1600, 900}}});
    EXPECT_TRUE(script().moveToNextDisplay());
    EXPECT_EQ(frameOf(window_).x, 1700);
}

} // namespace
} // namespace panewright
