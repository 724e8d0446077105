#include "accessibility/accessibility_element.h"
#include "accessibility/accessibility_helper.h"
#include "accessibility/accessibility_observer.h"
#include "desktop/memory/memory_desktop.h"
#include "support/captured_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr ProcessId kEditor = 42;

class AccessibilityTest : public testing::Test {
protected:
    AccessibilityTest() {
        desktop_.windows.addApplication({kEditor, "org.example.Editor", "Editor"});
        window_ = desktop_.windows.openWindow({.pid = kEditor, .frame = {100, 50, 800, 600}});
        desktop_.windows.activateWindow(window_);
    }

    std::shared_ptr<AccessibilityElement> element() {
        return helper_.focusedWindowForApplicationElementFromPid(kEditor);
    }

    MemoryDesktop desktop_;
    AccessibilityHelper helper_{desktop_.accessibility};
    MemoryWindowId window_ = 0;
};

TEST_F(AccessibilityTest, ReadsAndWritesTheKindsOfValuesThatItCarries) {
    const auto window = element();
    EXPECT_EQ(window->NSValueForAttribute("AXPosition"), Value(Point{100, 50}));
    EXPECT_EQ(window->NSValueForAttribute("AXSize"), Value(Size{800, 600}));
    EXPECT_EQ(window->NSValueForAttribute("AXRole"), std::nullopt); // text
    EXPECT_EQ(window->NSValueForAttribute("AXNothing"), std::nullopt);
    EXPECT_TRUE(window->actsAsRole("AXWindow"));
    EXPECT_FALSE(window->actsAsRole("AXButton"));

    window->setNSValue(Point{10.5, 20}, "AXPosition");
    window->setNSValue(Size{300, 200}, "AXSize");
    window->setNSValue(7.0, "AXPosition");        // a number is not carried
    window->setNSValue(Size{1, 1}, "AXPosition"); // the wrong kind is refused
    EXPECT_EQ(desktop_.windows.find(window_)->frame, (Rect{10.5, 20, 300, 200}));
}

TEST_F(AccessibilityTest, AnswersForAnElementThatIsGone) {
    const auto window = element();
    EXPECT_EQ(window->pid(), kEditor);
    desktop_.windows.closeWindow(window_);
    EXPECT_EQ(window->pid(), -1);
    EXPECT_EQ(window->NSValueForAttribute("AXPosition"), std::nullopt);
    EXPECT_FALSE(window->isAttributeSettable("AXPosition"));
    EXPECT_EQ(helper_.applicationElementFromPid(4711)->pid(), 4711);
}

TEST_F(AccessibilityTest, IsSettableWhenEveryAttributeIs) {
    const std::array<std::string_view, 2> both{"AXPosition", "AXSize"};
    EXPECT_TRUE(element()->areAttributesSettable({}));
    EXPECT_TRUE(element()->areAttributesSettable(both));
    const auto dialog =
        desktop_.windows.openWindow({.pid = kEditor, .frame = {0, 0, 1, 1}, .isResizable = false});
    desktop_.windows.activateWindow(dialog);
    EXPECT_FALSE(element()->areAttributesSettable(both));
}

TEST_F(AccessibilityTest, FindsTheFocusedWindowAndLogsWhyThereIsNone) {
    CapturedLog log;
    ASSERT_NE(helper_.focusedWindowForApplicationFromSystemElement(), nullptr);
    EXPECT_THAT(log.take(), IsEmpty());
    desktop_.windows.closeWindow(window_);
    EXPECT_EQ(helper_.focusedWindowForApplicationFromSystemElement(), nullptr);
    EXPECT_EQ(helper_.focusedWindowForApplicationElementFromPid(kEditor), nullptr);
    EXPECT_THAT(log.take(),
                ElementsAre("can't copy attribute NSAccessibilityFocusedWindowAttribute: "
                            "kAXErrorNoValue"));
    const MemoryDesktop empty;
    MemoryAccessibility nobody(const_cast<MemoryWindows&>(empty.windows), desktop_.mainLoop);
    EXPECT_EQ(AccessibilityHelper(nobody).applicationFromSystemElement(), nullptr);
    EXPECT_THAT(log.take(), ElementsAre("can't copy attribute kAXFocusedApplicationAttribute: "
                                        "kAXErrorNoValue"));
}

