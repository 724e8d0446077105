#include "system/used_in_panel.h"

#include <csignal>

namespace panewright::test {
namespace {

class Saving : public UsedInPanels {};

TEST_P(Saving, MakesAStateForItsApplicationAndOneForAll) {
    constexpr Frame kCorner{60, 70, 500, 400}, kWide{200, 300, 900, 300};
    const TestClient first(desktop_.display(), {.windowClass = "Editor"});
    first.activate();
    placeWindow(desktop_.x(), first.window(), kCorner);
    openPopover(first);
    save(first, "Corner", "alt+9");
    TestClient other(desktop_.display(), {.windowClass = "Viewer"});
    other.activate();
    placeWindow(desktop_.x(), other.window(), kWide);
    openPopover(other);
    save(other, "Wide", "alt+8", {"alt+a"});
    const TestClient second(desktop_.display(), {.windowClass = "Editor"});

    for (const int end : {SIGTERM, SIGKILL, SIGTERM}) {
        SCOPED_TRACE(end);
        switchTo(second);
        expectAfter(KEY_9, kCorner, desktop_, second.window());
        expectAfter(KEY_8, kWide, desktop_, second.window());
        switchTo(other);
        const auto pressesBefore = other.keyPresses();
        expectAfter(KEY_9, frameOf(other), desktop_, other.window());
        EXPECT_TRUE(eventually([&] { return other.keyPresses() > pressesBefore; }));
        expectAfter(KEY_2, kLarge, desktop_, other.window());
        expectAfter(KEY_8, kWide, desktop_, other.window());
        (*program_)->sendSignal(end);
        EXPECT_EQ((*program_)->waitForEnd(), end == SIGTERM ? 0 : -SIGKILL);
        start();
    }
}

TEST_P(Saving, GivesTheKeyboardBackWhenItIsCancelled) {
    const auto before = frameOf(window_);
    for (const char* key : {"Escape", "alt+c"}) {
        openPopover(window_);
        expectAfter(KEY_2, before, desktop_, window_.window()); // not while the popover is open
        EXPECT_TRUE(isPopoverActive());
        press({key});
        EXPECT_TRUE(eventually([&] { return window_.isActive(); })) << key;
        pause();
    }
    expectAfter(KEY_2, kLarge, desktop_, window_.window());
    openMenu(window_);
    press({"Up", "Return"}); // the last item
    EXPECT_EQ((*program_)->waitForEnd(), 0);
}

TEST_P(Saving, LeavesNoMenuOpenThatAHeldHotKeyKeepsFromTheKeyboard) {
    openMenu(window_);
    press({"Escape"});
    desktop_.keyboard().press(KEY_LEFTALT);
    desktop_.keyboard().press(KEY_2);
    desktop_.keyboard().release(KEY_LEFTALT);
    desktop_.run({"xdotool", "click", "1"});
    pause();
    desktop_.keyboard().release(KEY_2);
    // The menu takes the keyboard a moment after the key has let go of it.
    EXPECT_TRUE(eventually([&] {
        press({"Escape"});
        return !isMenuOpen();
    }));
}

TEST_P(Saving, OpensOnTheVirtualDesktopThatIsShownAlsoAfterItWasLeftOnAnother) {
    openPopover(window_);
    desktop_.x().sendToWindowManager(desktop_.x().root(), "_NET_CURRENT_DESKTOP", {1});
    const TestClient other(desktop_.display());
    other.activate();
    openPopover(other);
    press({"Escape"});
    ASSERT_TRUE(eventually([&] { return other.isActive(); }));
    pause();
    expectAfter(KEY_2, kLarge, desktop_, other.window());
}

TEST_P(Saving, EndsOnSigtermWhileAShortcutIsRecorded) {
    openPopover(window_);
    press({"Tab", "space"});
    quit();
}

INSTANTIATE_TEST_SUITE_P(Everywhere, Saving, testing::Values(kTint2, kXfce4Panel), nameOfManager);

class SavingInOnePanel : public UsedInPanel {};

TEST_F(SavingInOnePanel, HasSettingsThatAreUsedWithKeysAndMouse) {
    const std::filesystem::path config = desktop_.environment()["XDG_CONFIG_HOME"];
    const auto isWritten = [&](const std::string& line, bool wanted = true) {
        return eventually([&] {
            const auto settings = contentOf(config / "Panewright/Panewright.conf");
            return (settings.find(line + "\n") != std::string::npos) == wanted;
        });
    };
    openMenu(window_);
    press({"Down", "Down", "Return"}); // past the next display, of which there is none
    ASSERT_TRUE(eventually([&] { return !window_.isActive(); }));
    pause();
    press({"alt+p"});
    EXPECT_TRUE(isWritten("AllowMoveWindow=true"));
    press({"alt+m", "space", "alt+n"});
    EXPECT_TRUE(isWritten("MoveToNextWindowKeyEventKeyCode=45"));
    EXPECT_TRUE(isWritten("MoveToNextWindowKeyEventKeyModifiers=524288"));
    press({"alt+l"});
    const auto entry = config / "autostart/com.quillfen.Panewright.Agent.desktop";
    EXPECT_TRUE(eventually([&] { return std::filesystem::exists(entry); }));
    EXPECT_THAT(contentOf(entry), testing::HasSubstr("Exec=\"" PANEWRIGHT_PROGRAM "\""));

    // The recorder, whose cross stands at its right end while it records.
    press({"space"});
    desktop_.run({"xdotool", "search", "--onlyvisible", "--name", "^Settings", "mousemove",
                  "--window", "%1", "300", "30", "click", "1"});
    press({"Escape"}); // what was there comes back
    EXPECT_TRUE(isWritten("MoveToNextWindowKeyEventKeyCode=45"));
    press({"alt+m", "BackSpace"});
    EXPECT_TRUE(isWritten("MoveToNextWindowKeyEventKeyCode=45", false));
}

TEST_F(SavingInOnePanel, FitsItsScreenAtAScaleOfTwo) {
    quit();
    environment_["QT_SCALE_FACTOR"] = "2";
    start();
    openPopover(window_);
    const auto& x = desktop_.x();
    const auto popover = outerFrame(x, x.activeWindow());
    EXPECT_EQ(popover.y + popover.height, 870) << "it stands on the panel";
    EXPECT_EQ(popover.x + popover.width, 1584) << "16 pixels from the edge";
    EXPECT_GT(popover.width, 600);
    save(window_, "Large", "alt+9");
    EXPECT_THAT(store(), testing::HasSubstr("\"Large\""));
}

TEST_F(SavingInOnePanel, RecordsEveryKeyThatHasACode) {
    desktop_.run({"setxkbmap", "-layout", "us,de", "-option", "grp:rctrl_toggle"});
    EXPECT_TRUE(desktop_.x().grabKey(XCB_MOD_MASK_1, Keyboard::keycode(KEY_7)));
    const auto before = frameOf(window_);
    constexpr int kOption = 524288, kCommand = 1048576;
    const struct {
        const char* what;
        std::uint16_t modifier; // 0: none
        std::uint16_t key;
        std::optional<int> keyCode;
        int flags;
    } cases[] = {
        {"one of our own", KEY_LEFTALT, KEY_2, 19, kOption},
        {"one of the window manager's", KEY_LEFTALT, KEY_F5, 96, kOption},
        {"one of another program's", KEY_LEFTALT, KEY_7, 26, kOption},
        {"a function key", 0, KEY_F6, 97, 0},
        {"a keypad key", 0, KEY_KPPLUS, 69, 0},
        {"Space", KEY_LEFTALT, KEY_SPACE, 49, kOption},
        {"Delete", KEY_LEFTMETA, KEY_BACKSPACE, 51, kCommand},
        {"Tab", 0, KEY_TAB, std::nullopt, 0},
        {"a key without a code, then Escape", KEY_PLAYPAUSE, KEY_ESC, std::nullopt, 0},
        {"a dead key of the second layout", KEY_RIGHTCTRL, KEY_GRAVE, 50, 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        openPopover(window_);
        type("Recorded");
        press({"Tab", "space"});
        each.modifier ? desktop_.keyboard().tap(each.modifier, each.key)
                      : desktop_.keyboard().tap(each.key);
        press({"Return"});
        ASSERT_TRUE(eventually([&] { return window_.isActive(); }));
        EXPECT_EQ(frameOf(window_), before);
        const auto saved = store();
        const auto shortcut = "\"keyCode\": " + std::to_string(each.keyCode.value_or(0)) +
                              ", \"modifierFlags\": " + std::to_string(each.flags);
        EXPECT_EQ(each.keyCode.has_value(), saved.find(shortcut) != std::string::npos) << saved;
    }
}

TEST_F(SavingInOnePanel, EditsAndDeletesAStateWithTheKeysAlone) {
    const auto edit = [&](const std::string& name) {
        openMenu(window_);
        type(name);
        press({"alt+Return"});
        ASSERT_TRUE(eventually([&] { return isPopoverActive(); }));
    };
    const auto expectStored = [&](const std::string& text, const char* what) {
        EXPECT_TRUE(eventually([&] { return window_.isActive(); })) << what;
        EXPECT_THAT(store(), testing::HasSubstr(text)) << what;
    };
    openPopover(window_);
    save(window_, "Before", "alt+9");
    const auto saved = store();
    edit("Before");
    press({"Tab", "space", "alt+8", "Escape"});
    expectStored(saved, "Escape writes nothing");
    edit("Before");
    type("After");
    press({"Return"});
    expectStored("\"After\"", "the new name");
    expectStored(R"("keyCode": 28, "modifierFlags": 524288)", "the shortcut of before Escape");
    edit("After");
    const auto popover = desktop_.x().activeWindow();
    for (const char* answer : {"Escape", "Return"}) {
        press({"alt+d"});
        ASSERT_TRUE(eventually(
            [&] { return isPopoverActive() && desktop_.x().activeWindow() != popover; }));
        press({answer});
        EXPECT_EQ(eventually([&] { return desktop_.x().activeWindow() == popover; },
                             std::chrono::seconds(1)),
                  answer == std::string("Escape"));
    }
    EXPECT_TRUE(eventually([&] { return window_.isActive(); }));
    EXPECT_THAT(store(), testing::Not(testing::HasSubstr("\"After\"")));
}

} // namespace
} // namespace panewright::test
