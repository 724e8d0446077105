#include "shortcuts/qf_shortcut_recorder.h"

#include "desktop/memory/memory_keyboard_layout.h"
#include "desktop/memory/memory_services.h"

#include <gtest/gtest.h>

#include <functional>

namespace panewright {
namespace {

constexpr std::uint64_t kCapsLock = 0x10000, kShift = 0x20000, kControl = 0x40000,
                        kOption = 0x80000, kFunction = 0x800000;
constexpr std::uint64_t kNoisy = kShift | kCapsLock | kFunction; // only the first counts
constexpr std::uint16_t kA = 0, kTab = 48, kSpace = 49, kDelete = 51, kEscape = 53;
constexpr Size kView{200, 22};
// Inside the button at the right edge, and inside the one that stands left of it.
constexpr Point kRightButton{184, 5}, kLeftButton{168, 5}, kText{50, 11};

/// Writes down what it is told.
struct Listener : QFShortcutRecorderDelegate {
    void shortcutRecorderSetFlags(QFShortcutRecorder& /*recorder*/, std::uint64_t flags,
                                  std::uint16_t andKeyCode) override {
        heard += "set " + std::to_string(flags) + "+" + std::to_string(andKeyCode) + ";";
    }
    void shortcutRecorderDidClearFlags(QFShortcutRecorder& /*recorder*/, std::uint64_t flags,
                                       std::uint16_t andKeyCode) override {
        heard += "clear " + std::to_string(flags) + "+" + std::to_string(andKeyCode) + ";";
    }
    std::string heard;
};

struct FocusedView : QFShortcutRecorderView {
    bool isFirstResponder() const override { return focused; }
    void makeFirstResponder() override { focused = true; }
    void setNeedsDisplay() override {}
    bool focused = true;
};

class QFShortcutRecorderTest : public testing::Test {
protected:
    QFShortcutRecorderTest() {
        recorder_.setView(&view_);
        recorder_.setDelegate(listener_);
    }
    using Step = std::function<void()>;
    Step key(std::uint16_t code, std::uint64_t flags = 0) {
        return [=, this] { EXPECT_TRUE(recorder_.keyDown({code, flags})); };
    }
    Step unusedKey(std::uint16_t code, std::uint64_t flags = 0) {
        return [=, this] { EXPECT_FALSE(recorder_.keyDown({code, flags})); };
    }
    Step hold(std::uint64_t flags) {
        return [=, this] { recorder_.flagsChanged(flags); };
    }
    Step press(Point point) {
        return [=, this] { recorder_.mouseDown(point, kView); };
    }
    Step release(Point point) {
        return [=, this] { recorder_.mouseUp(point, kView); };
    }
    Step click(Point point) {
        return [=, this] {
            press(point)();
            release(point)();
        };
    }

    MemoryKeyboardLayout layout_;
    MemoryTextServices text_;
    MemoryBeeper beeper_;
    FocusedView view_;
    std::shared_ptr<Listener> listener_ = std::make_shared<Listener>();
    QFShortcutRecorder recorder_{ShortcutText(layout_, text_), beeper_};
};

TEST_F(QFShortcutRecorderTest, FollowsItsRules) {
    // "Option-A" stands in the recorder at first; each case starts anew.
    const std::string began = "clear 524288+0;";
    const std::string restored = began + "set 524288+0;";
    const std::string tookShiftA = "set 131072+0;";
    const std::string tookAndCleared = began + tookShiftA + "clear 131072+0;";
    const char* const waiting = "Type shortcut";
    const char* const empty = "Click to record shortcut";
    const Step begin = key(kSpace);
    const Step bareKeysCount = [this] { recorder_.setRequiresModifierFlags(false); };
    const Step tabCounts = [&] {
        recorder_.setCaptureTabKey(true);
        bareKeysCount();
    };
    const Step takeShiftA = [&] {
        begin();
        hold(kShift)();
        key(kA, kShift)();
    };
    const Step noCode = [this] { recorder_.keyWithoutCode(); };
    const Step clear = [this] { recorder_.clear(); };
    const Step resign = [this] { recorder_.resignFirstResponder(); };
    const Step loseFocus = [this] { view_.focused = false; };
    const struct {
        const char* what;
        std::vector<Step> steps;
        std::string heard;
        const char* label;
        bool isRecording = false;
        int beeps = 0;
    } cases[] = {
        {"a click begins", {click(kText)}, began, waiting, true},
        {"modifiers show", {begin, hold(kOption | kControl | kCapsLock)}, began, "⌃⌥", true},
        {"a key is taken", {begin, hold(kShift), key(kA, kNoisy)}, began + tookShiftA, "⇧A"},
        {"Escape restores", {begin, hold(kShift), key(kEscape, kShift)}, restored, "⌥A"},
        {"Tab restores", {begin, key(kTab)}, restored, "⌥A"},
        {"Tab can be wanted", {tabCounts, begin, key(kTab)}, began + "set 0+48;", "⇥"},
        {"a bare key is refused", {begin, unusedKey(kA)}, restored, "⌥A", false, 1},
        {"it can be wanted", {bareKeysCount, begin, key(kA)}, began + "set 0+0;", "A"},
        {"Delete clears while idle", {key(kDelete)}, began, empty},
        {"other keys go on while idle", {unusedKey(kA, kOption)}, "", "⌥A"},
        {"a key without code is refused", {begin, noCode}, began, waiting, true, 1},
        {"the clear button clears", {begin, click(kRightButton)}, began + "clear 0+65535;", empty},
        {"the snap-back button restores", {begin, click(kLeftButton)}, restored, "⌥A"},
        {"released elsewhere", {begin, press(kLeftButton), release(kText)}, began, waiting, true},
        {"clears what was taken", {takeShiftA, click(kRightButton)}, tookAndCleared, empty},
        {"only snap-back, at the right", {clear, begin, click(kRightButton)}, "", empty},
        {"without the keyboard it stays empty", {begin, resign}, began, empty},
        {"no keys without it", {loseFocus, unusedKey(kSpace), unusedKey(kDelete)}, "", "⌥A"},
    };
    layout_.setKeys({{0, "a"}});
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        recorder_.clear();
        recorder_.resignFirstResponder();
        recorder_.setCaptureTabKey(false);
        recorder_.setRequiresModifierFlags(true);
        recorder_.setKeyCode(kA, kOption);
        view_.focused = true;
        listener_->heard.clear();
        beeper_.beeps = 0;
        for (const Step& step : each.steps) {
            step();
        }
        EXPECT_EQ(listener_->heard, each.heard);
        EXPECT_EQ(recorder_.shownLabel(), each.label);
        EXPECT_EQ(recorder_.isRecording(), each.isRecording);
        EXPECT_EQ(beeper_.beeps, each.beeps);
    }
}

} // namespace
} // namespace panewright
