#include "support/program_fixture.h"

#include <functional>

namespace panewright {
namespace {

class UsageEventsTest : public ProgramFixture {
protected:
    /// The events since the last call, as "Name key=value ...".
    std::vector<std::string> eventsWithAttributes() {
        std::vector<std::string> lines;
        for (const auto& event : std::exchange(desktop_.analytics.events, {})) {
            lines.push_back(event.name);
            for (const auto& [key, value] : event.attributes) {
                const auto* const number = std::get_if<std::int64_t>(&value);
                lines.back() += " " + key + "=" +
                                (number ? std::to_string(*number) : std::get<std::string>(value));
            }
        }
        return lines;
    }
    MemorySaveShortcutView& save() { return *desktop_.views.save; }
    MemoryEditShortcutView& edit() { return *desktop_.views.edit; }
    Settings& settings() { return desktop_.views.settings->controller(); }
};

TEST_F(UsageEventsTest, AreSentEachOnItsPathOnly) {
    launch();
    openProgram(kEditor, kEditorId, {100, 100, 500, 400});
    desktop_.displays.setDisplays(
        {{.id = 1, .bounds = kScreen}, {.id = 2, .bounds = {1600, 0, 1600, 900}}});
    desktop_.mainLoop.runPending();
    const std::string large = " DefaultShortcutName=Centered Large IsDefault=1 IsGlobal=0 "
                              "KeyboardShortcut=⌥ PrefersDisplay=0 WindowStateName=Centered Large";
    const std::string mine = " AppBundleId=org.example.Editor AppName=org.example.Editor "
                             "IsDefault=0 IsGlobal=1 PrefersDisplay=1 "
                             "WindowStateName=Mine";
    const std::string menu = "OpenMenu WasFlat=0";
    struct Step {
        const char* name;
        std::function<void()> act;
        std::vector<std::string> events;
    };
    const Step tour[] = {
        {"a hot key", [&] { press(19); }, {"ApplyWindowState" + large}},
        {"a row of the menu",
         [&] { choose("Centered Large"); },
         {menu, "ApplyWindowState" + large}},
        {"the next display", [&] { choose("Move to Next Display"); }, {menu, "MoveToNextDisplay"}},
        {"the flat menu",
         [&] {
             desktop_.statusItem.click({.isRightButton = true});
             desktop_.menuView.close();
         },
         {"OpenMenu WasFlat=1"}},
        {"saving",
         [&] {
             choose("Save Current Window…");
             save().name = "Mine";
             save().allApplications = save().preferred = true;
             save().appOnly = false;
             save().controller().save();
         },
         {menu, "SaveWindowState" + mine}},
        {"saving nothing",
         [&] {
             choose("Save Current Window…");
             save().controller().cancel();
         },
         {menu, "CancelSaveWindowState"}},
        {"editing",
         [&] {
             choose("Mine", kOption);
             edit().controller().save();
         },
         {menu, "EditWindowState" + mine, "SaveEditsToWindowState" + mine}},
        {"a popover in the place of another",
         [&] {
             choose("Mine", kOption);
             choose("Save Current Window…");
             choose("Mine", kOption);
             edit().controller().cancel();
         },
         {menu, "EditWindowState" + mine, menu, "CancelEditWindowState" + mine, menu,
          "CancelSaveWindowState", "EditWindowState" + mine, "CancelEditWindowState" + mine}},
        {"Escape",
         [&] {
             choose("Mine", kOption);
             edit().controller().keyDown({kEscape, 0});
         },
         {menu, "EditWindowState" + mine}},
        {"deleting in the popover after all",
         [&] {
             choose("Mine", kOption);
             edit().controller().deleteWindowState(0);
             desktop_.alerts.press(1);
             edit().controller().deleteWindowState(0);
             desktop_.alerts.press(0);
         },
         {menu, "EditWindowState" + mine, "RemoveWindowState" + mine, "DeleteWindowState" + mine}},
        {"deleting in the menu",
         [&] {
             choose("Centered Large", kOption | kShift);
             controller().removeWindowState(nullptr);
         },
         {menu, "RemoveWindowState" + large, "RemoveWindowState"}},
        {"looking for updates", [&] { choose("Check for Updates…"); }, {menu, "CheckForUpdates"}},
        {"the FAQ", [&] { choose("FAQ"); }, {menu, "OpenFAQ"}},
        {"the controller's FAQ", [&] { controller().openFAQ(); }, {}},
        {"what sends none",
         [&] {
             choose("Start at Login");
             choose("Start at Login");
             choose("Restore Built-in States");
             choose("Send Feedback…");
         },
         {menu, menu, menu, menu}},
        {"the settings", [&] { choose("Settings…"); }, {menu, "ShowSettings"}},
        {"a shortcut that moves displays",
         [&] { settings().allowStateShortuctMoveWindow(); },
         {"AllowShortcutToMoveDisplays State=0"}},
        {"the built-in states",
         [&] { settings().restoreDefaultWindowStates(); },
         {"RestoreDefaultWindowStates"}},
        {"start at login",
         [&] {
             desktop_.views.settings->startsAtLogin = true;
             settings().startupItem();
             desktop_.views.settings->startsAtLogin = false;
             settings().startupItem();
         },
         {"InstallStartupItem", "RemoveStartupItem"}},
        {"the product's pages",
         [&] {
             settings().feedback();
             settings().faq();
             settings().website();
         },
         {"PreferencesFeedback", "PreferencesFAQ", "PreferencesWebsite"}},
        {"quitting", [&] { choose("Quit Panewright"); }, {menu}},
    };
    eventsWithAttributes();
    for (const auto& [name, act, events] : tour) {
        act();
        desktop_.mainLoop.runPending();
        EXPECT_EQ(eventsWithAttributes(), events) << name;
    }
}

TEST_F(UsageEventsTest, CountAnAttemptWithoutAWindowButNoneWithoutPermission) {
    launch();
    const auto window = openProgram(kEditor, kEditorId, {100, 100, 500, 400});
    desktop_.windows.closeWindow(window);
    eventsWithAttributes();
    EXPECT_TRUE(press(19));
    EXPECT_EQ(eventsWithAttributes().size(), 1U);
    desktop_.windows.setPermitted(false);
    EXPECT_TRUE(press(19));
    EXPECT_TRUE(eventsWithAttributes().empty());
}

} // namespace
} // namespace panewright
