// What every desktop answers of its programs and their windows.

#include "contract/foreign_program.h"
#include "contract/x11_rig.h"
#include "desktop/memory/memory_desktop.h"
#include "support/print_geometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct WindowKind {
    Rect frame{100, 100, 400, 300};
    bool isResizable = true;
};

/// Programs named by their bundle identifier, each with windows.
class WindowsRig {
public:
    virtual ~WindowsRig() = default;
    virtual Accessibility& accessibility() = 0;
    virtual Workspace& workspace() = 0;
    /// Opens a window of the program and makes it the active one.
    virtual int open(const std::string& program, const WindowKind& kind) = 0;
    virtual void activate(int window) = 0;
    virtual void close(int window) = 0;
    /// As a user does.
    virtual void setFrame(int window, const Rect& frame) = 0;
    virtual bool eventually(const std::function<bool()>& condition) = 0;
};

class MemoryWindowsRig : public WindowsRig {
public:
    Accessibility& accessibility() override { return desktop_.accessibility; }
    Workspace& workspace() override { return desktop_.workspace; }
    int open(const std::string& program, const WindowKind& kind) override {
        const auto pid = pids_.try_emplace(program, 100 + static_cast<int>(pids_.size()));
        if (pid.second) {
            desktop_.windows.addApplication({pid.first->second, program, program});
        }
        const auto window = desktop_.windows.openWindow(
            {.pid = pid.first->second, .frame = kind.frame, .isResizable = kind.isResizable});
        desktop_.windows.activateWindow(window);
        return static_cast<int>(window);
    }
    void activate(int window) override { desktop_.windows.activateWindow(id(window)); }
    void close(int window) override { desktop_.windows.closeWindow(id(window)); }
    void setFrame(int window, const Rect& frame) override {
        desktop_.windows.setFrame(id(window), frame);
    }
    bool eventually(const std::function<bool()>& condition) override {
        desktop_.mainLoop.runPending();
        return condition();
    }

private:
    static MemoryWindowId id(int window) { return static_cast<MemoryWindowId>(window); }

    MemoryDesktop desktop_;
    std::map<std::string, ProcessId> pids_;
};

class X11WindowsRig : public WindowsRig {
public:
    Accessibility& accessibility() override { return rig_.ports->accessibility; }
    Workspace& workspace() override { return rig_.ports->workspace; }
    int open(const std::string& program, const WindowKind& kind) override {
        auto& foreign = programs_[program];
        if (!foreign) {
            foreign = std::make_unique<ForeignProgram>(rig_.desktop.display(), program);
        }
        const auto width = static_cast<std::uint32_t>(kind.frame.width) - kFrameWidth;
        const auto height = static_cast<std::uint32_t>(kind.frame.height) -
                            (kind.isResizable ? kFrameHeight : kFixedFrameHeight);
        const int window = static_cast<int>(foreign->open(width, height, !kind.isResizable));
        owners_[window] = foreign.get();
        setFrame(window, kind.frame);
        activate(window);
        return window;
    }
    void activate(int window) override {
        constexpr std::uint32_t kSourcePager = 2;
        rig_.desktop.x().sendToWindowManager(id(window), "_NET_ACTIVE_WINDOW",
                                             {kSourcePager, XCB_CURRENT_TIME, 0, 0, 0});
        rig_.desktop.x().synchronize();
    }
    void close(int window) override { owners_.at(window)->destroy(id(window)); }
    void setFrame(int window, const Rect& frame) override {
        test::placeWindow(rig_.desktop.x(), id(window),
                          {static_cast<int>(frame.x), static_cast<int>(frame.y),
                           static_cast<int>(frame.width), static_cast<int>(frame.height)});
    }
    bool eventually(const std::function<bool()>& condition) override {
        return rig_.eventually(condition);
    }

private:
    /// What openbox's default theme puts around a window.
    static constexpr std::uint32_t kFrameWidth = 2;
    static constexpr std::uint32_t kFrameHeight = 25;
    static constexpr std::uint32_t kFixedFrameHeight = 21; // without a handle

    static xcb_window_t id(int window) { return static_cast<xcb_window_t>(window); }

    X11Rig rig_;
    std::map<std::string, std::unique_ptr<ForeignProgram>> programs_;
    std::map<int, ForeignProgram*> owners_;
};