TEST(AccessibilityHelper, LogsOnlyTheStatusesThatALookUpMeets) {
    const std::pair<int, const char*> logged[] = {
        {-25212, "m: kAXErrorNoValue"},
        {-25208, "m: kAXErrorNotImplemented"},
        {-25205, "m: kAXErrorAttributeUnsupported"},
        {-25204, "m: kAXErrorCannotComplete"},
        {-25202, "m: kAXErrorInvalidUIElement"},
        {-25201, "m: kAXErrorIllegalArgument"},
        {0, "m: kAXErrorSuccess"},
    };
    CapturedLog log;
    for (const auto& [code, line] : logged) {
        AccessibilityHelper::logResultCode(static_cast<AXError>(code), "m");
        EXPECT_THAT(log.take(), ElementsAre(line));
    }
    for (const int code : {-25200, -25203, -25206, -25207, -25209, -25210, -25211, 1}) {
        AccessibilityHelper::logResultCode(static_cast<AXError>(code), "m");
    }
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST_F(AccessibilityTest, AsksForPermissionOnlyWhenItIsMissing) {
    EXPECT_TRUE(helper_.accessibilityEnabledWithPrompt());
    EXPECT_EQ(desktop_.accessibility.promptsShown(), 0);
    desktop_.accessibility.setTrusted(false);
    EXPECT_FALSE(helper_.accessibilityEnabled());
    EXPECT_FALSE(helper_.accessibilityEnabledWithPrompt());
    EXPECT_EQ(desktop_.accessibility.promptsShown(), 1);
}

class ObserverTest : public AccessibilityTest {
protected:
    std::shared_ptr<AccessibilityObserver> moves() {
        return AccessibilityObserver::observerForNotification(
            "AXWindowMoved", [this](auto& observer, const auto& element, const auto& name) {
                calls_.push_back(element);
                EXPECT_EQ(name, "AXWindowMoved");
                EXPECT_EQ(observer.element(), element);
            });
    }
    void move(MemoryWindowId window, double x) {
        desktop_.windows.setFrame(window, {x, 50, 800, 600});
        desktop_.mainLoop.runPending();
    }

    std::vector<std::shared_ptr<AccessibilityElement>> calls_;
};

TEST_F(ObserverTest, HearsOfItsElementUntilItIsRemoved) {
    const auto window = element();
    const auto observer = moves();
    window->addObserver(observer);
    move(window_, 1);
    EXPECT_THAT(calls_, ElementsAre(window));

    window->removeObserver(observer);
    EXPECT_EQ(observer->element(), window);
    EXPECT_THAT(window->observers(), IsEmpty());
    observer->uninstallObserver(); // once more is harmless
    move(window_, 2);
    EXPECT_THAT(calls_, SizeIs(1));
}

TEST_F(ObserverTest, MovesToAnotherElementAndStaysListedOnTheFirst) {
    const auto first = element();
    const auto other = desktop_.windows.openWindow({.pid = kEditor, .frame = {0, 0, 10, 10}});
    desktop_.windows.activateWindow(other);
    const auto second = element();
    const auto observer = moves();
    first->addObserver(observer);
    second->addObserver(observer);
    move(window_, 1);
    EXPECT_THAT(calls_, IsEmpty());
    move(other, 1);
    EXPECT_THAT(calls_, ElementsAre(second));
    EXPECT_THAT(first->observers(), ElementsAre(observer));
}

TEST_F(ObserverTest, IsUninstalledWhenItsElementGoes) {
    const auto observer = moves();
    {
        const auto window = element();
        window->addObserver(observer);
        EXPECT_TRUE(observer->isInstalled());
    }
    EXPECT_FALSE(observer->isInstalled());
    EXPECT_EQ(observer->element(), nullptr);
    move(window_, 1);
    EXPECT_THAT(calls_, IsEmpty());
}

TEST_F(ObserverTest, MayRemoveItselfWhileItIsCalled) {
    const auto window = element();
    window->addObserver(AccessibilityObserver::observerForNotification(
        "AXWindowMoved", [&](auto&, const auto& element, const auto& name) {
            calls_.push_back(element);
            window->removeAllObservers();
            EXPECT_EQ(name, "AXWindowMoved");
        }));
    move(window_, 1);
    move(window_, 2);
    EXPECT_THAT(calls_, SizeIs(1));
}

} // namespace
} // namespace panewright
