#pragma once

#include "base/image.h"
#include "platform/beeper.h"
#include "platform/hot_keys.h"
#include "platform/key_event.h"
#include "platform/main_loop.h"
#include "platform/text_services.h"
#include "services/tracking.h"
#include "shortcuts/qf_shortcut_recorder.h"
#include "ui/view_factory.h"

#include <memory>
#include <optional>
#include <string>

namespace panewright {

class WindowState;
class WindowStateSaving;

/// Turns what is entered in the save popover into a window state.
///
/// The pending state is replaced by a fresh one whenever the window behind it changes; a fresh one
/// carries no shortcut, also if the recorder still shows one. Name, radio buttons and check box are
/// read when saving.
class SaveShortcutViewController : public QFShortcutRecorderDelegate,
                                   public std::enable_shared_from_this<SaveShortcutViewController> {
public:
    /// All of it must outlive the controller.
    struct Services {
        Beeper& beeper;
        const HotKeys& hotKeys;
        MainLoop& mainLoop;
        const TextServices& text;
        ShortcutText shortcutText;
        Tracking tracking;
        ViewFactory& views;
        WindowStateSaving& saving;
    };

    static std::shared_ptr<SaveShortcutViewController> create(const Services& services);

    /// Makes the view unless there is one.
    void loadViewSafely();
    /// The window of the view; null before that is loaded.
    Popover* popover() { return view_ ? &view_->popover() : nullptr; }
    /// There must be one, here and in all that follows but the pending state.
    SaveShortcutView& view() { return *view_; }
    QFShortcutRecorder& shortcutRecorder() { return recorder_; }

    /// The pending state; null while nothing is being saved.
    const std::shared_ptr<WindowState>& windowState() const { return windowState_; }
    void setWindowState(std::shared_ptr<WindowState> state) { windowState_ = std::move(state); }
    const std::string& appName() const { return appName_; }
    void setApplicationName(const std::string& name);
    void setApplicationImage(const ImagePtr& image);
    /// Whether the application can have states of its own. One that cannot leaves only the choice
    /// of all applications; the next one that can brings the user's choice back.
    void setCanBeForAppOnly(bool can);

    /// Everything that can be entered as it is at first.
    void reset();

    // What the user does in the view.
    void save();
    void cancel();
    void onActiveForAppOnly();
    void onActiveForAll();
    void onActiveContextChange();
    /// A key on its way to the focused control of the popover. True when it goes no further.
    bool keyDown(const KeyEvent& event);
    /// By other means than a key, such as those of the window manager.
    void closeRequested();

    void shortcutRecorderSetFlags(QFShortcutRecorder& recorder, std::uint64_t flags,
                                  std::uint16_t andKeyCode) override;
    void shortcutRecorderDidClearFlags(QFShortcutRecorder& recorder, std::uint64_t flags,
                                       std::uint16_t andKeyCode) override;
    void shortcutRecorderRefusesKey(QFShortcutRecorder& recorder, bool refuses) override;

private:
    explicit SaveShortcutViewController(const Services& services);

    void viewDidLoad();
    void updateTooltips();
    void updateTooltipsSoon();
    void drop();

    Services services_;
    QFShortcutRecorder recorder_;
    std::shared_ptr<WindowState> windowState_;
    std::string appName_;
    /// The user's choice while the application leaves none; nil otherwise.
    std::optional<bool> choiceForAppOnly_;
    Registration tooltipTimer_;
    std::unique_ptr<SaveShortcutView> view_; // last: it knows the rest
};

} // namespace panewright
