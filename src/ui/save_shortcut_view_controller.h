#pragma once

#include "base/image.h"
#include "platform/main_loop.h"
#include "ui/popover_controller.h"
#include "ui/view_factory.h"

#include <memory>
#include <optional>
#include <string>

namespace panewright {

class WindowStateSaving;

/// Turns what is entered in the save popover into a window state.
///
/// The pending state is replaced by a fresh one whenever the window behind it changes; a fresh one
/// carries no shortcut, also if the recorder still shows one. Name, radio buttons and check box are
/// read when saving.
class SaveShortcutViewController : public PopoverController {
public:
    /// All of it must outlive the controller.
    struct Services {
        PopoverController::Services shared;
        MainLoop& mainLoop;
        ViewFactory& views;
        WindowStateSaving& saving;
    };

    static std::shared_ptr<SaveShortcutViewController> create(const Services& services);

    /// Makes the view unless there is one.
    void loadViewSafely();
    /// There must be one, here and in all that follows.
    SaveShortcutView& view() { return *view_; }

    /// The pending state; null while nothing is being saved.
    void setWindowState(std::shared_ptr<WindowState> state);
    const std::string& appName() const { return appName_; }
    void setApplicationName(const std::string& name);
    void setApplicationImage(const ImagePtr& image);
    /// Whether the application can have states of its own. One that cannot leaves only the choice
    /// of all applications; the next one that can brings the user's choice back.
    void setCanBeForAppOnly(bool can);

    /// Everything that can be entered as it is at first.
    void reset();
    /// Says whether what is entered can be saved.
    void showSavingRefusal();

    // What the user does in the view.
    void save();
    void cancel();
    void onActiveForAppOnly();
    void onActiveForAll();
    void onActiveContextChange();

private:
    explicit SaveShortcutViewController(const Services& services);

    PopoverView* loadedView() const override { return view_.get(); }
    std::optional<std::string> applicationOfShortcut() const override;
    void abandon() override;
    void updateTooltips();
    void updateTooltipsSoon();
    void drop();

    MainLoop& mainLoop_;
    ViewFactory& views_;
    WindowStateSaving& saving_;
    std::string appName_;
    /// The user's choice while the application leaves none; nil otherwise.
    std::optional<bool> choiceForAppOnly_;
    Registration tooltipTimer_;
    std::unique_ptr<SaveShortcutView> view_; // last: it knows the rest
};

} // namespace panewright
