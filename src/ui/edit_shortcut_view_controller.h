#pragma once

#include "base/geometry.h"
#include "platform/alerts.h"
#include "ui/popover_controller.h"
#include "ui/view_factory.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace panewright {

class WindowStateEditing;

/// Edits a stored state: its name and, on request, its frame when saving, its shortcut at once. So
/// cancelling keeps a shortcut that was recorded meanwhile.
class EditShortcutViewController : public PopoverController {
public:
    /// All of it must outlive the controller.
    struct Services {
        PopoverController::Services shared;
        Alerts& alerts;
        ViewFactory& views;
        WindowStateEditing& editing;
    };

    static std::shared_ptr<EditShortcutViewController> create(const Services& services);

    /// Makes the view unless there is one, which must be there in all that follows.
    void loadViewSafely();
    EditShortcutView& view() { return *view_; }

    /// Shows the stored state, the live one, or nothing when null. The check box stays as it is; a
    /// question that is open closes unanswered.
    void setWindowState(const std::shared_ptr<WindowState>& state);

    /// The frame, and the bounds of its display, that the state gets when the user wants it
    /// replaced. Global points.
    const Rect& newOriginalWindowRect() const { return newOriginalWindowRect_; }
    void setNewOriginalWindowRect(const Rect& rect) { newOriginalWindowRect_ = rect; }
    const Rect& newQuartzDisplayBounds() const { return newQuartzDisplayBounds_; }
    void setNewQuartzDisplayBounds(const Rect& rect) { newQuartzDisplayBounds_ = rect; }

    // What the user does in the view.
    void save();
    void cancel();
    /// Asks first, unless the modifiers that were held have Shift.
    void deleteWindowState(std::uint64_t modifierFlags);

private:
    explicit EditShortcutViewController(const Services& services);

    PopoverView* loadedView() const override { return view_.get(); }
    std::optional<std::string> applicationOfShortcut() const override;
    void abandon() override;
    std::string contextOf(const std::shared_ptr<WindowState>& state) const;
    void questionAnswered(int response);
    std::shared_ptr<WindowState> removeFromStore();

    Alerts& alerts_;
    ViewFactory& views_;
    WindowStateEditing& editing_;
    Rect newOriginalWindowRect_;
    Rect newQuartzDisplayBounds_;
    /// Whether the state is to be deleted.
    Registration question_;
    std::unique_ptr<EditShortcutView> view_; // last: it knows the rest
};

} // namespace panewright