class WindowsContract : public testing::TestWithParam<const char*> {
protected:
    WindowsContract() {
        if (GetParam() == std::string("memory")) {
            rig_ = std::make_unique<MemoryWindowsRig>();
        } else {
            rig_ = std::make_unique<X11WindowsRig>();
        }
    }

    Accessibility& port() { return rig_->accessibility(); }

    /// Opens a window and returns when its program is frontmost with it.
    int open(const std::string& program, const WindowKind& kind = {}) {
        const int window = rig_->open(program, kind);
        EXPECT_TRUE(rig_->eventually(
            [&] { return frontmostId() == program && frameOf(focusedWindow()) == kind.frame; }));
        return window;
    }
    std::optional<std::string> frontmostId() {
        const auto frontmost = rig_->workspace().frontmostApplication();
        return frontmost ? frontmost->bundleIdentifier : std::nullopt;
    }
    AXUIElementRef focusedWindow() {
        const auto frontmost = rig_->workspace().frontmostApplication();
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
    AXError setPosition(const AXUIElementRef& window, Point position) {
        return port().setAttributeValue(window, NSAccessibilityPositionAttribute, position);
    }
    AXError setSize(const AXUIElementRef& window, Size size) {
        return port().setAttributeValue(window, NSAccessibilitySizeAttribute, size);
    }

    std::unique_ptr<WindowsRig> rig_;
};

TEST_P(WindowsContract, FindsTheFocusedWindowOfTheFrontmostProgram) {
    EXPECT_EQ(rig_->workspace().frontmostApplication(), std::nullopt);
    EXPECT_EQ(errorOf(port().createSystemWide(), kAXFocusedApplicationAttribute),
              AXError::kNoValue);
    const int first = open("Editor");
    const auto application = elementOf(port().createSystemWide(), kAXFocusedApplicationAttribute);
    const auto window = focusedWindow();
    EXPECT_EQ(port().pid(application).pid,
              rig_->workspace().frontmostApplication()->processIdentifier);
    EXPECT_EQ(port().pid(window).pid, port().pid(application).pid);
    const auto role = port().copyAttributeValue(window, NSAccessibilityRoleAttribute);
    EXPECT_EQ(std::get<std::string>(role.value()), "AXWindow");

    open("Editor", {.frame = {300, 200, 500, 400}});
    rig_->activate(first);
    EXPECT_TRUE(rig_->eventually([&] {
        return frameOf(focusedWindow()) == Rect{100, 100, 400, 300};
    }));
}

TEST_P(WindowsContract, TellsOfActivationsAndOfWindowsWithinOneProgramApart) {
    int activations = 0;
    const auto registration = rig_->workspace().onApplicationActivated([&] { ++activations; });
    const int editor = open("Editor");
    EXPECT_EQ(activations, 1);
    int windowChanges = 0;
    const auto frontmost = rig_->workspace().frontmostApplication()->processIdentifier;
    const auto changes =
        port().observe(frontmost, port().createApplication(frontmost),
                       NSAccessibilityMainWindowChangedNotification, [&] { ++windowChanges; });
    open("Editor", {.frame = {0, 0, 320, 240}});
    EXPECT_TRUE(rig_->eventually([&] { return windowChanges == 1; }));
    EXPECT_EQ(activations, 1);
    open("Terminal", {.frame = {0, 0, 320, 240}});
    EXPECT_EQ(activations, 2);
    rig_->activate(editor);
    EXPECT_TRUE(rig_->eventually([&] { return activations == 3; }));
}

TEST_P(WindowsContract, MovesAndResizesAWindowByItsOuterFrame) {
    open("Editor");
    const auto window = focusedWindow();
    EXPECT_TRUE(isSettable(window, NSAccessibilityPositionAttribute));
    EXPECT_TRUE(isSettable(window, NSAccessibilitySizeAttribute));
    EXPECT_EQ(setPosition(window, {200, 150}), AXError::kSuccess);
    EXPECT_EQ(setSize(window, {640, 480}), AXError::kSuccess);
    EXPECT_EQ(setPosition(window, {200, 150}), AXError::kSuccess);
    EXPECT_EQ(frameOf(window), (Rect{200, 150, 640, 480}));
    rig_->setFrame(rig_->open("Other", {}), {0, 0, 100, 100});
    EXPECT_EQ(frameOf(window), (Rect{200, 150, 640, 480}));
}

TEST_P(WindowsContract, DropsWhatIsNoPositionOrSize) {
    open("Editor");
    const auto window = focusedWindow();
    const double nothing = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(setPosition(window, {nothing, 0}), AXError::kIllegalArgument);
    EXPECT_EQ(setSize(window, {std::numeric_limits<double>::infinity(), 1}),
              AXError::kIllegalArgument);
    EXPECT_EQ(port().setAttributeValue(window, NSAccessibilityPositionAttribute, Size{1, 1}),
              AXError::kAttributeUnsupported);
    EXPECT_EQ(port().setAttributeValue(window, NSAccessibilityTitleAttribute, Point{1, 1}),
              AXError::kAttributeUnsupported);
    EXPECT_EQ(frameOf(window), (Rect{100, 100, 400, 300}));
}

TEST_P(WindowsContract, SaysWhatCannotBeSet) {
    open("Dialog", {.isResizable = false});
    EXPECT_TRUE(isSettable(focusedWindow(), NSAccessibilityPositionAttribute));
    EXPECT_FALSE(isSettable(focusedWindow(), NSAccessibilitySizeAttribute));
    EXPECT_FALSE(isSettable(focusedWindow(), NSAccessibilityRoleAttribute));
    EXPECT_FALSE(isSettable(port().createSystemWide(), NSAccessibilitySizeAttribute));
}

TEST_P(WindowsContract, AnswersForAWindowThatIsGone) {
    const int opened = open("Editor");
    const auto window = focusedWindow();
    const auto pid = port().pid(window).pid;
    rig_->close(opened);
    EXPECT_TRUE(rig_->eventually([&] {
        return errorOf(window, NSAccessibilityPositionAttribute) == AXError::kInvalidUIElement;
    }));
    EXPECT_EQ(port().pid(window).status, AXError::kInvalidUIElement);
    EXPECT_FALSE(isSettable(window, NSAccessibilityPositionAttribute));
    setPosition(window, {1, 1});
    setSize(window, {10, 10});
    EXPECT_EQ(frameOf(window), Rect{});
    EXPECT_TRUE(rig_->eventually([&] {
        return errorOf(port().createApplication(pid), NSAccessibilityFocusedWindowAttribute) ==
               AXError::kNoValue;
    }));
}

TEST_P(WindowsContract, RefusesNullAndUnknownAttributes) {
    open("Editor");
    EXPECT_EQ(errorOf(nullptr, NSAccessibilityRoleAttribute), AXError::kIllegalArgument);
    EXPECT_EQ(port().pid(nullptr).status, AXError::kIllegalArgument);
    EXPECT_EQ(setPosition(nullptr, {}), AXError::kIllegalArgument);
    for (const auto& element :
         {port().createSystemWide(), port().createApplication(1), focusedWindow()}) {
        EXPECT_EQ(errorOf(element, "AXUnheardOf"), AXError::kAttributeUnsupported);
    }
}

TEST_P(WindowsContract, TellsOfAFrameOnlyWhenItReallyChanged) {
    const int opened = open("Editor");
    std::vector<std::string> heard;
    const auto window = focusedWindow();
    const auto pid = port().pid(window).pid;
    const auto moves = port().observe(pid, window, NSAccessibilityWindowMovedNotification,
                                      [&] { heard.emplace_back("moved"); });
    auto resizes = port().observe(pid, window, NSAccessibilityWindowResizedNotification,
                                  [&] { heard.emplace_back("resized"); });
    rig_->setFrame(opened, {120, 100, 400, 300});
    EXPECT_TRUE(rig_->eventually([&] { return !heard.empty(); }));
    EXPECT_THAT(heard, ElementsAre("moved"));
    heard.clear();
    rig_->activate(opened);
    rig_->setFrame(opened, {120, 100, 500, 300});
    EXPECT_TRUE(rig_->eventually([&] { return !heard.empty(); }));
    EXPECT_THAT(heard, ElementsAre("resized"));
    heard.clear();
    resizes.release();
    setPosition(window, {10, 10});
    setSize(window, {200, 200});
    EXPECT_TRUE(rig_->eventually([&] { return !heard.empty(); }));
    EXPECT_THAT(heard, ElementsAre("moved"));
}

INSTANTIATE_TEST_SUITE_P(Everywhere, WindowsContract, testing::Values("memory", "X11"),
                         [](const auto& windows) { return std::string(windows.param); });

} // namespace
} // namespace panewright
