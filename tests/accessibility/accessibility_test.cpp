#include "accessibility/accessibility_element.h"
#include "accessibility/accessibility_helper.h"
#include "accessibility/accessibility_observer.h"
#include "desktop/memory/memory_desktop.h"
#include "support/captured_log.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr ProcessId kEditor = 42;

class AccessibilityTest : public testing::Test {
protected:
    AccessibilityTest() {
        desktop_.windows.addApplication({kEditor, "org.example.Editor", "Editor"});
        window_ = open({100, 50, 800, 600});
    }

    MemoryWindowId open(const Rect& frame) {
        const auto opened = desktop_.windows.openWindow({.pid = kEditor, .frame = frame});
        desktop_.windows.activateWindow(opened);
        return opened;
    }
    std::shared_ptr<AccessibilityElement> element() {
        return helper_.focusedWindowForApplicationElementFromPid(kEditor);
    }

    MemoryDesktop desktop_;
    AccessibilityHelper helper_{desktop_.accessibility};
    MemoryWindowId window_ = 0;
};

TEST_F(AccessibilityTest, CarriesPositionsAndSizesAndLogsWhyThereIsNoWindow) {
    CapturedLog log;
    const auto window = helper_.focusedWindowForApplicationFromSystemElement();
    EXPECT_EQ(window->NSValueForAttribute("AXRole"), std::nullopt); // text
    window->setNSValue(7.0, "AXPosition");                          // a number
    EXPECT_EQ(window->NSValueForAttribute("AXPosition"), Value(Point{100, 50}));
    EXPECT_THAT(log.take(), IsEmpty());
    desktop_.windows.closeWindow(window_);
    EXPECT_EQ(helper_.focusedWindowForApplicationFromSystemElement(), nullptr);
    AccessibilityHelper::logResultCode(static_cast<AXError>(-25211), "no look-up meets this");
    EXPECT_THAT(log.take(),
                ElementsAre("can't copy attribute NSAccessibilityFocusedWindowAttribute: "
                            "kAXErrorNoValue"));
}

TEST_F(AccessibilityTest, TellsAnObserverOfItsLastElementUntilItIsRemovedOrTheElementGoes) {
    auto first = element();
    const auto other = open({0, 0, 10, 10});
    auto second = element();
    std::vector<std::string> calls;
    const auto observer = AccessibilityObserver::observerForNotification(
        "AXWindowMoved", [&](auto& self, const auto& moved, const auto& name) {
            calls.push_back(name);
            EXPECT_EQ(moved, second);
            EXPECT_EQ(self.element(), second);
            second->removeAllObservers();
        });
    double x = 0;
    const auto callsAfterMoving = [&](MemoryWindowId window) {
        calls.clear();
        desktop_.windows.setFrame(window, {++x, 0, 10, 10});
        desktop_.mainLoop.runPending();
        return calls;
    };
    first->addObserver(observer);
    second->addObserver(observer);
    EXPECT_THAT(first->observers(), ElementsAre(observer)) << "it stays listed";
    EXPECT_THAT(callsAfterMoving(window_), IsEmpty());
    EXPECT_THAT(callsAfterMoving(other), ElementsAre("AXWindowMoved"));
    EXPECT_THAT(callsAfterMoving(other), IsEmpty()) << "it has removed itself";
    EXPECT_EQ(observer->element(), second);
    observer->uninstallObserver(); // once more is harmless

    second->addObserver(observer);
    EXPECT_TRUE(observer->isInstalled());
    second = nullptr;
    EXPECT_FALSE(observer->isInstalled());
    EXPECT_EQ(observer->element(), nullptr);
    EXPECT_THAT(callsAfterMoving(other), IsEmpty());
}

} // namespace
} // namespace panewright
