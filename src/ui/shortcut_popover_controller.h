#pragma once

#include "platform/beeper.h"
#include "platform/hot_keys.h"
#include "platform/key_event.h"
#include "platform/text_services.h"
#include "services/tracking.h"
#include "shortcuts/qf_shortcut_recorder.h"
#include "ui/shortcut_popover_view.h"

#include <memory>
#include <optional>
#include <string>

namespace panewright {

class Model;
class WindowState;

/// What the controllers of the popovers share in which a state gets its name and its shortcut. The
/// recorder writes into the state that the popover works on, at once.
class ShortcutPopoverController : public QFShortcutRecorderDelegate,
                                  public std::enable_shared_from_this<ShortcutPopoverController> {
public:
    /// All of it must outlive the controller.
    struct Services {
        Beeper& beeper;
        const HotKeys& hotKeys;
        const Model& model;
        const TextServices& text;
        ShortcutText shortcutText;
        Tracking tracking;
    };

    /// The window of the view; null before that is loaded.
    Popover* popover() const;
    QFShortcutRecorder& shortcutRecorder() { return recorder_; }
    /// The state that the popover works on; null while there is none.
    const std::shared_ptr<WindowState>& windowState() const { return windowState_; }

    /// A key on its way to the focused control of the popover. True when it goes no further.
    bool keyDown(const KeyEvent& event);
    /// By other means than a key, such as those of the window manager.
    void closeRequested();

    void shortcutRecorderSetFlags(QFShortcutRecorder& recorder, std::uint64_t flags,
                                  std::uint16_t andKeyCode) override;
    void shortcutRecorderDidClearFlags(QFShortcutRecorder& recorder, std::uint64_t flags,
                                       std::uint16_t andKeyCode) override;
    void shortcutRecorderRefusesKey(QFShortcutRecorder& recorder, bool refuses) override;

protected:
    explicit ShortcutPopoverController(const Services& services);

    const Services& services() const { return services_; }
    void keepWindowState(std::shared_ptr<WindowState> state) { windowState_ = std::move(state); }
    void viewDidLoad();
    /// The name as it was typed; nil, with a beep, when it is blank or there is no state to name.
    std::optional<std::string> enteredName() const;
    /// Says anew what is to be said of the shortcut that the recorder shows.
    void updateShortcutRemark();

private:
    /// Null before it is loaded.
    virtual ShortcutPopoverView* loadedView() const = 0;
    /// The application that the state's shortcut works in; nil for all.
    virtual std::optional<std::string> applicationOfShortcut() const = 0;
    /// Closes the popover without finishing what it was opened for.
    virtual void abandon() = 0;

    Services services_;
    QFShortcutRecorder recorder_;
    std::shared_ptr<WindowState> windowState_;
};

} // namespace panewright
