// What every desktop answers of its programs and their windows.

#include "accessibility/accessibility_helper.h"
#include "accessibility/accessibility_observer.h"
#include "contract/x11_rig.h"
#include "support/captured_log.h"

#include <gmock/gmock.h>
#include <unistd.h>

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
    std::uint32_t open(const std::string& program, const Rect& frame = kFirstFrame,
                       bool isResizable = true) {
        constexpr ProcessId kFirstPid = 10'000'000; // no real process has such a number
        const auto added = pids_.try_emplace(program, kFirstPid + pids_.size());
        const auto pid = added.first->second;
        std::uint32_t window = 0;
        if (x11_) {
            window = openOnX11({.windowClass = program, .pid = static_cast<std::uint32_t>(pid)},
                               frame, isResizable);
        } else {
            if (added.second) {
                memory_.windows.addApplication({pid, program, program});
            }
            window = static_cast<std::uint32_t>(memory_.windows.openWindow(
                {.pid = pid, .frame = frame, .isResizable = isResizable}));
        }
        activate(window);
        EXPECT_TRUE(eventually([&] {
            return frontmost().bundleIdentifier == program && frameOf(focusedWindow()) == frame;
        }));
        return window;
    }
    std::uint32_t openOnX11(test::ClientOptions options, const Rect& frame, bool isResizable) {
        if (!isResizable) { // inside of what openbox puts around it
            options.minimumSize = options.maximumSize = Size{frame.width - 2, frame.height - 21};
        }
        auto client = std::make_unique<test::TestClient>(x11_->desktop.display(), options);
        const auto window = client->window();
        clients_.emplace(window, std::move(client));
        setFrame(window, frame);
        return window;
    }
    void close(std::uint32_t window) {
        x11_ ? void(clients_.erase(window)) : memory_.windows.closeWindow(window);
    }
    void activate(std::uint32_t window) {
        x11_ ? x11_->desktop.x().activate(window) : memory_.windows.activateWindow(window);
    }
    /// As a user does.
    void setFrame(std::uint32_t window, const Rect& frame) {
        if (x11_) {
            test::placeWindow(x11_->desktop.x(), window, frame);
        } else {
            memory_.windows.setFrame(window, frame);
        }
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
    std::map<std::string, ProcessId> pids_{
        {kOwnIdentifier, x11_ ? getpid() : MemoryDesktop::kOwnPid}};
    std::map<std::uint32_t, std::unique_ptr<test::TestClient>> clients_;
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
    EXPECT_TRUE(eventually([&] { return windowChanges == 1; }));
    EXPECT_EQ(activations, 1);
    open("Terminal", {0, 0, 320, 240});
    EXPECT_EQ(activations, 2);
    activate(editor);
    EXPECT_TRUE(eventually([&] { return activations == 3; }));
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

    open("Dialog", kFirstFrame, false);
    EXPECT_TRUE(focusedWindow()->isAttributeSettable(kPosition));
    EXPECT_FALSE(focusedWindow()->isAttributeSettable(kSize));
    EXPECT_FALSE(focusedWindow()->isAttributeSettable(NSAccessibilityRoleAttribute));
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
        EXPECT_TRUE(eventually([&] { return !heard.empty(); }));
        EXPECT_THAT(heard, ElementsAre(what));
        heard.clear();
    };
    const auto moves = observe(NSAccessibilityWindowMovedNotification);
    const auto resizes = observe(NSAccessibilityWindowResizedNotification);
    setFrame(opened, {120, 100, 400, 300});
    hears(NSAccessibilityWindowMovedNotification);
    activate(opened);
    setFrame(opened, {120, 100, 500, 300});
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
    setFrame(opened, {120, 100, 400, 300});
    EXPECT_TRUE(eventually([&] { return !heard.empty(); }));
    EXPECT_THAT(heard, ElementsAre(sameWindow));
    EXPECT_EQ(window->NSValueForAttribute(NSAccessibilityRoleAttribute), std::nullopt);
    window->setNSValue(7.0, kPosition); // no point
    EXPECT_EQ(frameOf(window), (Rect{120, 100, 400, 300}));
    EXPECT_TRUE(window->areAttributesSettable({}));

    close(opened);
    EXPECT_TRUE(eventually([&] { return frameOf(window) == Rect{}; }));
    EXPECT_EQ(window->pid(), -1);
    EXPECT_FALSE(window->isAttributeSettable(kPosition));
    window->setNSValue(Point{1, 1}, kPosition);
}

TEST_P(WindowsContract, GivesTheKeyboardBackToTheProgramBeforeOurs) {
    open("Terminal");
    open("Editor");
    open(kOwnIdentifier);
    ports_.workspace.hideThisApplication();
    EXPECT_TRUE(eventually([&] { return frontmost().bundleIdentifier == "Editor"; }));
    ports_.workspace.bringThisApplicationToFront();
    EXPECT_TRUE(eventually([&] { return frontmost().bundleIdentifier == kOwnIdentifier; }));
}

INSTANTIATE_TEST_SUITE_P(Everywhere, WindowsContract, testing::Values("memory", "X11"),
                         [](const auto& windows) { return std::string(windows.param); });

} // namespace
} // namespace panewright
