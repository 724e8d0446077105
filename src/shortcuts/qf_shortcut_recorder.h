#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "platform/beeper.h"
#include "platform/key_event.h"
#include "shortcuts/shortcut_text.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace panewright {

class QFShortcutRecorder;

/// What a recorder shows while it has no shortcut, and while it records and has none yet.
constexpr const char* kDefaultLabel = "Click to record shortcut";
constexpr const char* kWaitingForKeysLabel = "Type shortcut";

/// Hears what the user recorded. Flags are in the application's form.
class QFShortcutRecorderDelegate {
public:
    virtual ~QFShortcutRecorderDelegate() = default;

    /// A shortcut was recorded, or the one before was restored.
    virtual void shortcutRecorderSetFlags(QFShortcutRecorder& /*recorder*/, std::uint64_t /*flags*/,
                                          std::uint16_t /*andKeyCode*/) {}

    /// The shortcut was cleared, or a recording began over it: until it ends, the old keys should
    /// do nothing.
    virtual void shortcutRecorderDidClearFlags(QFShortcutRecorder& /*recorder*/,
                                               std::uint64_t /*flags*/,
                                               std::uint16_t /*andKeyCode*/) {}

    /// The user pressed a key that cannot be recorded (true), or has gone on since (false).
    virtual void shortcutRecorderRefusesKey(QFShortcutRecorder& /*recorder*/, bool /*refuses*/) {}
};

/// What shows a recorder.
class QFShortcutRecorderView {
public:
    virtual ~QFShortcutRecorderView() = default;

    virtual bool isFirstResponder() const = 0;
    virtual void makeFirstResponder() = 0;
    /// The recorder looks different from now on.
    virtual void setNeedsDisplay() = 0;
};

/// How the view writes a text.
struct TextAttributes {
    /// Nil for the system's own text colour. The font is the system's, in its own size.
    std::optional<Colour> foreground;

    friend bool operator==(const TextAttributes&, const TextAttributes&) = default;
};

/// The control in which the user records a keyboard shortcut: a click or Space begins, the next key
/// is taken, with the modifiers that are held. Idle or recording; what it shows and which events do
/// what is decided here, a view draws it and passes the events on.
///
/// Points and rectangles are in the view: points, origin at its top left, y downwards.
class QFShortcutRecorder {
public:
    static constexpr std::int64_t kNoKeyCode = -1;
    /// Both sides of a button, whose image fills it.
    static constexpr double kButtonSize = 12;

    QFShortcutRecorder(ShortcutText text, Beeper& beeper) : text_(text), beeper_(beeper) {}

    /// Must outlive the recorder or be taken away first; without one nothing asks for the keyboard.
    void setView(QFShortcutRecorderView* view) { view_ = view; }
    /// Not kept alive.
    void setDelegate(std::weak_ptr<QFShortcutRecorderDelegate> delegate) {
        delegate_ = std::move(delegate);
    }

    std::uint64_t modifierFlags() const { return shortcut_.modifierFlags; }
    /// kNoKeyCode without a shortcut.
    std::int64_t keyCode() const { return shortcut_.keyCode; }
    std::uint64_t previousModifierFlags() const { return previous_.modifierFlags; }
    std::int64_t previousKeyCode() const { return previous_.keyCode; }
    bool isRecording() const { return isRecording_; }
    bool mouseDownInClear() const { return mouseDownInClear_; }
    bool mouseDownInSnapBack() const { return mouseDownInSnapBack_; }

    /// Whether Tab can be recorded; else it ends a recording. False at first.
    void setCaptureTabKey(bool capture) { captureTabKey_ = capture; }
    /// Whether a key without modifiers is refused. True at first.
    void setRequiresModifierFlags(bool required) { requiresModifierFlags_ = required; }

