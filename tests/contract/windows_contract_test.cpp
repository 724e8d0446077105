// What every desktop answers of its programs and their windows.

#include "accessibility/accessibility_helper.h"
#include "accessibility/accessibility_observer.h"
#include "contract/desktop_driver.h"
#include "contract/late_desktop.h"
#include "desktop/memory/memory_main_loop.h"
#include "desktop/shared/windows_accessibility.h"
#include "support/captured_log.h"

#include <gmock/gmock.h>

#include <limits>
#include <map>

namespace panewright {
namespace {

using testing::ElementsAre;

constexpr Rect kFirstFrame{100, 100, 400, 300};
constexpr auto kOwnIdentifier = "com.quillfen.Panewright";
constexpr auto kPosition = NSAccessibilityPositionAttribute;
constexpr auto kSize = NSAccessibilitySizeAttribute;

/// Programs named by their bundle identifier, each with windows.
class WindowsContract : public DesktopContract {
protected:
    /// Opens a window and returns when its program is frontmost with it.
    WindowId open(const std::string& program, const Rect& frame = kFirstFrame,
                  Size minimumSize = {1, 1}) {
        constexpr ProcessId kFirstPid = 10'000'000; // no real process has such a number
        OpenedWindow wanted{.program = program, .frame = frame, .minimumSize = minimumSize};
        wanted.pid = pids_.try_emplace(program, kFirstPid + pids_.size()).first->second;
        if (minimumSize == frame.size()) {
            wanted.maximumSize = minimumSize;
        }
        const auto window = driver_->open(wanted);
        driver_->activate(window);
        EXPECT_TRUE(driver_->eventually([&] {
            return frontmost().bundleIdentifier == program && frameOf(focusedWindow()) == frame;
        }));
        return window;
    }
    /// The application that is frontmost, with whatever identifier.
    RunningApplication frontmost() {
        return ports_.workspace.frontmostApplication().value_or(RunningApplication{});
    }
    std::shared_ptr<AccessibilityElement> focusedWindow() {
        return AccessibilityHelper(ports_.accessibility)
            .focusedWindowForApplicationFromSystemElement();
    }
    /// All zero for a window that is gone.
    static Rect frameOf(const std::shared_ptr<AccessibilityElement>& window) {
        const auto position = window ? window->NSValueForAttribute(kPosition) : std::nullopt;
        const auto size = window ? window->NSValueForAttribute(kSize) : std::nullopt;
        return position && size ? makeRect(std::get<Point>(*position), std::get<Size>(*size))
                                : Rect{};
    }

private:
    std::map<std::string, ProcessId> pids_{{kOwnIdentifier, driver_->ownPid()}};
};

TEST_P(WindowsContract, FindsTheFocusedWindowAndTellsOfActivations) {
    CapturedLog log;
    EXPECT_EQ(ports_.workspace.frontmostApplication(), std::nullopt);
    EXPECT_EQ(focusedWindow(), nullptr);
    EXPECT_THAT(log.take(), ElementsAre("can't copy attribute kAXFocusedApplicationAttribute: "
                                        "kAXErrorNoValue"));
    int activations = 0;
    const auto registration = ports_.workspace.onApplicationActivated([&] { ++activations; });
    const auto editor = open("Editor");
    EXPECT_EQ(activations, 1);
    const auto pid = frontmost().processIdentifier;
    EXPECT_EQ(focusedWindow()->pid(), pid);
    EXPECT_TRUE(focusedWindow()->actsAsRole("AXWindow"));
    int windowChanges = 0;
    const auto changes = ports_.accessibility.observe(
        pid, ports_.accessibility.createApplication(pid),
        NSAccessibilityMainWindowChangedNotification, [&] { ++windowChanges; });
    open("Editor", {0, 0, 320, 240});
    EXPECT_TRUE(driver_->eventually([&] { return windowChanges == 1; }));
    EXPECT_EQ(activations, 1);
    open("Terminal", {0, 0, 320, 240});
    EXPECT_EQ(activations, 2);
    driver_->activate(editor);
    EXPECT_TRUE(driver_->eventually([&] { return activations == 3; }));
    EXPECT_EQ(frameOf(focusedWindow()), kFirstFrame);
}

TEST_P(WindowsContract, MovesAndResizesAWindowByItsOuterFrameButNotToNowhere) {
    open("Editor");
    const auto window = focusedWindow();
    EXPECT_TRUE(window->isAttributeSettable(kPosition) && window->isAttributeSettable(kSize));
    window->setNSValue(Point{200, 150}, kPosition);
    window->setNSValue(Size{640, 480}, kSize);
    window->setNSValue(Point{200, 150}, kPosition);
    EXPECT_EQ(frameOf(window), (Rect{200, 150, 640, 480}));
    window->setNSValue(Point{std::numeric_limits<double>::quiet_NaN(), 0}, kPosition);
    window->setNSValue(Size{std::numeric_limits<double>::infinity(), 1}, kSize);
    window->setNSValue(Size{1, 1}, kPosition);
    EXPECT_EQ(frameOf(window), (Rect{200, 150, 640, 480}));
    EXPECT_EQ(ports_.accessibility.setAttributeValue(nullptr, kPosition, Point{}),
              AXError::kIllegalArgument);
    EXPECT_EQ(ports_.accessibility.setAttributeValue(window->element(), "AXUnheardOf", Point{}),
              AXError::kAttributeUnsupported);

    open("Dialog", kFirstFrame, kFirstFrame.size());
    EXPECT_TRUE(focusedWindow()->isAttributeSettable(kPosition));
    EXPECT_FALSE(focusedWindow()->isAttributeSettable(kSize));
    EXPECT_FALSE(focusedWindow()->isAttributeSettable(NSAccessibilityRoleAttribute));
}

TEST_P(WindowsContract, ReadsBackWhatWasWrittenWhileTheWindowStandsNearIt) {
    const auto opened = open("Editor", kFirstFrame, {300, 200});
    const auto window = focusedWindow();
    const auto write = [&](const Rect& frame) {
        window->setNSValue(frame.origin(), kPosition);
        window->setNSValue(frame.size(), kSize);
        window->setNSValue(frame.origin(), kPosition);
    };
    const auto settles = [&](const Rect& frame) {
        int tries = 30; // what comes late may make it another one
        driver_->eventually([&] { return --tries == 0 || frameOf(window) != frame; });
        return frameOf(window) == frame;
    };
    write({50.25, 60, 640.4, 480.25});
    EXPECT_EQ(frameOf(window), (Rect{51, 60, 640.4, 480.25}));
    EXPECT_TRUE(settles({51, 60, 640.4, 480.25}));
    write({50, 60, 280, 180}); // 20 less than the window allows
    EXPECT_TRUE(settles({50, 60, 280, 180}));
    write({50, 60, 200, 100}); // 100 less
    EXPECT_TRUE(driver_->eventually([&] { return frameOf(window) == Rect{50, 60, 300, 200}; }));
    driver_->setFrame(opened, {80, 60, 400, 300});
    EXPECT_TRUE(driver_->eventually([&] { return frameOf(window) == Rect{80, 60, 400, 300}; }));
}

TEST_P(WindowsContract, TellsAnObserverOfAFrameThatReallyChanged) {
    const auto opened = open("Editor");
    std::vector<std::string> heard;
    const auto window = focusedWindow();
    const auto observe = [&](std::string_view notification) {
        auto observer = AccessibilityObserver::observerForNotification(
            notification, [&](auto&, const auto&, const auto& name) { heard.emplace_back(name); });
        window->addObserver(observer);
        return observer;
    };
    const auto hears = [&](std::string_view what) {
        EXPECT_TRUE(driver_->eventually([&] { return !heard.empty(); }));
        EXPECT_THAT(heard, ElementsAre(what));
        heard.clear();
    };
    const auto moves = observe(NSAccessibilityWindowMovedNotification);
    const auto resizes = observe(NSAccessibilityWindowResizedNotification);
    driver_->setFrame(opened, {120, 100, 400, 300});
    hears(NSAccessibilityWindowMovedNotification);
    driver_->activate(opened);
    driver_->setFrame(opened, {120, 100, 500, 300});
    hears(NSAccessibilityWindowResizedNotification);
    window->removeObserver(resizes);
    EXPECT_THAT(window->observers(), ElementsAre(moves));
    window->setNSValue(Point{10, 10}, kPosition);
    window->setNSValue(Size{200, 200}, kSize);
    hears(NSAccessibilityWindowMovedNotification);
}

TEST_P(WindowsContract, KeepsObserversWithTheElementAndAnswersForAWindowThatIsGone) {
    const auto opened = open("Editor");
    const auto window = focusedWindow();
    const auto sameWindow = focusedWindow();
    std::vector<std::shared_ptr<AccessibilityElement>> heard;
    const auto observer = AccessibilityObserver::observerForNotification(
        NSAccessibilityWindowMovedNotification,
        [&](auto&, const auto& element, const auto&) { heard.push_back(element); });
    window->addObserver(observer);
    sameWindow->addObserver(observer);
    EXPECT_THAT(window->observers(), ElementsAre(observer)) << "listed, but moved";
    driver_->setFrame(opened, {120, 100, 400, 300});
    EXPECT_TRUE(driver_->eventually([&] { return !heard.empty(); }));
    EXPECT_THAT(heard, ElementsAre(sameWindow));
    EXPECT_EQ(window->NSValueForAttribute(NSAccessibilityRoleAttribute), std::nullopt);
    window->setNSValue(7.0, kPosition); // no point
    EXPECT_EQ(frameOf(window), (Rect{120, 100, 400, 300}));
    EXPECT_TRUE(window->areAttributesSettable({}));

    driver_->close(opened);
    EXPECT_TRUE(driver_->eventually([&] { return frameOf(window) == Rect{}; }));
    EXPECT_EQ(window->pid(), -1);
    EXPECT_FALSE(window->isAttributeSettable(kPosition));
    window->setNSValue(Point{1, 1}, kPosition);
}

TEST_P(WindowsContract, GivesTheKeyboardBackToTheProgramBeforeOurs) {
    open("Terminal");
    open("Editor");
    open(kOwnIdentifier);
    ports_.workspace.hideThisApplication();
    EXPECT_TRUE(driver_->eventually([&] { return frontmost().bundleIdentifier == "Editor"; }));
    ports_.workspace.bringThisApplicationToFront();
    EXPECT_TRUE(
        driver_->eventually([&] { return frontmost().bundleIdentifier == kOwnIdentifier; }));
}

INSTANTIATE_TEST_SUITE_P(Everywhere, WindowsContract, testing::Values(kMemory, kX11, kLate),
                         DesktopContract::nameOf);

TEST(WindowsThatAnswerLate, AreNotNamedAsFocusedBeforeTheirFrameIsKnown) {
    MemoryMainLoop loop;
    LateCompositor compositor(loop);
    LateWindows windows(compositor, 1);
    WindowsAccessibility accessibility(windows);
    constexpr ProcessId kEditor = 7;
    compositor.addApplication({kEditor, "Editor", "Editor"});
    compositor.activate(compositor.open({.pid = kEditor, .frame = kFirstFrame}));
    const auto focused = [&] {
        return accessibility.copyAttributeValue(accessibility.createApplication(kEditor),
                                                NSAccessibilityFocusedWindowAttribute);
    };
    EXPECT_EQ(focused().error(), AXError::kNoValue);
    loop.advance(std::chrono::milliseconds(5)); // the focus is told of, and its frame asked for
    EXPECT_EQ(focused().error(), AXError::kCannotComplete);
    loop.advance(std::chrono::milliseconds(10));
    EXPECT_TRUE(focused().ok());
}

} // namespace
} // namespace panewright
