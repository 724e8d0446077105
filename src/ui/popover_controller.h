#pragma once

#include "platform/key_event.h"
#include "services/tracking.h"
#include "ui/popover_view.h"
#include "ui/shortcut_entry.h"

#include <memory>
#include <optional>
#include <string>

namespace panewright {

class WindowState;

/// What the controllers of the popovers share in which a state gets its name and its shortcut. The
/// recorder writes into the state that the popover works on, at once.
class PopoverController : public ShortcutEntry {
public:
    /// All of it must outlive the controller.
    struct Services : ShortcutEntry::Services {
        Tracking tracking;
    };

    /// The window of the view; null before that is loaded.
    Popover* popover() const;
    /// Gives the name field the keyboard. The view must be loaded.
    void focusWindowStateName() const { loadedView()->focusWindowStateName(); }
    /// The state that the popover works on; null while there is none.
    const std::shared_ptr<WindowState>& windowState() const { return windowState_; }

    /// A key on its way to the focused control of the popover. True when it goes no further.
    bool keyDown(const KeyEvent& event);
    /// By other means than a key, such as those of the window manager.
    void closeRequested();

protected:
    explicit PopoverController(const Services& services);

    const Services& services() const { return services_; }
    void keepWindowState(std::shared_ptr<WindowState> state) { windowState_ = std::move(state); }
    void viewDidLoad();
    /// The name as it was typed; nil, with a beep, when it is blank or there is no state to name.
    std::optional<std::string> enteredName() const;
    std::string onlyActiveFor(const std::string& applicationName) const;

private:
    /// Null before it is loaded.
    virtual PopoverView* loadedView() const = 0;
    /// The application that the state's shortcut works in; nil for all.
    virtual std::optional<std::string> applicationOfShortcut() const = 0;
    /// Closes the popover without finishing what it was opened for: nothing is saved, and the
    /// keyboard goes back.
    virtual void abandon() = 0;

    void keepShortcut(const std::shared_ptr<CarbonKeyEvent>& event) override;
    ShortcutOwner shortcutOwner() const override { return {windowState_, applicationOfShortcut()}; }
    void showShortcutRemark(const std::string& text) override;

    Services services_;
    std::shared_ptr<WindowState> windowState_;
};

} // namespace panewright