    // What is shown; setting one redraws.
    const std::string& defaultLabel() const { return defaultLabel_; }
    void setDefaultLabel(std::string label) { show(defaultLabel_, std::move(label)); }
    const std::string& waitingForKeysLabel() const { return waitingForKeysLabel_; }
    void setWaitingForKeysLabel(std::string label) { show(waitingForKeysLabel_, std::move(label)); }
    void setDefaultAttributes(TextAttributes attributes) { show(defaultAttributes_, attributes); }
    void setWaitingForKeysAttributes(TextAttributes attributes) {
        show(waitingForKeysAttributes_, attributes);
    }
    const Colour& snapBackButtonTint() const { return snapBackButtonTint_; }
    void setSnapBackButtonTint(Colour tint) { show(snapBackButtonTint_, tint); }
    const Colour& clearButtonTint() const { return clearButtonTint_; }
    void setClearButtonTint(Colour tint) { show(clearButtonTint_, tint); }
    /// Laid over the image of a button that is pressed; nil leaves it as it is.
    const std::optional<Colour>& mouseDownTintAdjustment() const {
        return mouseDownTintAdjustment_;
    }
    void setMouseDownTintAdjustment(std::optional<Colour> adjustment) {
        show(mouseDownTintAdjustment_, adjustment);
    }

    /// Shows a shortcut and tells no delegate.
    void setKeyCode(std::int64_t keyCode, std::uint64_t andModifierFlags);
    /// Forgets everything and tells no delegate.
    void clear();

    /// Saves the shortcut for the time of a recording and empties the field. The delegate hears
    /// that it was cleared, unless there was none. Nothing while recording.
    void pushKeyboardShortcut();
    /// Brings the saved one back, which the delegate hears; empties the field where none was saved.
    void popKeyboardShortcut();
    /// Forgets it and the saved one. The delegate hears it also when there was none.
    void clearKeyboardShortcut();

    /// The modifiers that are held now.
    void flagsChanged(std::uint64_t modifierFlags);
    /// True when the key was for the recorder. Only while its view is first responder.
    bool performKeyEquivalent(const KeyEvent& event);
    bool keyDown(const KeyEvent& event) { return performKeyEquivalent(event); }
    /// A key that has no virtual key code; it cannot be recorded.
    void keyWithoutCode();
    void mouseDown(Point location, Size viewSize);
    void mouseUp(Point location, Size viewSize);

    bool acceptsFirstResponder() { return redrawFocusRing(); }
    bool becomeFirstResponder() { return redrawFocusRing(); }
    /// A recording ends without the shortcut that there was before.
    bool resignFirstResponder();

    /// The text in the middle.
    const std::string& shownLabel() const;
    /// The shortcut for whoever hears it, such as "Alt+2"; empty while there is none.
    std::string shortcutInWords() const;
    const TextAttributes& shownAttributes() const;
    /// Where the buttons are that can be pressed now; nil while there is none.
    std::optional<Rect> clearButton(Size viewSize) const;
    std::optional<Rect> snapBackButton(Size viewSize) const;
    /// Whether those are drawn: while idle a click works where the clear button was.
    bool showsButtons() const { return isRecording_; }

private:
    struct Shortcut {
        std::uint64_t modifierFlags = 0;
        std::int64_t keyCode = kNoKeyCode;
        std::string mutableLabel;
    };

    template <class Value>
    void show(Value& shown, Value value) {
        shown = std::move(value);
        setNeedsDisplay();
    }
    bool redrawFocusRing() {
        setNeedsDisplay();
        return true;
    }
    bool needsModifiers() const { return requiresModifierFlags_ && shortcut_.modifierFlags == 0; }
    void startRecording();
    void cancelRecording();
    void takeKey(const KeyEvent& event);
    void endRecording();
    void tellRefusesKey(bool refuses);
    void tellSet();
    void tellDidClear();
    void setNeedsDisplay();

    ShortcutText text_;
    Beeper& beeper_;
    QFShortcutRecorderView* view_ = nullptr;
    std::weak_ptr<QFShortcutRecorderDelegate> delegate_;
    Shortcut shortcut_;
    Shortcut previous_;
    bool isRecording_ = false;
    bool refusesKey_ = false;
    bool mouseDownInClear_ = false;
    bool mouseDownInSnapBack_ = false;
    bool captureTabKey_ = false;
    bool requiresModifierFlags_ = true;
    std::string defaultLabel_ = kDefaultLabel;
    std::string waitingForKeysLabel_ = kWaitingForKeysLabel;
    TextAttributes defaultAttributes_;
    TextAttributes waitingForKeysAttributes_{grey(0.5)};
    Colour snapBackButtonTint_{1, 0.5, 0};
    Colour clearButtonTint_ = grey(0.5);
    std::optional<Colour> mouseDownTintAdjustment_ = Colour{0, 0, 0, 0.2};
};

} // namespace panewright
