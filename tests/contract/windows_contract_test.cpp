// What every desktop answers of its programs and their windows.

#include "contract/x11_rig.h"
#include "desktop/memory/memory_desktop.h"

#include <gmock/gmock.h>

#include <limits>
#include <map>

namespace panewright {
namespace {

using testing::ElementsAre;

constexpr Rect kFirstFrame{100, 100, 400, 300};

/// Programs named by their bundle identifier, each with windows.
class WindowsContract : public testing::TestWithParam<const char*> {
protected:
    WindowsContract() {
        if (GetParam() == std::string("X11")) {
            // The server cannot tell that all windows are this process's: they say whose they are.
            x11_.emplace(test::Screen{.arguments = {"-extension", "X-Resource"}});
        }
    }

    Accessibility& port() {
        return x11_ ? static_cast<Accessibility&>(x11_->ports->accessibility)
                    : memory_.accessibility;
    }
    Workspace& workspace() {
        return x11_ ? static_cast<Workspace&>(x11_->ports->workspace) : memory_.workspace;
    }

    /// Opens a window and returns when its program is frontmost with it.
    std::uint32_t open(const std::string& program, const Rect& frame = kFirstFrame,
                       bool isResizable = true) {
        constexpr ProcessId kFirstPid = 10'000'000; // no real process has such a number
        const auto added = pids_.try_emplace(program, kFirstPid + pids_.size());
        const auto window = x11_ ? openOnX11(program, frame, isResizable)
                                 : openInMemory(program, frame, isResizable, added.second);
        activate(window);
        EXPECT_TRUE(eventually(
            [&] { return frontmostId() == program && frameOf(focusedWindow()) == frame; }));
        return window;
    }
    std::uint32_t openOnX11(const std::string& program, const Rect& frame, bool isResizable) {
        // What openbox's default theme puts around a window, with and without a handle.
        const double decoration = isResizable ? 25 : 21;
        test::ClientOptions options{
            .client = {10, 10, frame.width - 2, frame.height - decoration},
            .windowClass = program,
            .pid = static_cast<std::uint32_t>(pids_.at(program)),
        };
        if (!isResizable) {
            options.minimumSize = {static_cast<std::uint32_t>(options.client.width),
                                   static_cast<std::uint32_t>(options.client.height)};
            options.maximumSize = options.minimumSize;
        }
        auto client = std::make_unique<test::TestClient>(x11_->desktop.display(), options);
        const auto window = client->window();
        clients_.emplace(window, std::move(client));
        setFrame(window, frame);
        return window;
    }
    std::uint32_t openInMemory(const std::string& program, const Rect& frame, bool isResizable,
                               bool isNew) {
        if (isNew) {
            memory_.windows.addApplication({pids_.at(program), program, program});
        }
        return static_cast<std::uint32_t>(memory_.windows.openWindow(
            {.pid = pids_.at(program), .frame = frame, .isResizable = isResizable}));
    }
    void activate(std::uint32_t window) {
        x11_ ? x11_->desktop.x().activate(window) : memory_.windows.activateWindow(window);
    }
    void close(std::uint32_t window) {
        if (x11_) {
            clients_.erase(window);
        } else {
            memory_.windows.closeWindow(window);
        }
    }
    /// As a user does.
    void setFrame(std::uint32_t window, const Rect& frame) {
        if (x11_) {
            test::placeWindow(x11_->desktop.x(), window, frame);
        } else {
            memory_.windows.setFrame(window, frame);
        }
    }
    template <class Condition>
    bool eventually(Condition condition) {
        memory_.mainLoop.runPending();
        return x11_ ? x11_->eventually(condition) : condition();
    }

