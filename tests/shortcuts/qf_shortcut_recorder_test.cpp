#include "shortcuts/qf_shortcut_recorder.h"

#include "desktop/memory/memory_keyboard_layout.h"
#include "desktop/memory/memory_services.h"

#include <gtest/gtest.h>

#include <functional>

namespace panewright {
namespace {

constexpr std::uint64_t kCapsLock = 0x10000;
constexpr std::uint64_t kShift = 0x20000;
constexpr std::uint64_t kControl = 0x40000;
constexpr std::uint64_t kOption = 0x80000;
constexpr std::uint64_t kFunction = 0x800000;
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
    void setNeedsDisplay() override { ++redraws; }
    bool focused = true;
    int redraws = 0;
};

class QFShortcutRecorderTest : public testing::Test {
protected:
    QFShortcutRecorderTest() {
        recorder_.setView(&view_);
        recorder_.setDelegate(listener_);
    }
    bool key(std::uint16_t code, std::uint64_t flags = 0) {
        return recorder_.keyDown({code, flags});
    }
    void hold(std::uint64_t flags) { recorder_.flagsChanged(flags); }
    void press(Point point) { recorder_.mouseDown(point, kView); }
    void release(Point point) { recorder_.mouseUp(point, kView); }
    void click(Point point) {
        press(point);
        release(point);
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
    const struct {
        const char* what;
        std::function<void()> steps;
        const char* heard;
        const char* label;
        bool isRecording;
        int beeps;
    } cases[] = {
        {"a click begins", [this] { click(kText); }, "clear 524288+0;", "Type shortcut", true, 0},
        {"a second click keeps recording",
         [this] {
             click(kText);
             click(kText);
         },
         "clear 524288+0;", "Type shortcut", true, 0},
        {"modifiers show as they are held",
         [this] {
             key(kSpace);
             hold(kOption | kControl | kCapsLock);
         },
         "clear 524288+0;", "⌃⌥", true, 0},
        {"a key is taken, with the four modifiers alone",
         [this] {
             key(kSpace);
             hold(kShift | kFunction);
             key(kA, kShift | kCapsLock | kFunction);
         },
         "clear 524288+0;set 131072+0;", "⇧A", false, 0},
        {"Escape restores",
         [this] {
             key(kSpace);
             hold(kShift);
             key(kEscape, kShift);
         },
         "clear 524288+0;set 524288+0;", "⌥A", false, 0},
        {"Tab restores",
         [this] {
             key(kSpace);
             key(kTab);
         },
         "clear 524288+0;set 524288+0;", "⌥A", false, 0},
        {"Tab can be wanted",
         [this] {
             recorder_.setCaptureTabKey(true);
             key(kSpace);
             hold(kOption);
             key(kTab, kOption);
         },
         "clear 524288+0;set 524288+48;", "⌥⇥", false, 0},
        {"a bare key is refused",
         [this] {
             key(kSpace);
             EXPECT_FALSE(key(kA));
         },
         "clear 524288+0;set 524288+0;", "⌥A", false, 1},
        {"a bare key can be wanted",
         [this] {
             recorder_.setRequiresModifierFlags(false);
             key(kSpace);
             key(kA);
         },
         "clear 524288+0;set 0+0;", "A", false, 0},
        {"Space and Delete are recorded like others",
         [this] {
             key(kSpace);
             hold(kOption);
             key(kSpace, kOption);
             key(kSpace);
             hold(kShift);
             key(kDelete, kShift);
         },
         "clear 524288+0;set 524288+49;clear 524288+49;set 131072+51;", "⇧⌫", false, 0},
        {"Delete clears while idle", [this] { key(kDelete); }, "clear 524288+0;",
         "Click to record shortcut", false, 0},
        {"other keys go on while idle", [this] { EXPECT_FALSE(key(kA, kOption)); }, "", "⌥A", false,
         0},
        {"a key without code is refused and the recording goes on",
         [this] {
             key(kSpace);
             recorder_.keyWithoutCode();
         },
         "clear 524288+0;", "Type shortcut", true, 1},
        {"the clear button clears",
         [this] {
             key(kSpace);
             click(kRightButton);
         },
         "clear 524288+0;clear 0+65535;", "Click to record shortcut", false, 0},
        {"the snap-back button restores",
         [this] {
             key(kSpace);
             click(kLeftButton);
         },
         "clear 524288+0;set 524288+0;", "⌥A", false, 0},
        {"a release beside the button does nothing",
         [this] {
             key(kSpace);
             press(kLeftButton);
             release(kText);
         },
         "clear 524288+0;", "Type shortcut", true, 0},
        {"where the clear button was, a click clears what was taken",
         [this] {
             key(kSpace);
             hold(kShift);
             key(kA, kShift);
             click(kRightButton);
         },
         "clear 524288+0;set 131072+0;clear 131072+0;", "Click to record shortcut", false, 0},
        {"with nothing before, the snap-back button stands at the right and tells nothing",
         [this] {
             recorder_.clear();
             key(kSpace);
             click(kRightButton);
         },
         "", "Click to record shortcut", false, 0},
        {"without the keyboard the shortcut stays empty",
         [this] {
             key(kSpace);
             recorder_.resignFirstResponder();
         },
         "clear 524288+0;", "Click to record shortcut", false, 0},
        {"keys are for whoever has the keyboard",
         [this] {
             view_.focused = false;
             EXPECT_FALSE(key(kSpace));
             EXPECT_FALSE(key(kDelete));
         },
         "", "⌥A", false, 0},
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
        each.steps();
        EXPECT_EQ(listener_->heard, each.heard);
        EXPECT_EQ(recorder_.shownLabel(), each.label);
        EXPECT_EQ(recorder_.isRecording(), each.isRecording);
        EXPECT_EQ(beeper_.beeps, each.beeps);
    }
}

TEST_F(QFShortcutRecorderTest, PlacesItsButtonsAtTheRightEdge) {
    recorder_.setKeyCode(kA, 0);
    EXPECT_EQ(recorder_.clearButton(kView), std::nullopt);
    EXPECT_EQ(recorder_.snapBackButton(kView), std::nullopt);
    key(kSpace);
    EXPECT_EQ(recorder_.clearButton(kView),
              std::nullopt); // the key types nothing, so shows nothing
    EXPECT_EQ(recorder_.snapBackButton(kView), (Rect{184, 5, 12, 12}));
    key(kEscape);
    layout_.setKeys({{0, "a"}});
    recorder_.setKeyCode(kA, 0);
    key(kSpace);
    EXPECT_EQ(recorder_.clearButton(kView), (Rect{184, 5, 12, 12}));
    EXPECT_EQ(recorder_.snapBackButton(kView), (Rect{168, 5, 12, 12}));
}

} // namespace
} // namespace panewright
