#include "menubar/status_menu.h"

#include "support/program_fixture.h"

namespace panewright {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr Rect kStart{100, 50, 800, 600}, kOwn{0, 0, 300, 200};

const std::vector<std::string> kBefore{"Save Current Window…", "(Move to Next Display)",
                                       "Settings…"};
const std::vector<std::string> kAfter{"Start at Login",
                                      "Restore Built-in States",
                                      "-",
                                      "Check for Updates…",
                                      "Send Feedback…",
                                      "FAQ",
                                      "(Version: 1.2.8.57)",
                                      "-",
                                      "Quit Panewright"};
const std::vector<std::string> kHelp{"-", "(Option-Click to edit a shortcut)", "-"};
const std::vector<std::string> kBuiltIn{"Centered Large ⌥2", "Centered Medium ⌥3",
                                        "Centered Small ⌥4", "Full Screen ⌥1"};

std::vector<std::string> operator+(std::vector<std::string> a, const std::vector<std::string>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

/// Rows as "title shortcut", in brackets where they cannot be chosen, "-" for a separator.
std::vector<std::string> rows(const Menu* menu) {
    std::vector<std::string> rows;
    for (const auto& item : menu ? menu->items() : MenuItems()) {
        std::string row = item->isSeparator ? "-" : item->title;
        row += item->shortcut.text.empty() ? "" : ' ' + item->shortcut.text;
        row += item->shortcut.isTaken ? " (taken)" : "";
        row += item->submenu ? " >" : "";
        rows.push_back(item->isSeparator || item->canBeChosen() ? row : '(' + row + ')');
    }
    return rows;
}

/// The program with an editor's window in front, on one display.
class StatusMenuTest : public ProgramFixture {
protected:
    StatusMenuTest() {
        desktop_.keyboardLayout.setKeys({{18, "1"}, {19, "2"}, {20, "3"}, {21, "4"}, {49, " "}});
        window_ = openProgram(kEditor, kEditorId, kStart);
        launch();
    }

    std::shared_ptr<WindowState> add(const std::string& bundleId, const std::string& name,
                                     std::optional<std::string> appName,
                                     std::uint64_t keyCode = 0) {
        auto state = addState(name, bundleId.empty(), bundleId, keyCode, kOwn);
        state->setAppName(std::move(appName));
        if (keyCode == 0) {
            state->setKeyEvent(nullptr);
        }
        return state;
    }
    const Menu* open(const StatusItemClick& click = {}) {
        desktop_.statusItem.click(click);
        return view().shown();
    }
    std::shared_ptr<MenuItem> item(const std::string& title, std::string_view submenu = {}) {
        for (const auto& item : view().shown(submenu)->items()) {
            if (item->title == title) {
                return item;
            }
        }
        return nullptr;
    }
    MemoryMenuView& view() { return desktop_.menuView; }

    WindowId window_ = 0;
};

TEST_F(StatusMenuTest, ListsTheBuiltInStatesByNameBetweenItsFixedItems) {
    EXPECT_THAT(rows(open()), ElementsAreArray(kBefore + kHelp + kBuiltIn +
                                               std::vector<std::string>{"-", "-"} + kAfter));
    EXPECT_EQ(Model::instance().defaultWindowStates()->front()->windowStateName(), "Centered Large")
        << "the store keeps the order";
    EXPECT_EQ(item("Full Screen")->image->size(), (Size{28, 16}));
    EXPECT_EQ(item("Full Screen")->shortcut,
              (MenuShortcut{18, "1", kOption, "⌥1", "Option+1", false}));
    EXPECT_EQ(item("Option-Click to edit a shortcut")->toolTip,
              "Option is the Option key. Option-Shift-Click deletes.");
    EXPECT_EQ(view().shown()->items()[3]->tag, 210);
    EXPECT_EQ(item("Full Screen")->tag, 210);
    EXPECT_EQ(item("Start at Login")->tag, 0);
}

TEST_F(StatusMenuTest, GroupsTheStatesOfApplicationsByName) {
    add("org.example.zed", "b", "zed");
    add("org.example.zed", "B", "zed");
    add("org.example.zed", "a", "other name");
    add("org.example.alpha2", "one", "ALPHA");
    add("org.example.alpha1", "two", "alpha");
    add("org.example.Nameless", "lost", std::nullopt);
    add(kEditorId, "Mine", "Editor", 49);
    const std::vector<std::string> quick{"Centered Large ⌥2", "Centered Medium ⌥3",
                                         "Centered Small ⌥4", "Full Screen ⌥1", "Mine ⌥Space"};
    EXPECT_THAT(rows(open()), ElementsAreArray(kBefore + kHelp + quick +
                                               std::vector<std::string>{
                                                   "-", "(All saved window states)", "alpha >",
                                                   "ALPHA >", "Editor >", "zed >", "-"} +
                                               kAfter));
    EXPECT_EQ(item("Mine")->shortcut.keyEquivalent, " ");
    EXPECT_THAT(rows(view().shown("zed")), ElementsAre("B", "a", "b"));
    EXPECT_EQ(item("zed")->image->size(), (Size{16, 16}));
    EXPECT_EQ(item("b", "zed")->image->size(), (Size{28, 16}));
    EXPECT_EQ(item("zed")->tag, 210);
    EXPECT_EQ(item("b", "zed")->tag, 0);
    EXPECT_EQ(desktop_.icons.timesSought["org.example.zed"], 1);
}

TEST_F(StatusMenuTest, ListsThemFlatAfterARightClickOrWithOption) {
    add("org.example.b", "two", "B");
    add("org.example.a", "three", "A", 18);
    add("org.example.Nameless", "One", std::nullopt);
    desktop_.icons.missing = {"org.example.b"};
    const auto expected =
        kBefore + kHelp + kBuiltIn +
        std::vector<std::string>{"-", "(All saved window states)", "One", "three", "two", "-"} +
        kAfter;
    EXPECT_THAT(rows(open({.isRightButton = true})), ElementsAreArray(expected));
    EXPECT_THAT(rows(open({.modifierFlags = kOption | kCapsLock})), ElementsAreArray(expected));
    EXPECT_EQ(item("three")->image->size(), (Size{48, 16}));
    EXPECT_EQ(item("two")->image->size(), (Size{28, 16}));
    EXPECT_EQ(desktop_.icons.timesSought["org.example.b"], 2) << "once for each opening";
    EXPECT_THAT(rows(open({.modifierFlags = kShift})), testing::Contains("A >"));
}

TEST_F(StatusMenuTest, ShowsAShortcutOnlyBesideTheStateThatHasIt) {
    add("", "Everywhere", "Editor", 18);
    add("", "First", "Editor", 19);
    add(kEditorId, "Mine", "Editor", 19);
    add("org.example.Viewer", "Elsewhere", "Viewer", 20);
    desktop_.hotKeys.takeByAnotherProgram(21, 0x800);
    open();
    auto quick = rows(view().shown());
    quick.erase(quick.begin(), quick.begin() + 6);
    quick.resize(8);
    EXPECT_THAT(quick,
                ElementsAre("Centered Large", "Centered Medium ⌥3", "Centered Small ⌥4 (taken)",
                            "Everywhere ⌥1", "First", "Full Screen", "Mine ⌥2", "-"));
    EXPECT_EQ(item("First")->shortcut, MenuShortcut{}) << "nothing of it is left";
}

TEST_F(StatusMenuTest, AppliesEditsAndDeletesByWhatIsHeldAtTheChoice) {
    const auto state = add(kEditorId, "Mine", "Editor", 18);
    open();
    EXPECT_TRUE(view().choose("Mine", kShift));
    EXPECT_EQ(frameOf(window_), kOwn);
    EXPECT_FALSE(view().isOpen());
    open();
    EXPECT_TRUE(view().choose("Mine", kOption, "Editor"));
    EXPECT_EQ(desktop_.views.edit->controller().windowState(), state);

    const auto* menu = open();
    const auto inSubmenu = item("Mine", "Editor");
    EXPECT_TRUE(view().choose("Mine", kOption | kShift | kCapsLock));
    EXPECT_THAT(rows(menu), testing::Not(testing::Contains("Mine ⌥1"))) << "it goes at once";
    desktop_.windows.setFrame(window_, kStart);
    EXPECT_TRUE(press(18));
    EXPECT_EQ(frameOf(window_), kScreen) << "the key is the built-in one's";

    // A row that is left of a state that is gone.
    desktop_.windows.setFrame(window_, kStart);
    desktop_.mainLoop.advance(1s);
    inSubmenu->action({});
    EXPECT_EQ(frameOf(window_), kOwn);
    inSubmenu->action({kOption | kShift});
    EXPECT_EQ(inSubmenu->menu, nullptr);
}

TEST_F(StatusMenuTest, TakesTheStatesOutHalfASecondAfterItHasClosed) {
    const auto count = [&](const Menu* menu) { return rows(menu).size(); };
    const auto* menu = open();
    const auto all = count(menu);
    desktop_.mainLoop.advance(10s);
    EXPECT_EQ(count(menu), all) << "while it is open";
    view().close();
    desktop_.mainLoop.advance(499ms);
    EXPECT_EQ(count(menu), all);
    open();
    desktop_.mainLoop.advance(1s);
    EXPECT_EQ(count(menu), all) << "it was opened again";
    open(); // in the place of the one that is open
    desktop_.mainLoop.advance(1s);
    EXPECT_EQ(count(menu), all);
    view().close();
    desktop_.mainLoop.advance(500ms);
    EXPECT_THAT(rows(menu), ElementsAreArray(kBefore + kAfter));
}

TEST_F(StatusMenuTest, LetsAHotKeyThatIsPressedInItDoItsWork) {
    open();
    EXPECT_FALSE(view().press({18, 0}));
    EXPECT_FALSE(view().press({18, kOption | kShift}));
    EXPECT_TRUE(view().isOpen());
    EXPECT_TRUE(view().press({18, kOption | kCapsLock}));
    EXPECT_FALSE(view().isOpen());
    desktop_.mainLoop.runPending();
    EXPECT_EQ(frameOf(window_), kScreen);
    desktop_.hotKeys.takeByAnotherProgram(19, 0x800);
    open();
    EXPECT_FALSE(view().press({19, kOption})) << "it is another program's";
}

TEST_F(StatusMenuTest, DisablesTheNextDisplayOnlyWithOneScreen) {
    const Display left{.id = 1, .bounds = kScreen};
    const Display right{.id = 2, .bounds = {1600, 0, 1600, 900}};
    for (const DisplaySnapshot& displays : {DisplaySnapshot{left}, {left, right}, {}}) {
        desktop_.displays.setDisplays(displays);
        open();
        EXPECT_EQ(item("Move to Next Display")->canBeChosen(), displays.size() != 1);
    }
}

TEST_F(StatusMenuTest, DoesWhatItsFixedItemsSay) {
    Model::instance().defaultWindowStates()->clear();
    controller().addEventHandlers();
    EXPECT_FALSE(press(18));
    for (const char* title : {"Restore Built-in States", "Check for Updates…", "Send Feedback…",
                              "FAQ", "Start at Login"}) {
        open();
        EXPECT_TRUE(view().choose(title)) << title;
    }
    EXPECT_TRUE(press(18));
    EXPECT_EQ(desktop_.softwareUpdater.checks, 1);
    EXPECT_THAT(desktop_.workspace.openedUrls,
                ElementsAre("http://quillfen.com/panewright/disqus.html",
                            "http://quillfen.com/panewright#faq"));
    open();
    EXPECT_TRUE(item("Start at Login")->isChecked);
}

class StatusMenuOfAProgramAlone : public ProgramFixture {};

TEST_F(StatusMenuOfAProgramAlone, HasNoSiteForFeedback) {
    desktop_.program.site = "";
    launch();
    desktop_.statusItem.click();
    auto last = rows(desktop_.menuView.shown());
    last.erase(last.begin(), last.end() - 7);
    EXPECT_THAT(last, ElementsAre("Restore Built-in States", "-", "Check for Updates…", "FAQ",
                                  "(Version: 1.2.8.57)", "-", "Quit Panewright"));
}

TEST(MenuAdditions, MeanTheTagsInTheirRange) {
    Menu menu;
    for (const std::int64_t tag : {-1, 0, 209, 210, 211, 212}) {
        menu.insertItems({separatorItemWithTag(tag)}, menu.items().size());
        menu.items().back()->isSeparator = tag == 0;
    }
    // The tags of all items, in brackets where these are disabled.
    const auto tags = [&] {
        std::string text;
        for (const auto& item : menu.items()) {
            const auto tag = std::to_string(item->tag);
            text += item->isEnabled ? tag + ' ' : '(' + tag + ") ";
        }
        return text;
    };
    setEnabled(menu, false, {210, 2});
    EXPECT_EQ(tags(), "-1 0 209 (210) (211) 212 ");
    setAllItemsEnabled(menu, false);
    EXPECT_EQ(tags(), "(-1) 0 (209) (210) (211) (212) ") << "no separator";
    removeItemsWithTagsInRange(menu, {static_cast<std::uint64_t>(-1), 1});
    removeItemsWithTagsInRange(menu, {0, 210});
    removeItemsWithTag(menu, 211);
    EXPECT_EQ(tags(), "(210) (212) ");
    const auto item = menu.items().front();
    removeFromContainingMenu(*item);
    removeFromContainingMenu(*item);
    EXPECT_EQ(tags(), "(212) ");
}

} // namespace
} // namespace panewright
