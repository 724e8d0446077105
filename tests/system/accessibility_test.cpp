#include "system/used_in_panel.h"

#include <filesystem>
#include <regex>

namespace panewright::test {
namespace {

constexpr const char* kMenu = R"(
popup menu Panewright menu
  menu item Save Current Window… [Press]
  menu item Move to Next Display; disabled [Press]
  menu item Settings… [Press]
  separator; disabled
  menu item Option-Click to edit a shortcut; disabled [Press]
  separator; disabled
  menu item Centered Large, Alt+2 [Press]
  menu item Centered Medium, Alt+3 [Press]
  menu item Centered Small, Alt+4 [Press]
  menu item Full Screen, Alt+1 [Press]
  separator; disabled
  separator; disabled
  menu item Start at Login [Press]
  menu item Restore Built-in States [Press]
  separator; disabled
  menu item Check for Updates… [Press]
  menu item FAQ [Press]
  menu item Version; disabled [Press]
  separator; disabled
  menu item Quit Panewright [Press]
)";
constexpr const char* kSavePopover = R"(
dialog Save Window State
  heading Save Window State
  label Name:
  text Name of the window state; Left half, for example
  label Shortcut:
  push button Shortcut; No shortcut [Press]
  image Icon of the program
  panel Where the shortcut is active
    radio button Only active for TestClient; The keyboard shortcut will only be active while TestClient is active.; checked [Toggle]
    radio button Active for all applications; The keyboard shortcut will be active for all applications. [Toggle]
  check box Prefer the display it is on now; Also with other displays connected, the window goes to one of this size. [Toggle]
  push button Cancel [Press]
  push button Save; default [Press]
)";
constexpr const char* kTabsOfSavePopover = R"(push button Shortcut
radio button Only active for TestClient
check box Prefer the display it is on now
push button Cancel
push button Save
text Name of the window state
)";
constexpr const char* kEditPopover = R"(
dialog Edit Window State
  heading Edit Window State
  label Name:
  text Name of the window state; Left half, for example; 'Corner'
  label Shortcut:
  push button Shortcut; Alt+Shift+Left [Press, Clear]
  label Only active for TestClient
  check box Replace its frame by the current window's; The frame that the window in front had when this was opened. [Toggle]
  push button Cancel [Press]
  push button Save; default [Press]
  push button Delete; Asks first, unless Shift is held. [Press]
)";
constexpr const char* kTabsOfEditPopover = R"(push button Shortcut
check box Replace its frame by the current window's
push button Cancel
push button Save
push button Delete
text Name of the window state
)";
constexpr const char* kAlert = R"(
alert Panewright
  image Warning
  label Are you sure you want to delete this window state?
  panel
    push button Yes; default [Press]
    push button No [Press]
)";
constexpr const char* kSettings = R"(
dialog Settings
  label Move window to next display:
  push button Shortcut that moves the window to the next display; No shortcut [Press]
  check box A shortcut pressed again moves the window to the next display [Toggle]
  check box Start at login [Toggle]
  push button Restore Built-in States; Puts the four built-in states back as they were at first. Your own states stay. [Press]
  label Version
  link FAQ [Press]
)";
constexpr const char* kTabsOfSettings =
    R"(check box A shortcut pressed again moves the window to the next display
check box Start at login
push button Restore Built-in States
link FAQ
push button Shortcut that moves the window to the next display
)";