    std::optional<std::string> frontmostId() {
        const auto frontmost = workspace().frontmostApplication();
        return frontmost ? frontmost->bundleIdentifier : std::nullopt;
    }
    AXUIElementRef focusedWindow() {
        const auto frontmost = workspace().frontmostApplication();
        return frontmost ? elementOf(port().createApplication(frontmost->processIdentifier),
                                     NSAccessibilityFocusedWindowAttribute)
                         : nullptr;
    }
    AXUIElementRef elementOf(const AXUIElementRef& owner, std::string_view attribute) {
        const auto copied = port().copyAttributeValue(owner, attribute);
        const auto* element = copied ? std::get_if<AXUIElementRef>(&copied.value()) : nullptr;
        return element ? *element : nullptr;
    }
    Rect frameOf(const AXUIElementRef& window) {
        const auto position = port().copyAttributeValue(window, NSAccessibilityPositionAttribute);
        const auto size = port().copyAttributeValue(window, NSAccessibilitySizeAttribute);
        return position && size
                   ? makeRect(std::get<Point>(position.value()), std::get<Size>(size.value()))
                   : Rect{};
    }
    AXError errorOf(const AXUIElementRef& element, std::string_view attribute) {
        const auto copied = port().copyAttributeValue(element, attribute);
        return copied ? AXError::kSuccess : copied.error();
    }
    bool isSettable(const AXUIElementRef& element, std::string_view attribute) {
        const auto settable = port().isAttributeSettable(element, attribute);
        return settable && settable.value();
    }
    AXError setPosition(const AXUIElementRef& window, const AXValue& position) {
        return port().setAttributeValue(window, NSAccessibilityPositionAttribute, position);
    }
    AXError setSize(const AXUIElementRef& window, Size size) {
        return port().setAttributeValue(window, NSAccessibilitySizeAttribute, size);
    }

private:
    MemoryDesktop memory_;
    std::optional<X11Rig> x11_;
    std::map<std::string, ProcessId> pids_;
    std::map<std::uint32_t, std::unique_ptr<test::TestClient>> clients_;
};

TEST_P(WindowsContract, FindsTheFocusedWindowOfTheFrontmostProgram) {
    EXPECT_EQ(workspace().frontmostApplication(), std::nullopt);
    const auto system = port().createSystemWide();
    EXPECT_EQ(errorOf(system, kAXFocusedApplicationAttribute), AXError::kNoValue);
    const auto first = open("Editor");
    const auto application = elementOf(system, kAXFocusedApplicationAttribute);
    const auto window = focusedWindow();
    EXPECT_EQ(port().pid(application).pid, workspace().frontmostApplication()->processIdentifier);
    EXPECT_EQ(port().pid(window).pid, port().pid(application).pid);
    const auto role = port().copyAttributeValue(window, NSAccessibilityRoleAttribute);
    EXPECT_EQ(std::get<std::string>(role.value()), "AXWindow");

    open("Editor", {300, 200, 500, 400});
    activate(first);
    EXPECT_TRUE(eventually([&] { return frameOf(focusedWindow()) == kFirstFrame; }));
}

TEST_P(WindowsContract, TellsOfActivationsAndOfWindowsWithinOneProgramApart) {
    int activations = 0;
    const auto registration = workspace().onApplicationActivated([&] { ++activations; });
    const auto editor = open("Editor");
    EXPECT_EQ(activations, 1);
    int windowChanges = 0;
    const auto frontmost = workspace().frontmostApplication()->processIdentifier;
    const auto changes =
        port().observe(frontmost, port().createApplication(frontmost),
                       NSAccessibilityMainWindowChangedNotification, [&] { ++windowChanges; });
    open("Editor", {0, 0, 320, 240});
    EXPECT_TRUE(eventually([&] { return windowChanges == 1; }));
    EXPECT_EQ(activations, 1);
    open("Terminal", {0, 0, 320, 240});
    EXPECT_EQ(activations, 2);
    activate(editor);
    EXPECT_TRUE(eventually([&] { return activations == 3; }));
}

TEST_P(WindowsContract, MovesAndResizesAWindowByItsOuterFrame) {
    open("Editor");
    const auto window = focusedWindow();
    EXPECT_TRUE(isSettable(window, NSAccessibilityPositionAttribute));
    EXPECT_TRUE(isSettable(window, NSAccessibilitySizeAttribute));
    EXPECT_EQ(setPosition(window, Point{200, 150}), AXError::kSuccess);
    EXPECT_EQ(setSize(window, {640, 480}), AXError::kSuccess);
    EXPECT_EQ(setPosition(window, Point{200, 150}), AXError::kSuccess);
    EXPECT_EQ(frameOf(window), (Rect{200, 150, 640, 480}));

    setFrame(open("Other"), {0, 0, 150, 100});
    EXPECT_EQ(frameOf(window), (Rect{200, 150, 640, 480}));
    open("Dialog", kFirstFrame, false);
    EXPECT_TRUE(isSettable(focusedWindow(), NSAccessibilityPositionAttribute));
    EXPECT_FALSE(isSettable(focusedWindow(), NSAccessibilitySizeAttribute));
    EXPECT_FALSE(isSettable(focusedWindow(), NSAccessibilityRoleAttribute));
    EXPECT_FALSE(isSettable(port().createSystemWide(), NSAccessibilitySizeAttribute));
}

TEST_P(WindowsContract, RefusesWhatMakesNoSense) {
    open("Editor");
    const auto window = focusedWindow();
    constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(setPosition(window, Point{kNothing, 0}), AXError::kIllegalArgument);
    EXPECT_EQ(setSize(window, {kInfinite, 1}), AXError::kIllegalArgument);
    EXPECT_EQ(setPosition(window, Size{1, 1}), AXError::kAttributeUnsupported);
    EXPECT_EQ(port().setAttributeValue(window, NSAccessibilityTitleAttribute, Point{1, 1}),
              AXError::kAttributeUnsupported);
    EXPECT_EQ(frameOf(window), kFirstFrame);
    EXPECT_EQ(errorOf(nullptr, NSAccessibilityRoleAttribute), AXError::kIllegalArgument);
    EXPECT_EQ(port().pid(nullptr).status, AXError::kIllegalArgument);
    EXPECT_EQ(setPosition(nullptr, Point{}), AXError::kIllegalArgument);
    for (const auto& element : {port().createSystemWide(), port().createApplication(1), window}) {
        EXPECT_EQ(errorOf(element, "AXUnheardOf"), AXError::kAttributeUnsupported);
    }
}

TEST_P(WindowsContract, AnswersForAWindowThatIsGone) {
    const auto opened = open("Editor");
    const auto window = focusedWindow();
    const auto pid = port().pid(window).pid;
    close(opened);
    EXPECT_TRUE(eventually([&] {
        return errorOf(window, NSAccessibilityPositionAttribute) == AXError::kInvalidUIElement;
    }));
    EXPECT_EQ(port().pid(window).status, AXError::kInvalidUIElement);
    EXPECT_FALSE(isSettable(window, NSAccessibilityPositionAttribute));
    setPosition(window, Point{1, 1});
    setSize(window, {10, 10});
    EXPECT_EQ(frameOf(window), Rect{});
    EXPECT_TRUE(eventually([&] {
        return errorOf(port().createApplication(pid), NSAccessibilityFocusedWindowAttribute) ==
               AXError::kNoValue;
    }));
}

TEST_P(WindowsContract, TellsOfAFrameOnlyWhenItReallyChanged) {
    const auto opened = open("Editor");
    std::vector<std::string> heard;
    const auto window = focusedWindow();
    const auto pid = port().pid(window).pid;
    const auto moves = port().observe(pid, window, NSAccessibilityWindowMovedNotification,
                                      [&] { heard.emplace_back("moved"); });
    auto resizes = port().observe(pid, window, NSAccessibilityWindowResizedNotification,
                                  [&] { heard.emplace_back("resized"); });
    const auto hears = [&](const char* what) {
        EXPECT_TRUE(eventually([&] { return !heard.empty(); }));
        EXPECT_THAT(heard, ElementsAre(what));
        heard.clear();
    };
    setFrame(opened, {120, 100, 400, 300});
    hears("moved");
    activate(opened);
    setFrame(opened, {120, 100, 500, 300});
    hears("resized");
    resizes.release();
    setPosition(window, Point{10, 10});
    setSize(window, {200, 200});
    hears("moved");
}

INSTANTIATE_TEST_SUITE_P(Everywhere, WindowsContract, testing::Values("memory", "X11"),
                         [](const auto& windows) { return std::string(windows.param); });

} // namespace
} // namespace panewright