/// The program used through the desktop's accessibility interface, by a program that is not ours.
class Accessibility : public UsedInPanel {
protected:
    Accessibility() {
        quit();
        environment_["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1";
        environment_["PATH"] = bin_.path().string() + ":" + environment_["PATH"];
        setContent(bin_.path() / "xdg-open",
                   "#!/bin/sh\necho \"$@\" >> " + opened_.string() + "\n");
        std::filesystem::permissions(bin_.path() / "xdg-open", std::filesystem::perms::owner_all);
        start();
    }

    std::string read() const {
        const auto text = runToEnd({SCREEN_READER, "read"}, environment_);
        return "\n" + std::regex_replace(text, std::regex("Version: [0-9.]+"), "Version");
    }
    void expectShown(const std::string& controls) const {
        std::string shown;
        EXPECT_TRUE(eventually([&] { return (shown = read()) == controls; })) << shown;
    }
    void expectShownPart(const std::string& text) const {
        EXPECT_TRUE(eventually([&] { return read().find(text) != std::string::npos; })) << read();
    }
    void use(const char* role, const char* name, const char* action = "Press") const {
        EXPECT_TRUE(eventually([&] {
            ChildProcess reader({SCREEN_READER, "do", role, name, action}, environment_);
            return reader.waitForEnd() == 0;
        })) << name;
    }
    /// Presses Tab as often as there are lines; each is what has the focus then.
    void expectTabsTo(const std::string& controls) {
        ChildProcess reader({SCREEN_READER, "listen"}, environment_);
        reader.firstLine();
        for (auto i = std::count(controls.begin(), controls.end(), '\n'); i > 0; --i) {
            press({"Tab"});
        }
        EXPECT_TRUE(eventually([&] { return reader.standardOutput() == "listening\n" + controls; }))
            << reader.standardOutput();
    }
    std::string settingsFile() const {
        return contentOf(environment_.at("XDG_CONFIG_HOME") + "/Panewright/Panewright.conf");
    }

    TemporaryFolder bin_;
    const std::filesystem::path opened_ = bin_.path() / "opened";
};

TEST_F(Accessibility, TellsOfEveryControlAndObeys) {
    openMenu(window_);
    expectShown(kMenu);

    use("menu item", "Save Current Window…");
    expectShown(kSavePopover);
    expectTabsTo(kTabsOfSavePopover);
    type("Corner");
    {
        // The toolkit shows keys to whoever listens before it takes them.
        ChildProcess reader({SCREEN_READER, "listen"}, environment_);
        reader.firstLine();
        use("push button", "Shortcut");
        expectShownPart("push button Shortcut; Recording: press the keys, or Escape to stop; "
                        "pressed [Press]");
        press({"shift+alt+Left"});
        expectShownPart("push button Shortcut; Alt+Shift+Left [Press, Clear]");
    }
    use("push button", "Save");
    EXPECT_TRUE(eventually([&] { return window_.isActive(); }));
    EXPECT_THAT(store(), testing::HasSubstr("\"keyCode\": 123, \"modifierFlags\": 655360"));

    openMenu(window_);
    type("corner");
    press({"alt+Return"});
    expectShown(kEditPopover);
    expectTabsTo(kTabsOfEditPopover);
    use("push button", "Shortcut", "Clear");
    expectShownPart("push button Shortcut; No shortcut [Press]");
    use("push button", "Delete");
    expectShownPart(kAlert);
    use("push button", "Yes");
    EXPECT_TRUE(eventually([&] { return store().find("Corner") == std::string::npos; }));
}

TEST_F(Accessibility, TellsOfTheSettingsAndObeys) {
    openMenu(window_);
    use("menu item", "Settings…");
    expectShown(kSettings);
    expectTabsTo(kTabsOfSettings);
    use("check box", "A shortcut pressed again moves the window to the next display", "Toggle");
    EXPECT_TRUE(eventually(
        [&] { return settingsFile().find("AllowMoveWindow=true") != std::string::npos; }));
    const auto timesOpened = [&] {
        const auto pages = contentOf(opened_);
        return std::count(pages.begin(), pages.end(), '\n');
    };
    use("link", "FAQ");
    EXPECT_TRUE(eventually([&] { return timesOpened() == 1; }));
    press({"shift+Tab", "Return", "space"});
    EXPECT_TRUE(eventually([&] { return timesOpened() == 3; }));
}

} // namespace
} // namespace panewright::test
